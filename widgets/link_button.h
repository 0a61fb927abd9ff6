#pragma once

#include <QAbstractButton>

namespace ui {

/// A button that looks like a link. Space and Enter press it, even in a dialog where Enter
/// otherwise presses the default button.
class LinkButton : public QAbstractButton {
    Q_OBJECT

  public:
    LinkButton(const char* name, QWidget* parent);

    QSize sizeHint() const override;

    /// The colour of the caption.
    QColor TextColour() const;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace ui

#pragma once

#include <QAbstractButton>

namespace ui {

/// A button that looks like a link. The space bar and Enter press it, also in a dialog whose
/// default button Enter would press otherwise.
class LinkButton : public QAbstractButton {
    Q_OBJECT

  public:
    LinkButton(const char* name, QWidget* parent);

    QSize sizeHint() const override;

    /// The colour that its caption is painted in.
    QColor TextColour() const;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace ui

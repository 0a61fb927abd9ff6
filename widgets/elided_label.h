#pragma once

#include <QLabel>

namespace ui {

/// A one-line label that shortens a long text in its middle and shows the whole of it in a tooltip.
class ElidedLabel : public QLabel {
    Q_OBJECT

  public:
    ElidedLabel(const char* name, const QString& text, QWidget* parent);

    /// A quiet label is paler: it accompanies what others say.
    void SetQuiet(bool quiet);

    /// A warning has a colour of its own.
    void SetWarning(bool warning);
    bool IsWarning() const { return warning_; }

    /// The colour that its text is painted in.
    QColor TextColour() const;

    /// In a layout it takes the room that there is.
    QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    bool quiet_ = false;
    bool warning_ = false;
};

}  // namespace ui

#pragma once

#include <QLabel>

namespace ui {

/// A one-line label that elides a long text in its middle and shows all of it in a tooltip.
class ElidedLabel : public QLabel {
    Q_OBJECT

  public:
    ElidedLabel(const char* name, const QString& text, QWidget* parent);

    /// A quiet label is paler, for secondary information.
    void SetQuiet(bool quiet);

    /// A warning has a colour of its own.
    void SetWarning(bool warning);
    bool IsWarning() const { return warning_; }

    /// The colour of the text.
    QColor TextColour() const;

    /// In a layout it may shrink to any width.
    QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    bool quiet_ = false;
    bool warning_ = false;
};

}  // namespace ui

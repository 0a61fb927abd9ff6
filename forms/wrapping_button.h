#pragma once

#include <QPushButton>

namespace ui {

/// A large button whose caption may wrap to several lines.
class WrappingButton : public QPushButton {
    Q_OBJECT

  public:
    WrappingButton(const char* name, const QString& caption, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace ui

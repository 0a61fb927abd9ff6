#pragma once

#include <QLineEdit>

namespace ui {

/// A text box that selects all its text when it gets the focus, also by a click. When its window or
/// a menu merely returns the focus, the selection stays, so that the next key does not replace what
/// was being typed. The text is readable even while the box is disabled.
class AddressBox : public QLineEdit {
    Q_OBJECT

  public:
    AddressBox(const char* name, QWidget* parent);

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    bool window_left_ = false;  ///< the box lost the focus together with its window
};

}  // namespace ui

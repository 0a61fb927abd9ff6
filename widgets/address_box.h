#pragma once

#include <QLineEdit>

namespace ui {

/// A text box that selects its whole text when it gets the focus, also by a click, but not when its
/// window or a menu only gives the focus back: what was being typed is not to be replaced then. Its
/// text is readable also while it is disabled.
class AddressBox : public QLineEdit {
    Q_OBJECT

  public:
    AddressBox(const char* name, QWidget* parent);

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    bool window_left_ = false;  ///< the focus went with the window's, and comes back with it
};

}  // namespace ui

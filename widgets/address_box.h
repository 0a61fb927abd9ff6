#pragma once

#include <QLineEdit>

namespace ui {

/// A text box that selects its whole text when it gets the focus, also by a click.
class AddressBox : public QLineEdit {
    Q_OBJECT

  public:
    using QLineEdit::QLineEdit;

  protected:
    void focusInEvent(QFocusEvent* event) override;
};

}  // namespace ui

#include "widgets/address_box.h"

#include <QFocusEvent>
#include <QTimer>

#include "widgets/readable.h"

namespace ui {

AddressBox::AddressBox(const char* name, QWidget* parent) : QLineEdit(parent) {
    setObjectName(QLatin1String(name));
    KeepReadable(this, QPalette::Base);
}

void AddressBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    const bool given_back = event->reason() == Qt::PopupFocusReason ||
                            event->reason() == Qt::MenuBarFocusReason ||
                            (event->reason() == Qt::ActiveWindowFocusReason && window_left_);
    window_left_ = false;
    if (given_back) return;
    selectAll();
    // The click that caused this has yet to be handled and would clear the selection.
    if (event->reason() == Qt::MouseFocusReason) {
        QTimer::singleShot(0, this, [this] { selectAll(); });
    }
}

void AddressBox::focusOutEvent(QFocusEvent* event) {
    window_left_ = event->reason() == Qt::ActiveWindowFocusReason;
    QLineEdit::focusOutEvent(event);
}

}  // namespace ui

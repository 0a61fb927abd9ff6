#include "widgets/address_box.h"

#include <QFocusEvent>
#include <QTimer>

namespace ui {

void AddressBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    // A context menu that closes only gives back what was there.
    if (event->reason() == Qt::PopupFocusReason) return;
    selectAll();
    // The click that brought the focus is still to come and would take the selection away.
    if (event->reason() == Qt::MouseFocusReason) {
        QTimer::singleShot(0, this, [this] { selectAll(); });
    }
}

}  // namespace ui

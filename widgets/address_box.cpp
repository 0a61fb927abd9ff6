#include "widgets/address_box.h"

#include <QApplication>
#include <QFocusEvent>
#include <QPalette>
#include <QTimer>

#include "widgets/contrast.h"

namespace ui {

AddressBox::AddressBox(const char* name, QWidget* parent) : QLineEdit(parent) {
    setObjectName(QLatin1String(name));
    MakeDisabledTextReadable();
}

void AddressBox::MakeDisabledTextReadable() {
    QPalette colours = QApplication::palette(this);
    colours.setColor(QPalette::Disabled, QPalette::Text,
                     QuietText(colours.color(QPalette::Active, QPalette::Text),
                               {colours.color(QPalette::Disabled, QPalette::Base)}));
    setPalette(colours);
}

bool AddressBox::event(QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange) MakeDisabledTextReadable();
    return QLineEdit::event(event);
}

void AddressBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    const bool given_back = event->reason() == Qt::PopupFocusReason ||
                            event->reason() == Qt::MenuBarFocusReason ||
                            (event->reason() == Qt::ActiveWindowFocusReason && window_left_);
    window_left_ = false;
    if (given_back) return;
    selectAll();
    // The click that brought the focus is still to come and would take the selection away.
    if (event->reason() == Qt::MouseFocusReason) {
        QTimer::singleShot(0, this, [this] { selectAll(); });
    }
}

void AddressBox::focusOutEvent(QFocusEvent* event) {
    window_left_ = event->reason() == Qt::ActiveWindowFocusReason;
    QLineEdit::focusOutEvent(event);
}

}  // namespace ui

#include "forms/address_completer.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include "platform/qt/local_text.h"
#include "setup/recent_addresses.h"
#include "text/http_scheme.h"

namespace ui {

namespace {

bool IsEnter(const QKeyEvent& key) {
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

bool IsTab(const QKeyEvent& key) {
    return key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
}

}  // namespace

AddressCompleter::AddressCompleter(QLineEdit* box) : QCompleter(box), box_(box) {
    setModel(&addresses_);
    setCaseSensitivity(Qt::CaseInsensitive);
    setFilterMode(Qt::MatchContains);
    popup()->setTextElideMode(Qt::ElideMiddle);
    box_->setCompleter(this);
    box_->installEventFilter(this);
}

bool AddressCompleter::eventFilter(QObject* watched, QEvent* event) {
    if (watched == box_ && event->type() == QEvent::FocusIn) {
        QStringList addresses;
        for (const std::string& address : bas_General::RecentAddresses())
            addresses += platform::FromBytes(address);
        addresses_.setStringList(addresses);
    }
    // popup() creates the list on first use. Events during that come through here, too, so call it
    // only for key presses.
    if (event->type() == QEvent::KeyPress) {
        auto& key = *static_cast<QKeyEvent*>(event);
        if (watched == box_ && PassOn(key)) return true;
        if (watched == popup() && Handle(key)) return true;
    }
    return QCompleter::eventFilter(watched, event);
}

bool AddressCompleter::PassOn(QKeyEvent& key) {
    QWidget* const focus = box_->window()->focusWidget();
    if (focus == nullptr || focus == box_) return false;
    QCoreApplication::sendEvent(focus, &key);
    return true;
}

bool AddressCompleter::Handle(QKeyEvent& key) {
    if (!popup()->isVisible()) {
        if (!PassOn(key)) QCoreApplication::sendEvent(box_, &key);
        return true;
    }
    if (IsEnter(key)) {
        Enter(key);
    } else if (IsTab(key)) {
        popup()->hide();
        QCoreApplication::sendEvent(box_, &key);
    } else {
        return false;
    }
    return true;
}

void AddressCompleter::Enter(const QKeyEvent& key) {
    const QModelIndex chosen = popup()->currentIndex();
    popup()->hide();
    if (chosen.isValid()) {
        box_->setText(chosen.data().toString());
    } else {
        QCoreApplication::postEvent(box_, key.clone());
    }
}

QStringList AddressCompleter::splitPath(const QString& typed) const {
    const std::string bytes = platform::ToBytes(typed.trimmed());
    return {platform::FromBytes(std::string(text::WithoutHttp(bytes)))};
}

}  // namespace ui

#include "widgets/link_drop.h"

#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QUrl>
#include <algorithm>

namespace ui {

namespace {

/// The dropped address; "" if there is none, as in a local file or a paragraph of text.
QString AddressIn(const QMimeData& data) {
    if (data.hasUrls()) {
        const QUrl url = data.urls().constFirst();
        return url.host().isEmpty() || url.isLocalFile() ? QString()
                                                         : url.toString(QUrl::FullyEncoded);
    }
    const QString text = data.text().trimmed();
    const bool one_word = std::ranges::none_of(text, [](QChar c) { return c.isSpace(); });
    return one_word ? text : QString();
}

}  // namespace

LinkDrop::LinkDrop(QWidget* form, QLineEdit* box) : QObject(form), box_(box) {
    for (QLineEdit* other : form->findChildren<QLineEdit*>())
        other->setAcceptDrops(false);
    form->setAcceptDrops(true);
    form->installEventFilter(this);
}

bool LinkDrop::eventFilter(QObject* watched, QEvent* event) {
    const bool drops = event->type() == QEvent::Drop;
    if (!drops && event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove)
        return QObject::eventFilter(watched, event);
    auto* const drop = static_cast<QDropEvent*>(event);
    const QString address = AddressIn(*drop->mimeData());
    if (address.isEmpty() || !box_->isEnabled()) {
        drop->ignore();
        return true;
    }
    // Always copy, so that the other program does not remove what was dragged.
    drop->setDropAction(Qt::CopyAction);
    drop->accept();
    if (drops) {
        box_->setFocus();
        box_->setText(address);
    }
    return true;
}

}  // namespace ui

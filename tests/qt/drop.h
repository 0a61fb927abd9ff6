#pragma once

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

/// Drops text or a link onto the middle of `target`. Returns whether it was accepted.
inline bool Drop(QWidget& target, const QString& text, const QUrl& link = {}) {
    QMimeData data;
    if (!text.isEmpty()) data.setText(text);
    if (link.isValid()) data.setUrls({link});
    const QPoint place = target.rect().center();
    QDragEnterEvent enter(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                          Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(&target, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&target, &drop);
    return drop.isAccepted() && drop.dropAction() == Qt::CopyAction;
}

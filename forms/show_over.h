#pragma once

#include <QWidget>

namespace ui {

/// Brings the parent's dialog of this kind to the front. Creates it if there is none.
template <typename Dialog>
Dialog* ShowOnlyOneOver(QWidget* parent) {
    auto* dialog = parent->findChild<Dialog*>(QString(), Qt::FindDirectChildrenOnly);
    if (dialog == nullptr) dialog = new Dialog(parent);
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
    return dialog;
}

}  // namespace ui

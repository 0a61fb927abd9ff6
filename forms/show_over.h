#pragma once

#include <QWidget>

namespace ui {

/// Shows the parent's only dialog of this kind in front, and makes it if there is none.
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

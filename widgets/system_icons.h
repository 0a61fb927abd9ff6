#pragma once

#include <QIcon>
#include <QStyle>

namespace ui {

/// The icons of message boxes and folders if the desktop has no theme with them, because the
/// toolkit's own are small and outdated. Null for every other icon.
QIcon SystemIcon(QStyle::StandardPixmap which);

}  // namespace ui

#pragma once

#include <QIcon>
#include <QStyle>

namespace ui {

/// The icons of message boxes and of folders where the desktop has no theme with them: the
/// toolkit's own are small pictures of another time. Null for every other icon.
QIcon SystemIcon(QStyle::StandardPixmap which);

}  // namespace ui

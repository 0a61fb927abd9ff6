#pragma once

#include <QIcon>

namespace ui {

/// The program's icon: a globe and an arrow down into a tray. Drawn separately for each size, with
/// fine lines from 32 pixels on.
QIcon AppIcon();

}  // namespace ui

#pragma once

#include <QIcon>

namespace ui {

/// The program's own icon: a globe that an arrow takes down into a tray. Drawn for every size, with
/// the finer lines from 32 pixels on.
QIcon AppIcon();

}  // namespace ui

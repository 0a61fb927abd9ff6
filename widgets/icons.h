#pragma once

#include <QIcon>

namespace ui {

/// The pictures of the buttons that have no caption. Drawn as lines and areas in the colours of the
/// palette, so that they are sharp at every scale and fit light and dark desktops.
enum class Picture { Start, Stop, Filters, Explore, OpenCopy, Warning };

QIcon ButtonIcon(Picture picture);

}  // namespace ui

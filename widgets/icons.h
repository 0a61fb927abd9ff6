#pragma once

#include <QIcon>

namespace ui {

/// The pictures of buttons without a caption. They are drawn in the colours of the palette, so that
/// they are sharp at every scale and suit light and dark desktops.
enum class Picture { Start, Stop, Filters, Explore, OpenCopy, Search, Warning };

QIcon ButtonIcon(Picture picture);

}  // namespace ui

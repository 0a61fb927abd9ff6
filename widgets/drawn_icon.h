#pragma once

#include <QIcon>
#include <functional>

class QPainter;

namespace ui {

/// All icons are drawn in a square of this side.
inline constexpr double kIconSide = 16;

/// An icon that `draw` draws afresh at every size, so that it is sharp at every scale.
QIcon DrawnIcon(std::function<void(QPainter& painter, QIcon::Mode mode)> draw);

}  // namespace ui

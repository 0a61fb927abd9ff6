#pragma once

#include <QIcon>
#include <functional>

class QPainter;

namespace ui {

/// The side of the square in which all icons are drawn.
inline constexpr double kIconSide = 16;

/// An icon that `draw` draws separately for every size, so that it is always sharp.
QIcon DrawnIcon(std::function<void(QPainter& painter, QIcon::Mode mode)> draw);

}  // namespace ui

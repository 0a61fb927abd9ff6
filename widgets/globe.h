#pragma once

#include <QPainter>
#include <QRectF>

namespace ui {

/// Draws a globe into `area`, with meridians and parallels if `fine_lines` is set. In a small
/// picture they would only blur.
void DrawGlobe(QPainter& painter, const QRectF& area, bool fine_lines);

}  // namespace ui

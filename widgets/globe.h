#pragma once

#include <QPainter>
#include <QRectF>

namespace ui {

/// Draws a globe into `area`, with its meridians and parallels when `fine_lines` is true: in a
/// small picture they would only blur.
void DrawGlobe(QPainter& painter, const QRectF& area, bool fine_lines);

}  // namespace ui

#include "widgets/globe.h"

#include <QColor>
#include <QLinearGradient>
#include <QPen>

namespace ui {

void DrawGlobe(QPainter& painter, const QRectF& area, bool fine_lines) {
    const double side = area.height();
    QLinearGradient sea(area.topLeft(), area.bottomLeft());
    sea.setColorAt(0, {0x5a, 0xb0, 0xf5});
    sea.setColorAt(1, {0x1f, 0x63, 0xb5});
    painter.setBrush(sea);
    painter.setPen(QPen(QColor(0x17, 0x4a, 0x8a), side / 26));
    painter.drawEllipse(area);
    if (!fine_lines) return;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(255, 255, 255, 150), side / 26));
    const double inset = side * 0.27, parallel = side * 0.23, rim = side * 0.1;
    painter.drawEllipse(area.adjusted(inset, 1, -inset, -1));
    const QPointF centre = area.center();
    painter.drawLine(QPointF(area.left() + 1, centre.y()), QPointF(area.right() - 1, centre.y()));
    for (const double y : {area.top() + parallel, area.bottom() - parallel})
        painter.drawLine(QPointF(area.left() + rim, y), QPointF(area.right() - rim, y));
}

}  // namespace ui

#include "widgets/app_icon.h"

#include <QPainter>
#include <QPixmap>

#include "widgets/globe.h"

namespace ui {

namespace {

/// The side of the square in which the icon is drawn.
constexpr double kSide = 64;
constexpr int kLeastForFineLines = 32;
constexpr int kSizes[] = {16, 22, 24, 32, 48, 64, 128, 256};

using Corners = QList<QPointF>;

void DrawArrowAndTray(QPainter& painter) {
    painter.setPen(QPen(QColor(0x17, 0x4a, 0x8a), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::white);
    painter.drawPolygon(
        Corners{{24, 12}, {40, 12}, {40, 31}, {53, 31}, {32, 53}, {11, 31}, {24, 31}});
    painter.setPen(QPen(QColor(0x9c, 0x6a, 0x0c), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(QColor(0xf5, 0xb5, 0x3a));
    painter.drawPolygon(
        Corners{{2, 44}, {11, 44}, {11, 53}, {53, 53}, {53, 44}, {62, 44}, {62, 62}, {2, 62}});
}

QPixmap DrawnAt(int size) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / kSide, size / kSide);
    DrawGlobe(painter, QRectF(6, 2, 52, 52), size >= kLeastForFineLines);
    DrawArrowAndTray(painter);
    return pixmap;
}

}  // namespace

QIcon AppIcon() {
    QIcon icon;
    for (const int size : kSizes)
        icon.addPixmap(DrawnAt(size));
    return icon;
}

}  // namespace ui

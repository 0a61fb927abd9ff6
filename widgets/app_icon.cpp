#include "widgets/app_icon.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPixmap>

namespace ui {

namespace {

/// The icon is drawn in a square of this side.
constexpr double kSide = 64;
constexpr int kLeastForFineLines = 32;
constexpr int kSizes[] = {16, 22, 24, 32, 48, 64, 128, 256};

using Corners = QList<QPointF>;

void DrawGlobe(QPainter& painter, bool fine_lines) {
    QLinearGradient sea(0, 2, 0, 54);
    sea.setColorAt(0, {0x5a, 0xb0, 0xf5});
    sea.setColorAt(1, {0x1f, 0x63, 0xb5});
    painter.setBrush(sea);
    painter.setPen(QPen(QColor(0x17, 0x4a, 0x8a), 2));
    painter.drawEllipse(QRectF(6, 2, 52, 52));
    if (!fine_lines) return;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(255, 255, 255, 150), 2));
    painter.drawEllipse(QRectF(20, 3, 24, 50));
    painter.drawLine(QPointF(7, 28), QPointF(57, 28));
    painter.drawLine(QPointF(12, 14), QPointF(52, 14));
    painter.drawLine(QPointF(12, 42), QPointF(52, 42));
}

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
    DrawGlobe(painter, size >= kLeastForFineLines);
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

#include "widgets/system_icons.h"

#include <QPainter>

#include "widgets/drawn_icon.h"

namespace ui {

namespace {

using Corners = QList<QPointF>;

void SetColours(QPainter& painter, const QColor& fill) {
    painter.setBrush(fill);
    painter.setPen(QPen(fill.darker(130), 0.75, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void SetSign(QPainter& painter, double width) {
    painter.setPen(QPen(Qt::white, width, Qt::SolidLine, Qt::RoundCap));
}

void DrawInformation(QPainter& painter) {
    SetColours(painter, QColor(0x2f, 0x72, 0xc4));
    painter.drawEllipse(QRectF(1, 1, 14, 14));
    SetSign(painter, 2);
    painter.drawPoint(QPointF(8, 4.75));
    painter.drawLine(QPointF(8, 8), QPointF(8, 11.5));
}

void DrawCritical(QPainter& painter) {
    SetColours(painter, QColor(0xd0, 0x3a, 0x30));
    painter.drawEllipse(QRectF(1, 1, 14, 14));
    SetSign(painter, 2);
    painter.drawLine(QPointF(5.5, 5.5), QPointF(10.5, 10.5));
    painter.drawLine(QPointF(10.5, 5.5), QPointF(5.5, 10.5));
}

void DrawDrive(QPainter& painter) {
    SetColours(painter, QColor(0xa8, 0xb0, 0xb8));
    painter.drawPolygon(Corners{{3.5, 3.5}, {12.5, 3.5}, {15, 9}, {1, 9}});
    SetColours(painter, QColor(0x8a, 0x94, 0x9e));
    painter.drawRoundedRect(QRectF(1, 9, 14, 4.5), 1, 1);
    SetSign(painter, 1.25);
    painter.drawPoint(QPointF(12.5, 11.25));
}

void DrawFolder(QPainter& painter) {
    SetColours(painter, QColor(0xc4, 0x8a, 0x1c));
    painter.drawPolygon(Corners{{1, 3}, {6, 3}, {7.5, 4.75}, {15, 4.75}, {15, 13}, {1, 13}});
    SetColours(painter, QColor(0xe8, 0xb0, 0x38));
    painter.drawPolygon(Corners{{1, 6.25}, {15, 6.25}, {15, 13}, {1, 13}});
}

void DrawOpenFolder(QPainter& painter) {
    SetColours(painter, QColor(0xc4, 0x8a, 0x1c));
    painter.drawPolygon(Corners{{1, 3}, {6, 3}, {7.5, 4.75}, {13, 4.75}, {13, 13}, {1, 13}});
    SetColours(painter, QColor(0xe8, 0xb0, 0x38));
    painter.drawPolygon(Corners{{1, 13}, {3.5, 7}, {15.5, 7}, {13, 13}});
}

struct Known {
    QStyle::StandardPixmap which;
    const char* name_in_themes;
    void (*draw)(QPainter& painter);
};

constexpr Known kKnown[] = {
    {QStyle::SP_MessageBoxInformation, "dialog-information", DrawInformation},
    {QStyle::SP_MessageBoxCritical, "dialog-error", DrawCritical},
    {QStyle::SP_DriveHDIcon, "drive-harddisk", DrawDrive},
    {QStyle::SP_DirClosedIcon, "folder", DrawFolder},
    {QStyle::SP_DirOpenIcon, "folder-open", DrawOpenFolder},
};

}  // namespace

QIcon SystemIcon(QStyle::StandardPixmap which) {
    for (const Known& known : kKnown) {
        if (known.which != which || QIcon::hasThemeIcon(known.name_in_themes)) continue;
        return DrawnIcon([draw = known.draw](QPainter& painter, QIcon::Mode) { draw(painter); });
    }
    return {};
}

}  // namespace ui

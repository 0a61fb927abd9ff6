#include "widgets/icons.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>

#include "widgets/contrast.h"
#include "widgets/drawn_icon.h"

namespace ui {

namespace {

constexpr double kDisabledShare = 0.3;

using Corners = QList<QPointF>;

struct Colours {
    QColor fill;
    QColor line;
};

Colours ColoursOf(QColor fill, bool dark) {
    return {dark ? fill.lighter(125) : fill, dark ? fill.lighter(145) : fill.darker(130)};
}

/// The colour stands for what the button does.
QColor FillOf(Picture picture) {
    switch (picture) {
        case Picture::Start:
            return {0x2e, 0x9e, 0x44};
        case Picture::Stop:
            return {0xd0, 0x3a, 0x30};
        case Picture::Filters:
        case Picture::OpenCopy:
            return {0x2f, 0x72, 0xc4};
        case Picture::Search:
            return {0x8a, 0x5c, 0xc0};
        case Picture::Explore:
        case Picture::Warning:
            return {0xe0, 0xa4, 0x20};
    }
    return {};
}

void SetColours(QPainter& painter, const Colours& colours) {
    painter.setBrush(colours.fill);
    painter.setPen(QPen(colours.line, 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

/// An arrow down into a tray, the usual sign of a download.
void DrawStart(QPainter& painter, const Colours& colours) {
    painter.drawPolygon(
        Corners{{6, 1}, {10, 1}, {10, 5.5}, {13.5, 5.5}, {8, 11}, {2.5, 5.5}, {6, 5.5}});
    painter.setPen(QPen(colours.line, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(Corners{{1.5, 11}, {1.5, 14.5}, {14.5, 14.5}, {14.5, 11}});
}

/// A stop sign.
void DrawStop(QPainter& painter, const QColor& sign) {
    painter.drawPolygon(
        Corners{{5, 1}, {11, 1}, {15, 5}, {15, 11}, {11, 15}, {5, 15}, {1, 11}, {1, 5}});
    painter.setPen(Qt::NoPen);
    painter.setBrush(sign);
    painter.drawRect(QRectF(5, 5, 6, 6));
}

/// A funnel with a cross.
void DrawFilters(QPainter& painter, const QColor& sign) {
    painter.drawPolygon(Corners{{1, 1.5}, {14, 1.5}, {9, 7.5}, {9, 12}, {6, 14.5}, {6, 7.5}});
    painter.setPen(QPen(sign, 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(11, 10.5), QPointF(15, 14.5));
    painter.drawLine(QPointF(15, 10.5), QPointF(11, 14.5));
}

/// An open folder.
void DrawExplore(QPainter& painter, const Colours& colours) {
    painter.setBrush(colours.line);
    painter.drawPolygon(Corners{{1, 2.5}, {5.5, 2.5}, {7, 4.5}, {13, 4.5}, {13, 13.5}, {1, 13.5}});
    painter.setBrush(colours.fill);
    painter.drawPolygon(Corners{{1, 13.5}, {3.5, 7}, {15.5, 7}, {13, 13.5}});
}

/// A browser's window.
void DrawOpenCopy(QPainter& painter, const Colours& colours) {
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(1, 2, 14, 12), 1.5, 1.5);
    painter.fillRect(QRectF(1, 2, 14, 4), colours.fill);
    painter.setPen(QPen(colours.line, 1.5, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(4, 9), QPointF(12, 9));
    painter.drawLine(QPointF(4, 11.5), QPointF(9, 11.5));
}

/// A magnifier.
void DrawSearch(QPainter& painter, const Colours& colours) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colours.fill, 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawEllipse(QRectF(2, 2, 8, 8));
    painter.setPen(QPen(colours.line, 2.75, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(9.75, 9.75), QPointF(13.5, 13.5));
}

/// A triangular road sign.
void DrawWarning(QPainter& painter) {
    painter.drawPolygon(Corners{{8, 1}, {15.5, 14.5}, {0.5, 14.5}});
    painter.setPen(QPen(Qt::black, 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(8, 6), QPointF(8, 9.5));
    painter.drawPoint(QPointF(8, 12.5));
}

void Draw(QPainter& painter, Picture picture, const Colours& colours, const QColor& sign) {
    SetColours(painter, colours);
    switch (picture) {
        case Picture::Start:
            return DrawStart(painter, colours);
        case Picture::Stop:
            return DrawStop(painter, sign);
        case Picture::Filters:
            return DrawFilters(painter, sign);
        case Picture::Explore:
            return DrawExplore(painter, colours);
        case Picture::OpenCopy:
            return DrawOpenCopy(painter, colours);
        case Picture::Search:
            return DrawSearch(painter, colours);
        case Picture::Warning:
            return DrawWarning(painter);
    }
}

void DrawInPalette(QPainter& painter, Picture picture, QIcon::Mode mode) {
    const QPalette palette = QApplication::palette();
    const QColor button = palette.color(QPalette::Button);
    const bool dark = button.lightness() < 128;
    Colours colours = ColoursOf(FillOf(picture), dark);
    QColor sign =
        picture == Picture::Stop ? QColor(Qt::white) : ColoursOf(FillOf(Picture::Stop), dark).fill;
    if (mode == QIcon::Disabled) {
        // Paler than any enabled icon, on dark desktops, too.
        colours.fill = colours.line =
            Mix(palette.color(QPalette::ButtonText), button, kDisabledShare);
        sign = picture == Picture::Stop ? button : colours.fill;
    }
    Draw(painter, picture, colours, sign);
}

}  // namespace

QIcon ButtonIcon(Picture picture) {
    return DrawnIcon(
        [picture](QPainter& painter, QIcon::Mode mode) { DrawInPalette(painter, picture, mode); });
}

}  // namespace ui

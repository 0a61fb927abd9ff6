#include "widgets/icons.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <algorithm>

namespace ui {

namespace {

/// All shapes are drawn in a square of this side.
constexpr double kSide = 16;

using Corners = QList<QPointF>;

struct Colours {
    QColor fill;
    QColor line;
};

Colours ColoursOf(QColor fill, bool dark) {
    return {dark ? fill.lighter(125) : fill, dark ? fill.lighter(145) : fill.darker(130)};
}

/// What a button does to a site, to its files, or what it shows of them.
QColor FillOf(Picture picture) {
    switch (picture) {
        case Picture::Start:
            return {0x2e, 0x9e, 0x44};
        case Picture::Stop:
            return {0xd0, 0x3a, 0x30};
        case Picture::Filters:
            return {0x2f, 0x72, 0xc4};
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

/// An arrow down into a tray, as browsers show a download.
void DrawStart(QPainter& painter, const Colours& colours) {
    painter.drawPolygon(
        Corners{{6, 1}, {10, 1}, {10, 5.5}, {13.5, 5.5}, {8, 11}, {2.5, 5.5}, {6, 5.5}});
    painter.setPen(QPen(colours.line, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(Corners{{1.5, 11}, {1.5, 14.5}, {14.5, 14.5}, {14.5, 11}});
}

/// A stop sign.
void DrawStop(QPainter& painter) {
    painter.drawPolygon(
        Corners{{5, 1}, {11, 1}, {15, 5}, {15, 11}, {11, 15}, {5, 15}, {1, 11}, {1, 5}});
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawRect(QRectF(5, 5, 6, 6));
}

/// A funnel that keeps something out.
void DrawFilters(QPainter& painter, const QColor& refusal) {
    painter.drawPolygon(Corners{{1, 1.5}, {14, 1.5}, {9, 7.5}, {9, 12}, {6, 14.5}, {6, 7.5}});
    painter.setPen(QPen(refusal, 2, Qt::SolidLine, Qt::RoundCap));
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

/// A sign as beside a road.
void DrawWarning(QPainter& painter) {
    painter.drawPolygon(Corners{{8, 1}, {15.5, 14.5}, {0.5, 14.5}});
    painter.setPen(QPen(Qt::black, 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(8, 6), QPointF(8, 9.5));
    painter.drawPoint(QPointF(8, 12.5));
}

void Draw(QPainter& painter, Picture picture, const Colours& colours, const QColor& refusal) {
    SetColours(painter, colours);
    switch (picture) {
        case Picture::Start:
            return DrawStart(painter, colours);
        case Picture::Stop:
            return DrawStop(painter);
        case Picture::Filters:
            return DrawFilters(painter, refusal);
        case Picture::Explore:
            return DrawExplore(painter, colours);
        case Picture::Warning:
            return DrawWarning(painter);
    }
}

class DrawnIcon : public QIconEngine {
  public:
    explicit DrawnIcon(Picture picture) : picture_(picture) {}

    QIconEngine* clone() const override { return new DrawnIcon(picture_); }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const QPalette palette = QApplication::palette();
        const bool dark = palette.color(QPalette::Window).lightness() < 128;
        Colours colours = ColoursOf(FillOf(picture_), dark);
        QColor refusal = ColoursOf(FillOf(Picture::Stop), dark).fill;
        if (mode == QIcon::Disabled) {
            const int grey = palette.color(QPalette::Disabled, QPalette::ButtonText).lightness();
            colours.fill = colours.line = refusal = QColor(grey, grey, grey, 130);
        }
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        const double scale = std::min(rect.width(), rect.height()) / kSide;
        painter->translate(QRectF(rect).center() - QPointF(kSide, kSide) / 2 * scale);
        painter->scale(scale, scale);
        Draw(*painter, picture_, colours, refusal);
        painter->restore();
    }

  private:
    Picture picture_;
};

}  // namespace

QIcon ButtonIcon(Picture picture) {
    return QIcon(new DrawnIcon(picture));
}

}  // namespace ui

#include "widgets/icons.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace ui {

namespace {

/// All shapes are drawn in a square of this side.
constexpr double kSide = 16;

QPainterPath Polygon(std::initializer_list<QPointF> corners) {
    QPolygonF polygon(QList<QPointF>{corners});
    QPainterPath path;
    path.addPolygon(polygon);
    path.closeSubpath();
    return path;
}

QPainterPath Shape(Picture picture) {
    switch (picture) {
        case Picture::Start:
            return Polygon({{4, 2}, {14, 8}, {4, 14}});
        case Picture::Stop:
            return Polygon({{3, 3}, {13, 3}, {13, 13}, {3, 13}});
        case Picture::Filters:
            return Polygon(
                {{1.5, 2.5}, {14.5, 2.5}, {9.5, 8.5}, {9.5, 13}, {6.5, 14.5}, {6.5, 8.5}});
        case Picture::Explore:
            return Polygon({{1.5, 3}, {6, 3}, {7.5, 5}, {14.5, 5}, {14.5, 13.5}, {1.5, 13.5}});
    }
    return {};
}

QColor Fill(Picture picture, bool dark) {
    switch (picture) {
        case Picture::Start:
            return dark ? QColor(0x5c, 0xc8, 0x6e) : QColor(0x2e, 0x9e, 0x44);
        case Picture::Stop:
            return dark ? QColor(0xf0, 0x70, 0x66) : QColor(0xd0, 0x3a, 0x30);
        case Picture::Filters:
            return dark ? QColor(0x6a, 0xa8, 0xf0) : QColor(0x2f, 0x72, 0xc4);
        case Picture::Explore:
            return dark ? QColor(0xf0, 0xc2, 0x5a) : QColor(0xe0, 0xa4, 0x20);
    }
    return {};
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
        QColor colour = Fill(picture_, dark);
        if (mode == QIcon::Disabled) {
            colour = palette.color(QPalette::Disabled, QPalette::ButtonText);
            colour.setAlphaF(0.45F);
        }
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        const double scale = std::min(rect.width(), rect.height()) / kSide;
        painter->translate(rect.center() + QPointF(0.5, 0.5) - QPointF(8, 8) * scale);
        painter->scale(scale, scale);
        painter->setPen(QPen(dark ? colour.lighter(115) : colour.darker(125), 1, Qt::SolidLine,
                             Qt::RoundCap, Qt::RoundJoin));
        painter->setBrush(colour);
        painter->drawPath(Shape(picture_));
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

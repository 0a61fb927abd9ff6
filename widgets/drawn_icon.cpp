#include "widgets/drawn_icon.h"

#include <QIconEngine>
#include <QPainter>
#include <algorithm>
#include <utility>

namespace ui {

namespace {

using Draw = std::function<void(QPainter& painter, QIcon::Mode mode)>;

class DrawingEngine : public QIconEngine {
  public:
    explicit DrawingEngine(Draw draw) : draw_(std::move(draw)) {}

    QIconEngine* clone() const override { return new DrawingEngine(draw_); }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        const double scale = std::min(rect.width(), rect.height()) / kIconSide;
        painter->translate(QRectF(rect).center() - QPointF(kIconSide, kIconSide) / 2 * scale);
        painter->scale(scale, scale);
        draw_(*painter, mode);
        painter->restore();
    }

  private:
    Draw draw_;
};

}  // namespace

QIcon DrawnIcon(Draw draw) {
    return QIcon(new DrawingEngine(std::move(draw)));
}

}  // namespace ui

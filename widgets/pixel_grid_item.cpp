#include "widgets/pixel_grid_item.h"

#include <QWidget>
#include <cmath>

namespace ui {

namespace {

/// The smallest number of logical pixels that is a whole number of screen pixels.
int StepFor(double ratio) {
    for (const int step : {1, 2}) {
        if (std::floor(ratio * step) == ratio * step) return step;
    }
    return 4;
}

}  // namespace

void PixelGridItem::setGeometry(const QRect& room) {
    const QWidget* const parent = widget()->parentWidget();
    const QPoint origin = parent->mapTo(parent->window(), QPoint(0, 0));
    const int step = StepFor(parent->devicePixelRatioF());
    const auto nearest = [step](int origin_at, int at) {
        return static_cast<int>(std::lround(static_cast<double>(origin_at + at) / step)) * step -
               origin_at;
    };
    const QPoint begin(nearest(origin.x(), room.x()), nearest(origin.y(), room.y()));
    const QPoint end(nearest(origin.x(), room.x() + room.width()),
                     nearest(origin.y(), room.y() + room.height()));
    QWidgetItem::setGeometry(QRect(begin, QSize(end.x() - begin.x(), end.y() - begin.y())));
}

}  // namespace ui

#include "widgets/list_focus.h"

#include <QAbstractItemView>
#include <QItemSelectionModel>
#include <QPainter>

namespace ui {

namespace {
constexpr double kLine = 2;
}

void PaintFocus(QAbstractItemView& list) {
    if (!list.hasFocus() || list.selectionModel()->hasSelection()) return;
    // The style's own frame would tint the rows inside it.
    QPainter painter(list.viewport());
    painter.setPen(QPen(list.palette().color(QPalette::Highlight), kLine, Qt::SolidLine,
                        Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(
        QRectF(list.viewport()->rect()).adjusted(kLine / 2, kLine / 2, -kLine / 2, -kLine / 2));
}

}  // namespace ui

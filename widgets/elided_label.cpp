#include "widgets/elided_label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include "widgets/elided_text.h"

namespace ui {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

bool ElidedLabel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QLabel::event(event);
    const bool cut = ElideMiddle(text(), fontMetrics(), contentsRect().width()) != text();
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       cut ? TooltipText(text()) : QString(), this);
    return true;
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(contentsRect(), static_cast<int>(alignment()) | Qt::TextSingleLine,
                     ElideMiddle(text(), fontMetrics(), contentsRect().width()));
}

}  // namespace ui

#include "widgets/link_button.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

#include "widgets/contrast.h"

namespace ui {

namespace {
/// The space between caption and focus frame, in pixels.
constexpr int kMargin = 2;
}  // namespace

LinkButton::LinkButton(const char* name, QWidget* parent) : QAbstractButton(parent) {
    setObjectName(QLatin1String(name));
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::StrongFocus);
}

QSize LinkButton::sizeHint() const {
    const QSize caption = fontMetrics().size(Qt::TextShowMnemonic, text());
    return {caption.width() + 2 * kMargin, caption.height()};
}

QColor LinkButton::TextColour() const {
    return ReadableText(palette().color(QPalette::Link), palette().color(backgroundRole()));
}

void LinkButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
    } else {
        QAbstractButton::keyPressEvent(event);
    }
}

void LinkButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QFont underlined = font();
    underlined.setUnderline(true);
    painter.setFont(underlined);
    painter.setPen(TextColour());
    painter.drawText(
        rect(), Qt::AlignCenter | Qt::TextHideMnemonic,
        fontMetrics().elidedText(text(), Qt::ElideMiddle, width(), Qt::TextShowMnemonic));
    if (!hasFocus()) return;
    QStyleOptionFocusRect frame;
    frame.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter, this);
}

}  // namespace ui

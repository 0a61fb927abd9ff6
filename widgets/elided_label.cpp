#include "widgets/elided_label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include "widgets/contrast.h"
#include "widgets/elided_text.h"

namespace ui {

namespace {
constexpr QColor kWarning(0xd0, 0x5a, 0x00);
}

ElidedLabel::ElidedLabel(const char* name, const QString& text, QWidget* parent)
    : QLabel(text, parent) {
    setObjectName(QLatin1String(name));
    setTextFormat(Qt::PlainText);
}

void ElidedLabel::SetQuiet(bool quiet) {
    if (quiet == quiet_) return;
    quiet_ = quiet;
    update();
}

void ElidedLabel::SetWarning(bool warning) {
    if (warning == warning_) return;
    warning_ = warning;
    update();
}

QColor ElidedLabel::TextColour() const {
    const QColor full = palette().color(foregroundRole());
    const QColor background = palette().color(backgroundRole());
    if (warning_) return ReadableText(kWarning, background);
    if (!quiet_) return full;
    // The rows of a list alternate between two backgrounds.
    return backgroundRole() == QPalette::Base ? QuietText(full, {background, Stripe(palette())})
                                              : QuietText(full, {background});
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
    painter.setPen(TextColour());
    painter.drawText(contentsRect(), static_cast<int>(alignment()) | Qt::TextSingleLine,
                     ElideMiddle(text(), fontMetrics(), contentsRect().width()));
}

}  // namespace ui

#include "forms/wrapping_button.h"

#include <QStyleOptionButton>
#include <QStylePainter>

#include "widgets/twips.h"

namespace ui {

namespace {
constexpr int kCaptionFlags = Qt::AlignCenter | Qt::TextWordWrap | Qt::TextShowMnemonic;
constexpr int kSideMargin = 75;
}  // namespace

WrappingButton::WrappingButton(const char* name, const QString& caption, QWidget* parent)
    : QPushButton(caption, parent) {
    setObjectName(QLatin1String(name));
}

void WrappingButton::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    painter.drawControl(QStyle::CE_PushButton, option);

    QRect area = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this);
    area.adjust(Twips(kSideMargin), 0, -Twips(kSideMargin), 0);
    if (isDown()) {
        area.translate(style()->pixelMetric(QStyle::PM_ButtonShiftHorizontal, &option, this),
                       style()->pixelMetric(QStyle::PM_ButtonShiftVertical, &option, this));
    }
    painter.drawItemText(area, kCaptionFlags, option.palette, isEnabled(), text(),
                         QPalette::ButtonText);
}

}  // namespace ui

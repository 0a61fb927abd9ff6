#include "widgets/program_style.h"

#include <QAbstractItemView>
#include <QPainter>
#include <QStyleOption>
#include <algorithm>

#include "widgets/system_icons.h"

namespace ui {

namespace {

/// At 150 %, a frame of one logical pixel covers one and a half screen pixels, and the contents
/// start on top of it.
constexpr int kLeastFrame = 2;

bool IsList(const QWidget* widget) {
    return qobject_cast<const QAbstractItemView*>(widget) != nullptr;
}

}  // namespace

QIcon ProgramStyle::standardIcon(StandardPixmap which, const QStyleOption* option,
                                 const QWidget* widget) const {
    const QIcon ours = SystemIcon(which);
    return ours.isNull() ? QProxyStyle::standardIcon(which, option, widget) : ours;
}

int ProgramStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* more) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons && !QIcon::hasThemeIcon("dialog-ok")) return 0;
    return QProxyStyle::styleHint(hint, option, widget, more);
}

int ProgramStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                              const QWidget* widget) const {
    const int pixels = QProxyStyle::pixelMetric(metric, option, widget);
    return metric == PM_DefaultFrameWidth && IsList(widget) ? std::max(pixels, kLeastFrame)
                                                            : pixels;
}

void ProgramStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                 QPainter* painter, const QWidget* widget) const {
    // Fill the gap between the frame's line and the contents.
    if (element == PE_Frame && IsList(widget)) {
        painter->fillRect(option->rect, option->palette.base());
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

}  // namespace ui

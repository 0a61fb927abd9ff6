#pragma once

#include <QProxyStyle>

namespace ui {

/// The desktop's style with a few fixes: icons where the desktop has no icon theme, and the frames
/// of lists on screens at 150 %.
class ProgramStyle : public QProxyStyle {
    Q_OBJECT

  public:
    QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                       const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* more) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

}  // namespace ui

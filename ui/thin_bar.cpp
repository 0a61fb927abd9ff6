#include "ui/thin_bar.h"

#include <QPainter>
#include <QPainterPath>

#include "widgets/twips.h"

namespace ui {

namespace {

constexpr int kThickness = 75;
constexpr QColor kAlarm(0xd0, 0x3a, 0x30);

QColor GrooveOn(const QPalette& palette) {
    QColor groove = palette.color(QPalette::WindowText);
    groove.setAlphaF(0.18F);
    return groove;
}

}  // namespace

ThinBar::ThinBar(const char* name, QWidget* parent) : QProgressBar(parent) {
    setObjectName(QLatin1String(name));
    setTextVisible(false);
    setFixedHeight(Twips(kThickness));
}

void ThinBar::SetAlarming(bool alarming) {
    if (alarming == alarming_) return;
    alarming_ = alarming;
    setAccessibleDescription(alarming ? "Not all files were saved" : "");
    update();
}

void ThinBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath groove;
    groove.addRoundedRect(QRectF(rect()), height() / 2.0, height() / 2.0);
    painter.fillPath(groove, GrooveOn(palette()));
    QRectF done(rect());
    done.setWidth(done.width() * (value() - minimum()) / (maximum() - minimum()));
    if (isRightToLeft()) done.moveRight(width());
    painter.setClipPath(groove);
    painter.fillRect(done, alarming_ ? kAlarm : palette().color(QPalette::Highlight));
}

}  // namespace ui

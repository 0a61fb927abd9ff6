#include "ui/activity_light.h"

#include <QPainter>
#include <QPalette>

namespace ui {

ActivityLight::ActivityLight(QWidget* parent) : QWidget(parent) {
    Describe();
}

void ActivityLight::SetRunning(bool running) {
    if (running == running_) return;
    running_ = running;
    Describe();
    update();
}

void ActivityLight::Describe() {
    const QString state = running_ ? "Downloading" : "Idle";
    setToolTip(state);
    setAccessibleName(state);
}

void ActivityLight::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double side = std::min(width(), height());
    painter.translate(QPointF(width(), height()) / 2);
    painter.scale(side / 28, side / 28);
    if (!running_) {
        QColor grey = palette().color(QPalette::WindowText);
        grey.setAlphaF(0.35F);
        painter.setPen(QPen(grey, 2));
        painter.drawEllipse(QPointF(), 9, 9);
        return;
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x2e, 0x9e, 0x44));
    painter.drawEllipse(QPointF(), 10, 10);
    painter.setPen(QPen(Qt::white, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawLine(QPointF(0, -5), QPointF(0, 4.5));
    painter.drawPolyline(QPolygonF({{-4, 0.5}, {0, 5}, {4, 0.5}}));
}

}  // namespace ui

#include "ui/activity_light.h"

#include <QPainter>
#include <QPalette>
#include <QRadialGradient>

namespace ui {

namespace {

/// The side of the square in whose centre the light is drawn.
constexpr double kSide = 28;

QString WordFor(ActivityLight::State state) {
    switch (state) {
        case ActivityLight::State::Idle:
            return "Idle";
        case ActivityLight::State::Downloading:
            return "Downloading";
        case ActivityLight::State::Paused:
            return "Paused";
    }
    return {};
}

void DrawLight(QPainter& painter, const QColor& colour) {
    QRadialGradient glow(QPointF(-2.5, -2.5), 11);
    glow.setColorAt(0, colour.lighter(160));
    glow.setColorAt(1, colour);
    painter.setPen(QPen(colour.darker(130), 1));
    painter.setBrush(glow);
    painter.drawEllipse(QPointF(), 8, 8);
}

void DrawPauseSign(QPainter& painter) {
    painter.setPen(QPen(Qt::black, 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(-2.5, -3.5), QPointF(-2.5, 3.5));
    painter.drawLine(QPointF(2.5, -3.5), QPointF(2.5, 3.5));
}

}  // namespace

ActivityLight::ActivityLight(QWidget* parent) : QWidget(parent) {
    Describe();
}

void ActivityLight::Show(State state) {
    if (state == state_) return;
    state_ = state;
    Describe();
    update();
}

void ActivityLight::Describe() {
    setToolTip(WordFor(state_));
    setAccessibleName(WordFor(state_));
}

void ActivityLight::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double side = std::min(width(), height());
    painter.translate(QPointF(width(), height()) / 2);
    painter.scale(side / kSide, side / kSide);
    if (state_ == State::Idle) {
        QColor grey = palette().color(QPalette::WindowText);
        grey.setAlphaF(0.4F);
        painter.setPen(QPen(grey, 1.5));
        painter.drawEllipse(QPointF(), 8, 8);
    } else if (state_ == State::Downloading) {
        DrawLight(painter, {0x2e, 0x9e, 0x44});
    } else {
        DrawLight(painter, {0xe0, 0xa4, 0x20});
        DrawPauseSign(painter);
    }
}

}  // namespace ui

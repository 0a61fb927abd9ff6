#include "forms/decoration.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "widgets/globe.h"

namespace ui {

namespace {

/// The side of the square in which all pictures are drawn.
constexpr double kSide = 48;

void SetColours(QPainter& painter, const QColor& colour) {
    QLinearGradient shine(0, 0, 0, kSide);
    shine.setColorAt(0, colour.lighter(125));
    shine.setColorAt(1, colour.darker(108));
    painter.setBrush(shine);
    painter.setPen(QPen(colour.darker(140), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void DrawArrow(QPainter& painter) {
    SetColours(painter, QColor(0x4c, 0xb0, 0x5c));
    painter.drawPolygon(QPolygonF(
        QList<QPointF>{{5, 18}, {25, 18}, {25, 9}, {43, 24}, {25, 39}, {25, 30}, {5, 30}}));
}

void DrawFolder(QPainter& painter) {
    SetColours(painter, QColor(0xd9, 0x9a, 0x2b));
    painter.drawPolygon(
        QPolygonF(QList<QPointF>{{4, 10}, {18, 10}, {22, 15}, {43, 15}, {43, 40}, {4, 40}}));
    SetColours(painter, QColor(0xf0, 0xb9, 0x4d));
    painter.drawPolygon(QPolygonF(QList<QPointF>{{4, 40}, {9, 21}, {47, 21}, {43, 40}}));
}

void DrawFunnel(QPainter& painter) {
    SetColours(painter, QColor(0x7a, 0x86, 0xd0));
    painter.drawPolygon(
        QPolygonF(QList<QPointF>{{4, 6}, {44, 6}, {29, 25}, {29, 38}, {19, 44}, {19, 25}}));
}

}  // namespace

Decoration::Decoration(const char* name, Subject subject, QWidget* parent)
    : QWidget(parent), subject_(subject) {
    setObjectName(QLatin1String(name));
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void Decoration::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double side = std::min(width(), height());
    painter.translate((width() - side) / 2, (height() - side) / 2);
    painter.scale(side / kSide, side / kSide);
    switch (subject_) {
        case Subject::Globe:
            DrawGlobe(painter, QRectF(4, 4, 40, 40), true);
            break;
        case Subject::Arrow:
            DrawArrow(painter);
            break;
        case Subject::Folder:
            DrawFolder(painter);
            break;
        case Subject::Funnel:
            DrawFunnel(painter);
            break;
    }
}

}  // namespace ui

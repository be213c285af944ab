#include "workspace/CompressorArt.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <utility>

namespace marvello {

namespace {

// The drawing's own room; the inverter is in its upper left.
constexpr QRectF room(40, 22, 212, 166);

void paintFeet(QPainter& painter) {
    painter.drawPolyline(QPolygonF(QList<QPointF>{{78, 156}, {71, 182}}));
    painter.drawLine(QPointF(90, 156), QPointF(90, 182));
    painter.drawLine(QPointF(61, 182), QPointF(96, 182));
    painter.drawLine(QPointF(206, 160), QPointF(206, 182));
    painter.drawPolyline(QPolygonF(QList<QPointF>{{218, 160}, {225, 182}}));
    painter.drawLine(QPointF(200, 182), QPointF(235, 182));
}

void paintBody(QPainter& painter) {
    painter.drawRect(QRectF(62, 82, 112, 74));
    painter.drawRoundedRect(QRectF(48, 74, 14, 90), 3, 3);
    QPainterPath screw(QPointF(186, 78));
    screw.lineTo(228, 78);
    screw.quadTo(250, 78, 250, 100);
    screw.lineTo(250, 138);
    screw.quadTo(250, 160, 228, 160);
    screw.lineTo(186, 160);
    screw.closeSubpath();
    painter.drawPath(screw);
    painter.drawRoundedRect(QRectF(174, 70, 12, 98), 3, 3);
    painter.drawRoundedRect(QRectF(94, 52, 40, 30), 3, 3);  // terminal box
    painter.drawRect(QRectF(204, 60, 22, 18));              // discharge valve
    painter.drawRect(QRectF(210, 50, 10, 10));
}

void paintInverter(QPainter& painter) {
    painter.drawRoundedRect(QRectF(42, 24, 32, 28), 3, 3);
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF(QList<QPointF>{{74, 38}, {114, 38}, {114, 52}}));
    QPainterPath wave(QPointF(47.5, 38));
    wave.cubicTo(51, 29, 54.5, 29, 58, 38);
    wave.cubicTo(61.5, 47, 65, 47, 68.5, 38);
    painter.drawPath(wave);
}

void paintMagnifier(QPainter& painter) {
    painter.drawEllipse(QPointF(60, 46), 17, 17);
    painter.drawLine(QPointF(72.5, 58.5), QPointF(86, 72));
    painter.drawLine(QPointF(53, 46), QPointF(67, 46));
    painter.drawLine(QPointF(60, 39), QPointF(60, 53));
}

void paintBars(QPainter& painter) {
    for (const auto& [left, top] :
         {std::pair{44, 52}, std::pair{56, 40}, std::pair{68, 28}, std::pair{80, 44}})
        painter.drawRect(QRectF(left, top, 8, 66 - top));
}

}  // namespace

void paintCompressor(QPainter& painter, const QRectF& place, const ArtColours& colours,
                     ArtAddition addition) {
    const double scale = std::min(place.width() / room.width(), place.height() / room.height());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(place.center());
    painter.scale(scale, scale);
    painter.translate(-room.center());
    const QPen line(colours.line, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    const QPen soft(colours.soft, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    painter.setPen(line);
    painter.setBrush(colours.fill);
    paintFeet(painter);
    paintBody(painter);
    painter.drawEllipse(QPointF(220, 119), 22, 22);
    painter.setPen(soft);
    painter.drawEllipse(QPointF(220, 119), 14, 14);
    for (const double y : {96, 108, 120, 132, 144}) painter.drawLine(QPointF(74, y), QPointF(162, y));
    painter.setPen(line);
    if (addition == ArtAddition::inverter) paintInverter(painter);
    if (addition == ArtAddition::search) paintMagnifier(painter);
    if (addition == ArtAddition::bars) paintBars(painter);
    painter.restore();
}

}  // namespace marvello

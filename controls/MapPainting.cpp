#include "controls/MapPainting.h"

#include <QFontMetricsF>
#include <QLineF>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "controls/EnvelopeDrawing.h"
#include "controls/Look.h"
#include "controls/MapRamp.h"

namespace marvello {

namespace {

constexpr int labelSize = 11;
constexpr double haloWidth = 3;
constexpr double hitWidth = 5;

double lengthOf(const QPolygonF& line) {
    double length = 0;
    for (qsizetype i = 1; i < line.size(); ++i) length += QLineF(line[i - 1], line[i]).length();
    return length;
}

/// The point of a line after a length of it.
QPointF pointAlong(const QPolygonF& line, double length) {
    for (qsizetype i = 1; i < line.size(); ++i) {
        const QLineF step(line[i - 1], line[i]);
        const double its = step.length();
        if (length <= its && its > 0) return step.pointAt(length / its);
        length -= its;
    }
    return line.back();
}

/// A label in the middle of a stretch of a line; none where the line bends under it.
std::optional<LevelLabel> labelAt(const QPolygonF& line, double middle, const QSizeF& text) {
    const QPointF from = pointAlong(line, middle - text.width() / 2);
    const QPointF to = pointAlong(line, middle + text.width() / 2);
    const QLineF chord(from, to);
    if (chord.length() < 0.9 * text.width()) return std::nullopt;
    double angle = -chord.angle();
    while (angle < -90) angle += 180;
    while (angle > 90) angle -= 180;
    QTransform turn;
    turn.translate(chord.center().x(), chord.center().y());
    turn.rotate(angle);
    const QRectF room(-text.width() / 2 - haloWidth, -text.height() / 2 - haloWidth,
                      text.width() + 2 * haloWidth, text.height() + 2 * haloWidth);
    return LevelLabel{0, chord.center(), angle, turn.map(QPolygonF(room))};
}

void paintLabel(QPainter& painter, const LevelLabel& label, const QString& text,
                const GraphColours& colours) {
    const QFont font = lookFont(labelSize);
    const QFontMetricsF letters(font);
    painter.save();
    painter.translate(label.centre);
    painter.rotate(label.angle);
    const QPointF baseline(-letters.horizontalAdvance(text) / 2, letters.capHeight() / 2);
    QPainterPath path;
    path.addText(baseline, font, text);
    painter.strokePath(path, QPen(colours.plot, haloWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setFont(font);
    painter.setPen(colours.text);
    painter.drawText(baseline, text);
    painter.restore();
}

}  // namespace

std::vector<LevelLabel> levelLabels(const EnvelopeMap& map, const QTransform& toPlace,
                                    const std::vector<QSizeF>& texts) {
    std::vector<LevelLabel> labels;
    const auto isFree = [&labels](const LevelLabel& label) {
        return std::ranges::none_of(
            labels, [&](const LevelLabel& other) { return other.room.intersects(label.room); });
    };
    for (std::size_t i = 0; i < map.lines.size(); ++i) {
        const auto& parts = map.lines[i].parts;
        const auto longest = std::ranges::max_element(parts, {}, lengthOf);
        if (longest == parts.end()) continue;
        const QPolygonF line = toPlace.map(*longest);
        const double length = lengthOf(line);
        const QSizeF& text = texts[i];
        constexpr double least = 2;  // times the width of its label
        if (length < least * text.width()) continue;
        // Side by side, next to the middle first.
        constexpr std::array places{0.5, 0.42, 0.58, 0.34, 0.66, 0.26, 0.74, 0.18, 0.82};
        for (const double place : places) {
            auto label = labelAt(line, place * length, text);
            if (!label || !isFree(*label)) continue;
            label->line = i;
            labels.push_back(*label);
            break;
        }
    }
    return labels;
}

void paintMap(QPainter& painter, const EnvelopeMap& map, const QTransform& toPlace,
              const GraphColours& colours) {
    painter.setRenderHint(QPainter::Antialiasing);
    const auto bands = static_cast<int>(map.bands.size());
    for (int band = 0; band < bands; ++band) {
        // The line closes the seam to the next band.
        const QColor colour = mapColour(band, bands, colours.adapts);
        painter.setPen(QPen(colour, 1));
        painter.setBrush(colour);
        painter.drawPath(toPlace.map(map.bands[static_cast<std::size_t>(band)]));
    }
    QColor line = colours.text;
    line.setAlphaF(0.6F);
    painter.setPen(QPen(line, 1));
    painter.setBrush(Qt::NoBrush);
    for (const EnvelopeMap::Line& isoline : map.lines)
        for (const QPolygonF& part : isoline.parts) painter.drawPolyline(toPlace.map(part));
    const QFontMetricsF letters(lookFont(labelSize));
    std::vector<QSizeF> texts;
    for (const EnvelopeMap::Line& isoline : map.lines)
        texts.emplace_back(letters.horizontalAdvance(isoline.level), letters.capHeight());
    for (const LevelLabel& label : levelLabels(map, toPlace, texts))
        paintLabel(painter, label, map.lines[label.line].level, colours);
}

void paintMapHits(QPainter& painter, const EnvelopeMap& map, const QTransform& toPlace, unsigned first) {
    painter.setBrush(Qt::NoBrush);
    for (const EnvelopeMap::Line& isoline : map.lines) {
        painter.setPen(QPen(QColor::fromRgb(first++), hitWidth));
        for (const QPolygonF& part : isoline.parts) painter.drawPolyline(toPlace.map(part));
    }
}

}  // namespace marvello

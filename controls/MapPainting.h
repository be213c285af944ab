#pragma once

#include <QList>
#include <QPolygonF>
#include <QRectF>
#include <QTransform>
#include <vector>

#include "controls/EnvelopeMap.h"

class QPainter;

namespace marvello {

struct GraphColours;

/// Paints the bands of a map and its isolines with their levels. `toPlace` leads from the axes to the
/// picture.
void paintMap(QPainter& painter, const EnvelopeMap& map, const QTransform& toPlace,
              const GraphColours& colours);

/// Paints each isoline in a colour of its own, from the number `first` on, wider than it looks.
void paintMapHits(QPainter& painter, const EnvelopeMap& map, const QTransform& toPlace, unsigned first);

/// Where the level of an isoline is written: along the line.
struct LevelLabel {
    std::size_t line;  ///< of the map
    QPointF centre;
    double angle;    ///< degrees, clockwise; never upside down
    QPolygonF room;  ///< turned
};

/// Returns where the levels are written in a picture, with `text` as the size of each. A line that is too
/// short for its level has none, and no label is on top of another.
std::vector<LevelLabel> levelLabels(const EnvelopeMap& map, const QTransform& toPlace,
                                    const std::vector<QSizeF>& texts);

}  // namespace marvello

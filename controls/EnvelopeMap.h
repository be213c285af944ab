#pragma once

#include <QPainterPath>
#include <QPolygonF>
#include <QString>
#include <vector>

namespace marvello {

/// A quantity over an envelope, to be drawn: filled bands and isolines with their levels, in the units of the
/// axes.
struct EnvelopeMap {
    struct Line {
        QString level;
        std::vector<QPolygonF> parts;
    };
    QString name;  ///< of the quantity
    QString unit;
    std::vector<Line> lines;
    std::vector<QPainterPath> bands;  ///< from the lowest, one more than lines

    /// The quantity and a value of it, such as "Capacity 120 kW".
    QString textOf(const QString& value) const {
        return unit.isEmpty() ? name + u' ' + value : name + u' ' + value + u' ' + unit;
    }
};

}  // namespace marvello

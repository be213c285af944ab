#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace marvello {

/// The colours of the line drawing of a compressor.
struct ArtColours {
    QColor line;
    QColor soft;  ///< ribs and inner circle
    QColor fill;
};

/// What is next to the terminal box of the drawing.
enum class ArtAddition { none, inverter, search, bars };

/// Draws a compressor in lines, fitted into `place`.
void paintCompressor(QPainter& painter, const QRectF& place, const ArtColours& colours, ArtAddition addition);

}  // namespace marvello

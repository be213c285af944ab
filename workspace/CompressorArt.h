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

/// Draws a compressor in lines, fitted into `place`; with an inverter above its terminal box.
void paintCompressor(QPainter& painter, const QRectF& place, const ArtColours& colours, bool hasInverter);

}  // namespace marvello

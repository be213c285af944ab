#pragma once

#include <QColor>
#include <QImage>

#include "results/Drawing.h"

class QPainter;

namespace marvello {

/// Returns a colour to draw with.
DrawnColour drawnColour(const QColor& colour, double opacity = 1);

/// Paints a drawing in logical pixels with its upper left corner at the origin.
void paintDrawing(QPainter& painter, const Drawing& drawing);

/// Returns a picture of a drawing with so many pixels for a logical one.
QImage imageOf(const Drawing& drawing, double pixels);

/// Puts a drawing on the clipboard: as a picture, and as SVG for programs that know it.
void copyDrawing(const Drawing& drawing);

}  // namespace marvello

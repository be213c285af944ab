#pragma once

#include "demo/pictures/Design.h"
#include "demo/pictures/Sheet.h"

namespace marvello::pictures {

/// Draws the machine from the side, motor end (open drive: shaft end) on the left.
void drawSide(Sheet& sheet, const Placing& view, const Design& design);
/// Draws it from the discharge end; x = 0 is the middle, the front lies on the left.
void drawEnd(Sheet& sheet, const Placing& view, const Design& design);

}  // namespace marvello::pictures

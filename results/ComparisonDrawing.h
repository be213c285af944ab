#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "data/Numbers.h"
#include "engine/Comparison.h"
#include "results/Drawing.h"
#include "thermo/UnitSystem.h"

namespace marvello {

/// The colours of a drawn comparison; as they stand those of white paper.
struct ComparisonColours {
    DrawnColour ground{255, 255, 255};
    DrawnColour text{0x18, 0x21, 0x26};
    DrawnColour muted{0x55, 0x62, 0x6A};
    DrawnColour grid{0xE0, 0xE0, 0xE0};
    DrawnColour accent{0x0E, 0x6A, 0x80};
    DrawnColour zero{0xD0, 0x60, 0x60};   ///< The line at 0 degrees.
    DrawnColour point{0x1A, 0x1A, 0xE0};  ///< The operating point.
};

/// The line of a machine, by its place: solid, dashed, dotted, dash-dot.
DrawnStroke strokeOfMachine(std::size_t place, const ComparisonColours& colours);

/// How a comparison is to be drawn.
struct ComparisonView {
    double width = 0;  ///< pixels
    double height = 0;
    UnitSystem units = UnitSystem::metric;
    NumberMarks marks{};
    ComparisonColours colours{};
    std::string title{};  ///< Of the drawing, for those who cannot see it.
};

/// Draws the application limits of all machines over one another, with their operating points.
Drawing limitsDrawing(const Comparison& comparison, const ComparisonView& view);

/// Draws a figure of all machines over a temperature. For the COP the quotient of the figures as they are
/// calculated, since that of the lists is one of rounded figures. The title is shown.
Drawing curvesDrawing(const Comparison& comparison, const std::vector<Curve>& curves, CurveAxis axis,
                      Figure figure, const ComparisonView& view);

}  // namespace marvello

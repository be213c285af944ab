#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "data/Numbers.h"
#include "engine/Cycle.h"
#include "engine/PhDiagram.h"
#include "results/Drawing.h"
#include "thermo/UnitSystem.h"

namespace marvello {

/// The colours of a drawn cycle; as they stand those of white paper.
struct CycleColours {
    DrawnColour ground{255, 255, 255};
    DrawnColour text{0x18, 0x21, 0x26};
    DrawnColour muted{0x55, 0x62, 0x6A};
    DrawnColour grid{0xE0, 0xE0, 0xE0};
    DrawnColour lines{0x87, 0x94, 0x9C, 0.7};
    DrawnColour accent{0x0E, 0x6A, 0x80};
};

/// The styles of the lines of a diagram, for the drawing and its key. The line of a kind of saturation is
/// solid.
DrawnStroke strokeOf(PhLine::Kind kind, const CycleColours& colours);

/// Where the part of a diagram that is shown lies in a drawing.
class PhPlane {
  public:
    /// The frame lies inside of the drawing by the room that axes and their texts take.
    PhPlane(const PhRange& shown, double width, double height);

    const PhRange& shown() const { return shown_; }
    double left() const { return left_; }
    double right() const { return right_; }
    double top() const { return top_; }
    double bottom() const { return bottom_; }
    bool contains(const DrawnPoint& place) const;
    DrawnPoint placeOf(const PhPoint& point) const;
    PhPoint pointAt(const DrawnPoint& place) const;

  private:
    PhRange shown_;
    double left_, right_, top_, bottom_;
};

/// How a cycle is to be drawn.
struct CycleView {
    double width = 0;  ///< pixels
    double height = 0;
    PhRange shown;
    UnitSystem units = UnitSystem::metric;
    NumberMarks marks{};
    CycleColours colours{};
    std::optional<std::size_t> chosen{};  ///< The state that is filled.
    std::string title{};                  ///< Of the drawing, for those who cannot see it.
};

/// Draws a cycle on the diagram of its refrigerant: grid, lines with their values, the branches and the
/// numbered states. Numbers that would touch stand together: "2, 3".
Drawing cycleDrawing(const Cycle& cycle, const PhDiagram& diagram, const CycleView& view);

/// Returns the state at a place of a drawing; none where there is none near.
std::optional<std::size_t> stateAt(const Cycle& cycle, const PhPlane& plane, const DrawnPoint& place);

}  // namespace marvello

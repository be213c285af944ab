#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/Numbers.h"
#include "results/Drawing.h"

namespace marvello {

/// The colours of a chart; as they stand those of white paper.
struct ChartColours {
    DrawnColour ground{255, 255, 255};
    DrawnColour text{0x18, 0x21, 0x26};
    DrawnColour muted{0x55, 0x62, 0x6A};
    DrawnColour grid{0xE0, 0xE0, 0xE0};
    DrawnColour accent{0x0E, 0x6A, 0x80};
    DrawnColour point{0x00, 0x00, 0xFF};
};

/// How a curve looks. Curves differ by their lines as well as by their tones.
struct CurveStyle {
    enum class Line : std::uint8_t { none, solid, dashed, dotted, dashDotted };
    enum class Tone : std::uint8_t { text, accent, muted };
    Line line = Line::solid;
    Tone tone = Tone::text;
    bool hasRings = false;  ///< One at each point.
};

/// Returns how a line of this style is drawn; `none` as a solid one.
DrawnStroke strokeOf(const CurveStyle& style, const ChartColours& colours);

/// A curve through points in the units of the axes, from the first to the last.
struct ChartCurve {
    std::vector<DrawnPoint> points{};
    CurveStyle style{};
    bool isOnSecond = false;  ///< Counts on the second axis of values.
    std::string name{};       ///< What its values are called where they are read; empty if they are not.
    int set = 0;              ///< Curves of one set are one thing to those who read them.
    bool isOutline = false;   ///< Closed, about an area.
};

/// An axis has round ends about all that is drawn along it.
struct ChartAxis {
    std::string title{};
    bool hasZero = false;  ///< Begins at 0, or ends there.
    // Of values that are read.
    std::string name{};
    std::string unit{};
    std::string_view pattern = "#0.0";
};

/// A line of the legend.
struct ChartKey {
    std::string name;
    CurveStyle style;
};

/// Values over a quantity.
struct Chart {
    std::string title{};  ///< What it shows, for those who cannot see it.
    ChartAxis across{};
    ChartAxis up{};
    std::optional<ChartAxis> second{};  ///< At the right.
    std::vector<ChartCurve> curves{};   ///< The lowest first.
    std::vector<ChartKey> legend{};
    std::optional<double> marked{};  ///< Where a thin line crosses, such as the operating point.
};

/// How a chart is to be drawn.
struct ChartView {
    double width = 0;  ///< pixels
    double height = 0;
    NumberMarks marks{};
    ChartColours colours{};
};

/// One axis of values with its round ends and the step of its numbers.
struct ChartScale {
    double low = 0;
    double high = 1;
    double step = 1;
};

/// Where the values of a chart lie in a drawing.
class ChartPlane {
  public:
    ChartPlane(const Chart& chart, double width, double height);

    const ChartScale& across() const { return across_; }
    const ChartScale& up() const { return up_; }
    const ChartScale& second() const { return second_; }
    double left() const { return left_; }
    double right() const { return right_; }
    double top() const { return top_; }
    double bottom() const { return bottom_; }
    DrawnPoint placeOf(const DrawnPoint& value, bool isOnSecond = false) const;

  private:
    double left_, right_, top_, bottom_;
    ChartScale across_, up_, second_;
};

/// Draws grid, axes with their numbers, curves and legend.
Drawing chartDrawing(const Chart& chart, const ChartView& view);

}  // namespace marvello

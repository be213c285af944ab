#include "results/ComparisonDrawing.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "data/DictionaryTexts.h"
#include "data/RoundSteps.h"
#include "engine/PerformanceMap.h"
#include "results/FigureTexts.h"
#include "results/ReportLines.h"
#include "thermo/EnteredQuantity.h"

namespace marvello {

namespace {

using Anchor = DrawnText::Anchor;

constexpr double labelSize = 11;
constexpr double titleSize = 12;
constexpr double lineWidth = 2;

struct Range {
    double low = 0;
    double high = 0;

    double span() const { return high - low; }
    void hold(double value) {
        low = std::min(low, value);
        high = std::max(high, value);
    }
};

/// Returns the range widened to multiples of its round step.
Range rounded(const Range& range, double most) {
    const double step = roundStep(std::max(range.span(), 1e-6), most);
    return {std::floor(range.low / step + 1e-9) * step, std::ceil(range.high / step - 1e-9) * step};
}

/// The room around the frame of a plane, in pixels.
struct Margins {
    double left, top, right, bottom;
};

/// A plane with axes, drawn in the units of its values.
class Plane {
  public:
    Plane(const ComparisonView& view, const Range& across, const Range& up, const Margins& margins)
        : view_(view),
          across_(across),
          up_(up),
          left_(margins.left),
          top_(margins.top),
          right_(std::max(view.width - margins.right, margins.left + 1)),
          bottom_(std::max(view.height - margins.bottom, margins.top + 1)) {
        drawing_ = {
            .width = view.width, .height = view.height, .ground = view.colours.ground, .title = view.title};
    }

    Drawing take() { return std::move(drawing_); }

    DrawnPoint placeOf(double x, double y) const {
        return {left_ + (x - across_.low) / across_.span() * (right_ - left_),
                bottom_ - (y - up_.low) / up_.span() * (bottom_ - top_)};
    }

    void grid() {
        constexpr double apart = 44;
        constexpr double below = 16;
        constexpr double beside = 8;
        constexpr double middle = 4;  // from the base line to the middle of a digit
        const double stepAcross = roundStep(across_.span(), std::max((right_ - left_) / apart, 2.0));
        for (const double x : multiples(across_, stepAcross)) {
            const double at = placeOf(x, up_.low).x;
            line({{at, top_}, {at, bottom_}}, {.colour = view_.colours.grid});
            text({at, bottom_ + below}, number(x), view_.colours.muted, labelSize, Anchor::middle);
        }
        const double stepUp = roundStep(up_.span(), std::max((bottom_ - top_) / apart, 2.0));
        for (const double y : multiples(up_, stepUp)) {
            const double at = placeOf(across_.low, y).y;
            line({{left_, at}, {right_, at}}, {.colour = view_.colours.grid});
            text({left_ - beside, at + middle}, number(y), view_.colours.muted, labelSize, Anchor::end);
        }
    }

    void captions(const std::string& across, const std::string& up) {
        constexpr double below = 32;
        constexpr double fromLeft = 14;
        text({(left_ + right_) / 2, bottom_ + below}, across, view_.colours.text, titleSize, Anchor::middle);
        if (up.empty()) return;
        drawing_.shapes.emplace_back(DrawnText{.at = {fromLeft, (top_ + bottom_) / 2},
                                               .text = up,
                                               .colour = view_.colours.text,
                                               .size = titleSize,
                                               .anchor = Anchor::middle,
                                               .angle = -90});
    }

    void heading(const std::string& words) {
        constexpr double above = 10;
        drawing_.shapes.emplace_back(DrawnText{.at = {left_, top_ - above},
                                               .text = words,
                                               .colour = view_.colours.text,
                                               .size = titleSize,
                                               .isMedium = true});
    }

    /// An upright line all over the plane, if it lies in it.
    void upright(double x, const DrawnStroke& stroke) {
        if (x < across_.low || x > across_.high) return;
        line({placeOf(x, up_.low), placeOf(x, up_.high)}, stroke);
    }

    void line(std::vector<DrawnPoint> points, const DrawnStroke& stroke) {
        if (points.size() > 1) drawing_.shapes.emplace_back(DrawnLine{std::move(points), stroke});
    }

    void ring(double x, double y, const DrawnColour& colour) {
        constexpr double radius = 6;
        const DrawnPoint at = placeOf(x, y);
        drawing_.shapes.emplace_back(
            DrawnRing{at, radius, {.colour = colour, .width = 1.5}, view_.colours.ground});
        drawing_.shapes.emplace_back(DrawnRing{at, 2, {.colour = colour}, colour});
    }

  private:
    static std::vector<double> multiples(const Range& range, double step) {
        std::vector<double> values;
        for (double value = firstMultiple(range.low, step); value <= range.high + 1e-9 * step; value += step)
            values.push_back(std::round(value / step) * step + 0.0);
        return values;
    }
    std::string number(double value) const { return formatNumber(value, "#0.##", view_.marks); }
    void text(const DrawnPoint& at, const std::string& words, const DrawnColour& colour, double size,
              Anchor anchor) {
        drawing_.shapes.emplace_back(
            DrawnText{.at = at, .text = words, .colour = colour, .size = size, .anchor = anchor});
    }

    const ComparisonView& view_;
    Range across_, up_;
    double left_, top_, right_, bottom_;
    Drawing drawing_;
};

double shownTemperature(double celsius, UnitSystem units) {
    return convertedTemperature(celsius, UnitSystem::metric, units);
}

std::string dewCaption(const char* key, const ComparisonView& view) {
    return withUnit(dictionaryText(key), unitText(Quantity::temperature, view.units));
}

struct PointOfMachine {
    double ted, tcd;
};
PointOfMachine pointOfMachine(const ComparedMachine& machine, UnitSystem units) {
    const clsProjectConditions& conditions = machine.choice.conditions;
    return {shownTemperature(conditions.TEvaporatingDew, units),
            shownTemperature(conditions.TCondensationDew, units)};
}

/// Points that are joined in order.
using PlaneLine = std::vector<PlanePoint>;

/// The application limits of a machine as closed lines, in the units of the view.
std::vector<PlaneLine> shownLimits(const ComparedMachine& machine, UnitSystem units) {
    if (machine.limits() == nullptr) return {};
    std::vector<PlaneLine> lines = applicationPolygons(*machine.limits());
    for (PlaneLine& line : lines) {
        for (PlanePoint& point : line)
            point = {shownTemperature(point.x, units), shownTemperature(point.y, units)};
        line.push_back(line.front());
    }
    return lines;
}

/// The plane that holds all limits and points, to the next round temperatures.
std::pair<Range, Range> planeOfLimits(const Comparison& comparison, UnitSystem units) {
    std::optional<std::pair<Range, Range>> plane;
    const auto hold = [&](double x, double y) {
        if (!plane) plane = {{x, x}, {y, y}};
        plane->first.hold(x);
        plane->second.hold(y);
    };
    for (const ComparedMachine& machine : comparison.machines) {
        for (const PlaneLine& line : shownLimits(machine, units))
            for (const PlanePoint& point : line) hold(point.x, point.y);
        const PointOfMachine at = pointOfMachine(machine, units);
        hold(at.ted, at.tcd);
    }
    if (!plane) return {{-20, 20}, {20, 60}};
    constexpr double around = 1;
    constexpr double most = 12;
    for (Range* range : {&plane->first, &plane->second})
        *range = rounded({range->low - around, range->high + around}, most);
    return *plane;
}

std::vector<DrawnPoint> placesOf(const Plane& plane, const PlaneLine& line) {
    std::vector<DrawnPoint> places;
    for (const PlanePoint& point : line) places.push_back(plane.placeOf(point.x, point.y));
    return places;
}

/// The lines of all machines, in pieces, in the units of a view, and the round ranges that hold them.
struct ShownCurves {
    std::vector<std::vector<PlaneLine>> pieces;
    Range across{-20, 20};
    Range up{0, 1};
};

ShownCurves shownCurves(const Comparison& comparison, const std::vector<Curve>& curves, Figure figure,
                        UnitSystem units) {
    ShownCurves shown{.pieces = std::vector<std::vector<PlaneLine>>(curves.size())};
    std::optional<std::pair<Range, Range>> plane;
    for (std::size_t i = 0; i < curves.size(); ++i) {
        const double factor = figure == Figure::capacity ? comparison.machines[i].choice.machines : 1;
        bool goesOn = false;
        for (const CurvePoint& point : curves[i]) {
            const auto value = mappedValueOf(point.performance, figure);
            if (value) {
                const PlanePoint at{shownTemperature(point.at, units),
                                    valueIn(figure, *value * factor, units)};
                if (!goesOn || point.beginsPart) shown.pieces[i].emplace_back();
                shown.pieces[i].back().push_back(at);
                if (!plane) plane = {{at.x, at.x}, {at.y, at.y}};
                plane->first.hold(at.x);
                plane->second.hold(at.y);
            }
            goesOn = value.has_value();
        }
    }
    constexpr double most = 6;
    if (!plane) return shown;
    if (figure == Figure::capacity) plane->second.hold(0);
    shown.across = rounded(plane->first, most);
    shown.up = rounded(plane->second, most);
    return shown;
}

}  // namespace

DrawnStroke strokeOfMachine(std::size_t place, const ComparisonColours& colours) {
    switch (place) {
        case 0:
            return {.colour = colours.text, .width = lineWidth};
        case 1:
            return {.colour = colours.accent, .width = lineWidth, .dashes = {8, 5}};
        case 2:
            return {.colour = colours.muted, .width = lineWidth, .dashes = {2, 4}};
        default:
            return {.colour = colours.text, .width = lineWidth, .dashes = {9, 4, 2, 4}};
    }
}

Drawing limitsDrawing(const Comparison& comparison, const ComparisonView& view) {
    const auto [across, up] = planeOfLimits(comparison, view.units);
    Plane plane(view, across, up, {.left = 62, .top = 14, .right = 16, .bottom = 44});
    plane.grid();
    plane.upright(shownTemperature(0, view.units), {.colour = view.colours.zero});
    const DrawnStroke guide{.colour = view.colours.point, .dashes = {3, 3}};
    if (comparison.samePoint()) {
        const PointOfMachine at = pointOfMachine(comparison.machines.front(), view.units);
        plane.line(
            {plane.placeOf(across.low, at.tcd), plane.placeOf(at.ted, at.tcd), plane.placeOf(at.ted, up.low)},
            guide);
    }
    for (std::size_t i = 0; i < comparison.machines.size(); ++i)
        for (const PlaneLine& line : shownLimits(comparison.machines[i], view.units))
            plane.line(placesOf(plane, line), strokeOfMachine(i, view.colours));
    for (std::size_t i = comparison.machines.size(); i-- > 0;) {
        const PointOfMachine at = pointOfMachine(comparison.machines[i], view.units);
        const bool isSame = comparison.samePoint().has_value();
        plane.ring(at.ted, at.tcd, isSame ? view.colours.point : strokeOfMachine(i, view.colours).colour);
    }
    plane.captions(dewCaption("frmselection.limitreport.xaxis.caption", view),
                   dewCaption("frmselection.limitreport.yaxis.caption", view));
    return plane.take();
}

Drawing curvesDrawing(const Comparison& comparison, const std::vector<Curve>& curves, CurveAxis axis,
                      Figure figure, const ComparisonView& view) {
    const ShownCurves shown = shownCurves(comparison, curves, figure, view.units);
    Plane plane(view, shown.across, shown.up, {.left = 44, .top = 28, .right = 16, .bottom = 40});
    plane.grid();
    plane.heading(view.title);
    if (const auto point = comparison.samePoint()) {
        const double own = axis == CurveAxis::evaporating ? point->ted : point->tcd;
        plane.upright(shownTemperature(own, view.units), {.colour = view.colours.point, .dashes = {3, 3}});
    }
    for (std::size_t i = 0; i < shown.pieces.size(); ++i)
        for (const PlaneLine& piece : shown.pieces[i])
            plane.line(placesOf(plane, piece), strokeOfMachine(i, view.colours));
    plane.captions(dewCaption(axis == CurveAxis::evaporating ? "frmselection.txtted.captiontext"
                                                             : "frmselection.txttcd.captiontext",
                              view),
                   {});
    return plane.take();
}

}  // namespace marvello

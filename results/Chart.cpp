#include "results/Chart.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "data/RoundSteps.h"

namespace marvello {

namespace {

using Anchor = DrawnText::Anchor;

constexpr double labelSize = 11;
constexpr double titleSize = 12;
constexpr double ringRadius = 3.5;
constexpr double legendRow = 20;
constexpr double sampleLength = 28;

/// The round ends about values; from 0 to 1 without any.
ChartScale scaleOf(const std::vector<double>& values, const ChartAxis& axis, double most) {
    if (values.empty()) return {};
    auto [low, high] = std::ranges::minmax(values);
    if (axis.hasZero) {
        low = std::min(low, 0.0);
        high = std::max(high, 0.0);
    }
    if (high - low <= 1e-9 * std::max(std::abs(low), std::abs(high))) {
        const double around = low == 0 ? 1 : std::abs(low) / 10;
        if (!axis.hasZero) low -= around;
        high += around;
    }
    const double step = roundStep(high - low, std::max(most, 1.0));
    constexpr double noise = 1e-9;
    return {.low = std::floor(low / step + noise) * step,
            .high = std::ceil(high / step - noise) * step,
            .step = step};
}

std::vector<double> valuesOf(const Chart& chart, double DrawnPoint::* part, std::optional<bool> onSecond) {
    std::vector<double> values;
    for (const ChartCurve& curve : chart.curves)
        if (!onSecond || curve.isOnSecond == *onSecond)
            for (const DrawnPoint& point : curve.points) values.push_back(point.*part);
    if (part == &DrawnPoint::y && onSecond != true)
        for (const ChartBars& bars : chart.bars)
            values.insert(values.end(), bars.values.begin(), bars.values.end());
    return values;
}

bool hasSecondLine(const Chart& chart) {
    return std::ranges::any_of(chart.categories,
                               [](const ChartCategory& category) { return !category.second.empty(); });
}

/// Lines through a rectangle at a slope of 1 or -1, or level ones, so far apart.
std::vector<std::vector<DrawnPoint>> linesAcross(const DrawnPoint& low, const DrawnPoint& high, double apart,
                                                 int slope) {
    std::vector<std::vector<DrawnPoint>> lines;
    if (slope == 0) {
        for (double y = high.y - apart; y > low.y; y -= apart) lines.push_back({{low.x, y}, {high.x, y}});
        return lines;
    }
    // Each is where x - slope y is the same. Those of bars next to each other go on from one to the other.
    const double first = std::min(low.x - slope * low.y, low.x - slope * high.y);
    const double last = std::max(high.x - slope * low.y, high.x - slope * high.y);
    for (double c = std::ceil(first / apart) * apart; c < last; c += apart) {
        const double yAtLeft = (low.x - c) * slope;
        const double yAtRight = (high.x - c) * slope;
        const double from = std::clamp(std::min(yAtLeft, yAtRight), low.y, high.y);
        const double to = std::clamp(std::max(yAtLeft, yAtRight), low.y, high.y);
        if (to - from > 0.5) lines.push_back({{c + slope * from, from}, {c + slope * to, to}});
    }
    return lines;
}

/// An entry of the legend in its row.
struct PlacedKey {
    const ChartKey* key;
    double left;
    int row;
};

std::vector<PlacedKey> placedLegend(const Chart& chart, double width) {
    constexpr double afterSample = 8;
    constexpr double between = 24;
    std::vector<PlacedKey> placed;
    double left = 0;
    int row = 0;
    for (const ChartKey& key : chart.legend) {
        const double wide =
            sampleLength + afterSample + drawnWidth(DrawnText{.text = key.name, .size = titleSize});
        if (left > 0 && left + wide > width) {
            left = 0;
            ++row;
        }
        placed.push_back({&key, left, row});
        left += wide + between;
    }
    return placed;
}

std::vector<double> ticksOf(const ChartScale& scale) {
    std::vector<double> ticks;
    const double count = std::round((scale.high - scale.low) / scale.step);
    const double first = std::round(scale.low / scale.step);
    for (double i = 0; i <= count; ++i) ticks.push_back((first + i) * scale.step);
    return ticks;
}

const DrawnColour& colourOf(CurveStyle::Tone tone, const ChartColours& colours) {
    switch (tone) {
        case CurveStyle::Tone::accent:
            return colours.accent;
        case CurveStyle::Tone::muted:
            return colours.muted;
        case CurveStyle::Tone::text:
            break;
    }
    return colours.text;
}

/// Draws one chart.
class ChartPicture {
  public:
    ChartPicture(const Chart& chart, const ChartView& view)
        : chart_(chart), view_(view), plane_(chart, view.width, view.height) {
        drawing_ = {
            .width = view.width, .height = view.height, .ground = view.colours.ground, .title = chart.title};
    }

    Drawing drawing();

  private:
    void axisAcross();
    void axisOfCategories();
    void bars();
    void bar(const DrawnPoint& low, const DrawnPoint& high, BarFill fill);
    void axisUp(const ChartScale& scale, bool isSecond);
    void titles();
    void mark();
    void curve(const ChartCurve& curve);
    void legend();

    void line(std::vector<DrawnPoint> points, const DrawnStroke& stroke) {
        drawing_.shapes.emplace_back(DrawnLine{std::move(points), stroke});
    }
    void ring(const DrawnPoint& centre, const CurveStyle& style);
    void text(const DrawnPoint& at, const std::string& words, Anchor anchor, double size,
              const DrawnColour& colour) {
        drawing_.shapes.emplace_back(
            DrawnText{.at = at, .text = words, .colour = colour, .size = size, .anchor = anchor});
    }
    std::string number(double value) const { return formatNumber(value + 0.0, "#0.######", view_.marks); }

    const Chart& chart_;
    const ChartView& view_;
    const ChartPlane plane_;
    Drawing drawing_;
};

void ChartPicture::ring(const DrawnPoint& centre, const CurveStyle& style) {
    constexpr double width = 1.5;
    drawing_.shapes.emplace_back(DrawnRing{centre,
                                           ringRadius,
                                           {.colour = colourOf(style.tone, view_.colours), .width = width},
                                           view_.colours.ground});
}

void ChartPicture::axisAcross() {
    constexpr double below = 16;
    for (const double value : ticksOf(plane_.across())) {
        const double x = plane_.placeOf({value, 0}).x;
        line({{x, plane_.top()}, {x, plane_.bottom()}}, {.colour = view_.colours.grid});
        text({x, plane_.bottom() + below}, number(value), Anchor::middle, labelSize, view_.colours.muted);
    }
}

/// As many of the names as there is room for.
void ChartPicture::axisOfCategories() {
    constexpr double below = 16;
    constexpr double nextLine = 14;
    constexpr double between = 8;
    double nameWidth = 0;
    double secondWidth = 0;
    for (const ChartCategory& category : chart_.categories) {
        nameWidth = std::max(nameWidth, drawnWidth({.text = category.name, .size = labelSize}));
        secondWidth = std::max(secondWidth, drawnWidth({.text = category.second, .size = labelSize}));
    }
    const double step = (plane_.right() - plane_.left()) / static_cast<double>(chart_.categories.size());
    const auto every = static_cast<std::size_t>(std::max(1.0, std::ceil((nameWidth + between) / step)));
    const bool hasSecond = secondWidth + between <= step;
    for (std::size_t i = 0; i < chart_.categories.size(); i += every) {
        const double x = plane_.placeOf({static_cast<double>(i) + 0.5, 0}).x;
        const ChartCategory& category = chart_.categories[i];
        text({x, plane_.bottom() + below}, category.name, Anchor::middle, labelSize, view_.colours.muted);
        if (hasSecond)
            text({x, plane_.bottom() + below + nextLine}, category.second, Anchor::middle, labelSize,
                 view_.colours.muted);
    }
}

void ChartPicture::bars() {
    constexpr double share = 0.6;  // of the room of a category
    constexpr double narrow = 8;
    const double room = (plane_.right() - plane_.left()) / static_cast<double>(chart_.categories.size());
    const double width = room * (room < narrow * 2 ? 0.9 : share) / static_cast<double>(chart_.bars.size());
    const double gap = width >= narrow ? 3 : 0;
    const double foot = plane_.placeOf({0, 0}).y;
    for (std::size_t each = 0; each < chart_.bars.size(); ++each) {
        const ChartBars& bars = chart_.bars[each];
        const double offset =
            (static_cast<double>(each) - static_cast<double>(chart_.bars.size()) / 2) * width;
        for (std::size_t i = 0; i < bars.values.size(); ++i) {
            const DrawnPoint top = plane_.placeOf({static_cast<double>(i) + 0.5, bars.values[i]});
            const double left = top.x + offset + gap / 2;
            if (foot - top.y < 0.5) continue;  // nothing to be seen
            bar({left, top.y}, {left + width - gap, foot}, bars.fill);
        }
    }
}

void ChartPicture::bar(const DrawnPoint& low, const DrawnPoint& high, BarFill fill) {
    const ChartColours& colours = view_.colours;
    const std::vector<DrawnPoint> corners{low, {high.x, low.y}, high, {low.x, high.y}, low};
    if (fill == BarFill::solid) {
        drawing_.shapes.emplace_back(DrawnArea{corners, colours.accent});
        return;
    }
    const DrawnColour& tone = fill == BarFill::hatched  ? colours.accent
                              : fill == BarFill::barred ? colours.text
                                                        : colours.muted;
    constexpr double apart = 6;
    drawing_.shapes.emplace_back(DrawnArea{corners, colours.ground});
    const auto fillWith = [&](int slope, double distance) {
        for (std::vector<DrawnPoint>& each : linesAcross(low, high, distance, slope))
            line(std::move(each), {.colour = tone, .width = 1.2});
    };
    if (fill == BarFill::barred) {
        fillWith(0, apart - 2);
    } else {
        fillWith(-1, apart);
        if (fill == BarFill::crosshatched) fillWith(1, apart);
    }
    line(corners, {.colour = tone, .width = 1.2});
}

/// The grid is that of the first axis.
void ChartPicture::axisUp(const ChartScale& scale, bool isSecond) {
    constexpr double beside = 6;
    constexpr double middle = 4;  // from the base line to the middle of a digit
    for (const double value : ticksOf(scale)) {
        const double y = plane_.placeOf({0, value}, isSecond).y;
        if (!isSecond) line({{plane_.left(), y}, {plane_.right(), y}}, {.colour = view_.colours.grid});
        const double x = isSecond ? plane_.right() + beside : plane_.left() - beside;
        text({x, y + middle}, number(value), isSecond ? Anchor::start : Anchor::end, labelSize,
             view_.colours.muted);
    }
}

void ChartPicture::titles() {
    constexpr double above = 12;
    const double below = hasSecondLine(chart_) ? 48 : 34;
    line({{plane_.left(), plane_.top()},
          {plane_.left(), plane_.bottom()},
          {plane_.right(), plane_.bottom()},
          {plane_.right(), chart_.second ? plane_.top() : plane_.bottom()}},
         {.colour = view_.colours.muted});
    text({plane_.left(), plane_.top() - above}, chart_.up.title, Anchor::start, titleSize,
         view_.colours.text);
    if (chart_.second)
        text({plane_.right(), plane_.top() - above}, chart_.second->title, Anchor::end, titleSize,
             view_.colours.text);
    text({(plane_.left() + plane_.right()) / 2, plane_.bottom() + below}, chart_.across.title, Anchor::middle,
         titleSize, view_.colours.text);
}

void ChartPicture::mark() {
    if (chart_.markedCategory) {
        const auto place = static_cast<double>(*chart_.markedCategory);
        const double left = plane_.placeOf({place, 0}).x;
        const double right = plane_.placeOf({place + 1, 0}).x;
        drawing_.shapes.emplace_back(DrawnArea{
            {{left, plane_.top()}, {right, plane_.top()}, {right, plane_.bottom()}, {left, plane_.bottom()}},
            view_.colours.tint});
    }
    if (!chart_.marked) return;
    const double x = plane_.placeOf({*chart_.marked, 0}).x;
    if (x < plane_.left() || x > plane_.right()) return;
    line({{x, plane_.top()}, {x, plane_.bottom()}}, {.colour = view_.colours.point, .dashes = {3, 3}});
}

void ChartPicture::curve(const ChartCurve& curve) {
    std::vector<DrawnPoint> places;
    for (const DrawnPoint& point : curve.points) places.push_back(plane_.placeOf(point, curve.isOnSecond));
    if (curve.style.line != CurveStyle::Line::none && places.size() > 1)
        line(places, strokeOf(curve.style, view_.colours));
    if (!curve.style.hasRings) return;
    for (const DrawnPoint& place : places) ring(place, curve.style);
}

void ChartPicture::legend() {
    constexpr double firstLine = 18;
    constexpr double middle = 4;
    constexpr double afterSample = 8;
    for (const PlacedKey& placed : placedLegend(chart_, plane_.right() - plane_.left())) {
        const double left = plane_.left() + placed.left;
        const double y = firstLine + placed.row * legendRow;
        const CurveStyle& style = placed.key->style;
        if (placed.key->fill) {
            constexpr double side = 14;
            const double start = left + sampleLength - side;
            bar({start, y - middle - side / 2}, {start + side, y - middle + side / 2}, *placed.key->fill);
        } else if (style.line != CurveStyle::Line::none)
            line({{left, y - middle}, {left + sampleLength, y - middle}}, strokeOf(style, view_.colours));
        if (style.hasRings) ring({left + sampleLength / 2, y - middle}, style);
        text({left + sampleLength + afterSample, y}, placed.key->name, Anchor::start, titleSize,
             view_.colours.text);
    }
}

Drawing ChartPicture::drawing() {
    if (chart_.markedCategory) mark();  // the grid goes over it
    if (chart_.categories.empty())
        axisAcross();
    else
        axisOfCategories();
    axisUp(plane_.up(), false);
    if (chart_.second) axisUp(plane_.second(), true);
    bars();
    titles();
    if (!chart_.markedCategory) mark();
    for (const ChartCurve& each : chart_.curves) curve(each);
    legend();
    return std::move(drawing_);
}

}  // namespace

DrawnStroke strokeOf(const CurveStyle& style, const ChartColours& colours) {
    DrawnStroke stroke{.colour = colourOf(style.tone, colours), .width = 2};
    if (style.line == CurveStyle::Line::dashed) stroke.dashes = {7, 4};
    if (style.line == CurveStyle::Line::dotted) stroke.dashes = {2, 3};
    if (style.line == CurveStyle::Line::dashDotted) stroke.dashes = {8, 3, 2, 3};
    return stroke;
}

ChartPlane::ChartPlane(const Chart& chart, double width, double height)
    : categories_(chart.categories.size()) {
    constexpr double forNumbers = 52;
    constexpr double narrow = 16;
    constexpr double forTitles = 38;
    const double forAxis = hasSecondLine(chart) ? 58 : 44;
    constexpr double betweenAcross = 55;  // pixels between two numbers
    constexpr double betweenUp = 34;
    left_ = forNumbers;
    right_ = std::max(width - (chart.second ? forNumbers : narrow), left_ + 1);
    const auto keys = placedLegend(chart, right_ - left_);
    const double rows = keys.empty() ? 0 : keys.back().row + 1;
    top_ = forTitles + rows * legendRow;
    bottom_ = std::max(height - forAxis, top_ + 1);
    const double up = (bottom_ - top_) / betweenUp;
    across_ = scaleOf(valuesOf(chart, &DrawnPoint::x, {}), chart.across, (right_ - left_) / betweenAcross);
    if (categories_ > 0) across_ = {.low = 0, .high = static_cast<double>(categories_), .step = 1};
    up_ = scaleOf(valuesOf(chart, &DrawnPoint::y, false), chart.up, up);
    if (chart.second) second_ = scaleOf(valuesOf(chart, &DrawnPoint::y, true), *chart.second, up);
}

DrawnPoint ChartPlane::placeOf(const DrawnPoint& value, bool isOnSecond) const {
    const auto share = [](const ChartScale& scale, double at) {
        return (at - scale.low) / (scale.high - scale.low);
    };
    return {left_ + share(across_, value.x) * (right_ - left_),
            bottom_ - share(isOnSecond ? second_ : up_, value.y) * (bottom_ - top_)};
}

std::optional<std::size_t> ChartPlane::categoryAt(double x) const {
    if (categories_ == 0 || x < left_ || x >= right_) return std::nullopt;
    return static_cast<std::size_t>((x - left_) / (right_ - left_) * static_cast<double>(categories_));
}

Drawing chartDrawing(const Chart& chart, const ChartView& view) {
    return ChartPicture(chart, view).drawing();
}

}  // namespace marvello

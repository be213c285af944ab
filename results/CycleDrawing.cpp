#include "results/CycleDrawing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

#include "data/DictionaryTexts.h"
#include "data/RoundSteps.h"
#include "results/CycleTexts.h"

namespace marvello {

namespace {

using Kind = PhLine::Kind;
using Anchor = DrawnText::Anchor;

constexpr double labelSize = 11;
constexpr double numberSize = 12;
constexpr double pointRadius = 3.5;

struct Box {
    double left, top, right, bottom;
};

bool overlaps(const Box& one, const Box& other) {
    return one.left < other.right && other.left < one.right && one.top < other.bottom &&
           other.top < one.bottom;
}

/// The room that a text takes.
Box boxOf(const DrawnText& text) {
    constexpr double ascent = 0.8;
    constexpr double descent = 0.25;
    const double width = drawnWidth(text);
    const double left = text.anchor == Anchor::start    ? text.at.x
                        : text.anchor == Anchor::middle ? text.at.x - width / 2
                                                        : text.at.x - width;
    return {left, text.at.y - ascent * text.size, left + width, text.at.y + descent * text.size};
}

/// The part of a piece of a line inside of a box, after Liang and Barsky; none outside.
std::optional<std::pair<DrawnPoint, DrawnPoint>> clipped(const DrawnPoint& from, const DrawnPoint& to,
                                                         const Box& box) {
    double begin = 0;
    double end = 1;
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const auto cut = [&](double slope, double room) {
        if (slope == 0) return room >= 0;
        const double share = room / slope;
        (slope < 0 ? begin : end) = slope < 0 ? std::max(begin, share) : std::min(end, share);
        return begin <= end;
    };
    const bool isInside = cut(-dx, from.x - box.left) && cut(dx, box.right - from.x) &&
                          cut(-dy, from.y - box.top) && cut(dy, box.bottom - from.y);
    if (!isInside) return std::nullopt;
    const auto at = [&](double share) { return DrawnPoint{from.x + share * dx, from.y + share * dy}; };
    return std::pair(at(begin), at(end));
}

/// The pieces of a line inside of a box.
std::vector<std::vector<DrawnPoint>> clipped(const std::vector<DrawnPoint>& points, const Box& box) {
    std::vector<std::vector<DrawnPoint>> pieces;
    bool goesOn = false;
    for (std::size_t i = 1; i < points.size(); ++i) {
        const auto part = clipped(points[i - 1], points[i], box);
        if (part && !goesOn) pieces.push_back({part->first});
        if (part) pieces.back().push_back(part->second);
        const auto isSame = [](const DrawnPoint& a, const DrawnPoint& b) { return a.x == b.x && a.y == b.y; };
        goesOn = part && isSame(part->second, points[i]);
    }
    return pieces;
}

bool crosses(const Box& box, const std::vector<DrawnPoint>& line) {
    for (std::size_t i = 1; i < line.size(); ++i)
        if (clipped(line[i - 1], line[i], box)) return true;
    return false;
}

/// Draws one cycle.
class CyclePicture {
  public:
    CyclePicture(const Cycle& cycle, const PhDiagram& diagram, const CycleView& view)
        : cycle_(cycle),
          diagram_(diagram),
          view_(view),
          plane_(view.shown, view.width, view.height),
          frame_{plane_.left(), plane_.top(), plane_.right(), plane_.bottom()} {
        drawing_ = {
            .width = view.width, .height = view.height, .ground = view.colours.ground, .title = view.title};
    }

    Drawing drawing();

  private:
    void enthalpyAxis();
    void pressureAxis();
    void titles();
    void diagramLines();
    void lineLabel(const PhLine& line, const std::vector<std::vector<DrawnPoint>>& pieces);
    void branches();
    void points();
    void pointNumbers();
    std::vector<std::vector<std::size_t>> groups() const;
    DrawnText numberAt(const DrawnPoint& place, const std::string& text) const;
    DrawnPoint middleOfStates() const;

    void line(std::vector<DrawnPoint> points, const DrawnStroke& stroke) {
        drawing_.shapes.emplace_back(DrawnLine{std::move(points), stroke});
    }
    /// Adds a text unless it would touch another one.
    bool addLabel(const DrawnText& text);
    DrawnPoint placeOf(std::size_t state) const {
        const FluidState& fluid = cycle_.states[state].state;
        return plane_.placeOf({fluid.h, fluid.p});
    }
    std::string number(double value) const { return formatNumber(value, "#0.####", view_.marks); }

    const Cycle& cycle_;
    const PhDiagram& diagram_;
    const CycleView& view_;
    const PhPlane plane_;
    const Box frame_;
    Drawing drawing_;
    std::vector<Box> taken_;  ///< By texts and points.
    std::vector<std::vector<DrawnPoint>> branchLines_;
    std::vector<DrawnText> labels_;
};

bool CyclePicture::addLabel(const DrawnText& text) {
    constexpr double apart = 3;
    Box box = boxOf(text);
    box.left -= apart;
    box.right += apart;
    if (std::ranges::any_of(taken_, [&](const Box& other) { return overlaps(box, other); })) return false;
    taken_.push_back(box);
    labels_.push_back(text);
    return true;
}

void CyclePicture::enthalpyAxis() {
    constexpr double least = 55;  // pixels between two numbers
    constexpr double below = 16;
    const double low = convertedEnthalpy(view_.shown.lowH, UnitSystem::metric, view_.units);
    const double high = convertedEnthalpy(view_.shown.highH, UnitSystem::metric, view_.units);
    const double step = roundStep(high - low, std::max((frame_.right - frame_.left) / least, 1.0));
    for (double value = firstMultiple(low, step); value <= high + 1e-9 * step; value += step) {
        const double metric = convertedEnthalpy(value, view_.units, UnitSystem::metric);
        const double x = std::clamp(plane_.placeOf({metric, view_.shown.lowP}).x, frame_.left, frame_.right);
        line({{x, frame_.top}, {x, frame_.bottom}}, {.colour = view_.colours.grid});
        drawing_.shapes.emplace_back(DrawnText{.at = {x, frame_.bottom + below},
                                               .text = number(std::round(value / step) * step + 0.0),
                                               .colour = view_.colours.muted,
                                               .size = labelSize,
                                               .anchor = Anchor::middle});
    }
}

/// The round pressures of a logarithmic axis: 1, 2 and 5 times the powers of ten, or even steps where fewer
/// than three of these are shown.
std::vector<double> roundPressures(double low, double high) {
    std::vector<double> values;
    for (double power = std::pow(10, std::floor(std::log10(low))); power <= high; power *= 10)
        for (const double factor : {1, 2, 5})
            if (factor * power >= low && factor * power <= high) values.push_back(factor * power);
    constexpr std::size_t least = 3;
    if (values.size() >= least) return values;
    values.clear();
    constexpr double most = 8;
    const double step = roundStep(high - low, most);
    for (double value = firstMultiple(low, step); value <= high; value += step) values.push_back(value);
    return values;
}

void CyclePicture::pressureAxis() {
    constexpr double beside = 6;
    constexpr double middle = 4;  // from the base line to the middle of a digit
    const double low = convertedPressure(view_.shown.lowP, UnitSystem::metric, view_.units);
    const double high = convertedPressure(view_.shown.highP, UnitSystem::metric, view_.units);
    for (const double value : roundPressures(low, high)) {
        const double metric = convertedPressure(value, view_.units, UnitSystem::metric);
        const double y = plane_.placeOf({view_.shown.lowH, metric}).y;
        line({{frame_.left, y}, {frame_.right, y}}, {.colour = view_.colours.grid});
        drawing_.shapes.emplace_back(DrawnText{.at = {frame_.left - beside, y + middle},
                                               .text = number(value),
                                               .colour = view_.colours.muted,
                                               .size = labelSize,
                                               .anchor = Anchor::end});
    }
}

void CyclePicture::titles() {
    constexpr double below = 34;
    constexpr double fromLeft = 14;
    line({{frame_.left, frame_.top}, {frame_.left, frame_.bottom}, {frame_.right, frame_.bottom}},
         {.colour = view_.colours.muted});
    const auto unit = [this](StateProperty property) { return unitOf(property, view_.units); };
    drawing_.shapes.emplace_back(
        DrawnText{.at = {(frame_.left + frame_.right) / 2, frame_.bottom + below},
                  .text = dictionaryText("frmselection.cycle.axis.enthalpy", {unit(StateProperty::enthalpy)}),
                  .colour = view_.colours.text,
                  .size = numberSize,
                  .anchor = Anchor::middle});
    drawing_.shapes.emplace_back(
        DrawnText{.at = {fromLeft, frame_.top},
                  .text = dictionaryText("frmselection.cycle.axis.pressure", {unit(StateProperty::pressure)}),
                  .colour = view_.colours.text,
                  .size = numberSize,
                  .anchor = Anchor::end,
                  .angle = -90});
}

/// Values stand where lines of their kind keep apart: temperatures at the lower edge, qualities above it,
/// entropies at the upper end and densities at the right one.
void CyclePicture::lineLabel(const PhLine& line, const std::vector<std::vector<DrawnPoint>>& pieces) {
    if (pieces.empty()) return;
    constexpr double inside = 6;
    const DrawnPoint first = pieces.front().front();
    const DrawnPoint last = pieces.back().back();
    DrawnText text{.colour = view_.colours.muted,
                   .size = labelSize,
                   .anchor = Anchor::middle,
                   .halo = view_.colours.ground};
    const std::string value = number(line.value);
    constexpr double edge = 2;
    const bool beginsBelow = frame_.bottom - first.y < edge;
    if (line.kind == Kind::temperature) {
        if (!beginsBelow) return;
        text.text = value;
        text.at = {first.x, frame_.bottom - inside};
    } else if (line.kind == Kind::quality) {
        constexpr double height = 24;
        text.text = "x " + value;
        const auto at = std::ranges::find_if(
            pieces.front(), [&](const DrawnPoint& point) { return point.y <= frame_.bottom - height; });
        if (at == pieces.front().end()) return;
        text.at = {at->x, frame_.bottom - height};
    } else if (line.kind == Kind::entropy) {
        text.text = "s " + value;
        text.at = {last.x, last.y + 2 * labelSize};
    } else {
        text.text = "ρ " + value;
        text.at = last;
    }
    const Box box = boxOf(text);
    if (box.right > frame_.right) text.at.x -= box.right - frame_.right + edge;
    if (box.left < frame_.left) text.at.x += frame_.left - box.left + edge;
    if (box.top < frame_.top) text.at.y += frame_.top - box.top + edge;
    if (box.bottom > frame_.bottom) text.at.y -= box.bottom - frame_.bottom + edge;
    addLabel(text);
}

void CyclePicture::diagramLines() {
    for (const bool isDome : {false, true}) {
        for (const PhLine& each : diagram_.lines) {
            if ((each.kind == Kind::bubble || each.kind == Kind::dew) != isDome) continue;
            std::vector<DrawnPoint> points;
            points.reserve(each.points.size());
            for (const PhPoint& point : each.points) points.push_back(plane_.placeOf(point));
            const auto pieces = clipped(points, frame_);
            for (const auto& piece : pieces) line(piece, strokeOf(each.kind, view_.colours));
            if (!isDome) lineLabel(each, pieces);
        }
    }
}

void CyclePicture::branches() {
    constexpr double width = 2.5;
    for (const CycleBranch& branch : cycle_.branches) {
        std::vector<DrawnPoint> points;
        for (const std::size_t state : branch.states) points.push_back(placeOf(state));
        DrawnStroke stroke{.colour = view_.colours.accent, .width = width};
        if (branch.kind == CycleBranch::Kind::economizer) stroke.dashes = {6, 4};
        if (branch.kind == CycleBranch::Kind::oilCooling) stroke.dashes = {2, 3};
        for (const auto& piece : clipped(points, frame_)) {
            line(piece, stroke);
            branchLines_.push_back(piece);
        }
    }
}

void CyclePicture::points() {
    constexpr double ring = 1.5;
    for (std::size_t i = 0; i < cycle_.states.size(); ++i) {
        const DrawnPoint place = placeOf(i);
        if (!plane_.contains(place)) continue;
        const bool isChosen = view_.chosen == i;
        drawing_.shapes.emplace_back(DrawnRing{place,
                                               pointRadius,
                                               {.colour = view_.colours.accent, .width = ring},
                                               isChosen ? view_.colours.accent : view_.colours.ground});
    }
}

/// States whose numbers would touch.
std::vector<std::vector<std::size_t>> CyclePicture::groups() const {
    constexpr double near = 10;
    std::vector<std::vector<std::size_t>> groups;
    for (std::size_t i = 0; i < cycle_.states.size(); ++i) {
        const DrawnPoint place = placeOf(i);
        if (!plane_.contains(place)) continue;
        const auto joined = std::ranges::find_if(groups, [&](const std::vector<std::size_t>& group) {
            return std::ranges::any_of(group, [&](std::size_t other) {
                const DrawnPoint there = placeOf(other);
                return std::hypot(there.x - place.x, there.y - place.y) < near;
            });
        });
        if (joined == groups.end()) {
            groups.push_back({i});
        } else {
            joined->push_back(i);
        }
    }
    return groups;
}

DrawnPoint CyclePicture::middleOfStates() const {
    DrawnPoint sum;
    for (std::size_t i = 0; i < cycle_.states.size(); ++i) {
        sum.x += placeOf(i).x;
        sum.y += placeOf(i).y;
    }
    const auto count = static_cast<double>(cycle_.states.size());
    return {sum.x / count, sum.y / count};
}

/// The place around a point where a number is on the fewest lines and texts, the first of equal ones.
DrawnText CyclePicture::numberAt(const DrawnPoint& place, const std::string& text) const {
    struct Try {
        double dx, dy;
        Anchor anchor;
    };
    constexpr std::array tries{Try{8, 14, Anchor::start},  Try{-8, -6, Anchor::end},
                               Try{8, -6, Anchor::start},  Try{-8, 14, Anchor::end},
                               Try{0, -8, Anchor::middle}, Try{0, 17, Anchor::middle},
                               Try{9, 4, Anchor::start},   Try{-9, 4, Anchor::end}};
    const DrawnPoint middle = middleOfStates();
    DrawnText best;
    double least = std::numeric_limits<double>::infinity();
    for (const Try& each : tries) {
        const DrawnText there{.at = {place.x + each.dx, place.y + each.dy},
                              .text = text,
                              .colour = view_.colours.text,
                              .size = numberSize,
                              .anchor = each.anchor,
                              .isMedium = true,
                              .halo = view_.colours.ground};
        const Box box = boxOf(there);
        // Outside of the cycle rather than inside, and never on another text if that can be.
        double cost = (each.dx * (middle.x - place.x) + (each.dy - numberSize / 3) * (middle.y - place.y)) /
                      std::max(std::hypot(middle.x - place.x, middle.y - place.y), 1.0) / numberSize / 4;
        for (const Box& other : taken_) cost += overlaps(box, other) ? 2 : 0;
        for (const auto& branch : branchLines_) cost += crosses(box, branch) ? 3 : 0;
        const bool isInside = box.left >= frame_.left && box.right <= frame_.right && box.top >= frame_.top &&
                              box.bottom <= frame_.bottom;
        if (!isInside) cost += 1;
        if (cost >= least) continue;
        least = cost;
        best = there;
    }
    return best;
}

void CyclePicture::pointNumbers() {
    for (const std::vector<std::size_t>& group : groups()) {
        std::string text;
        for (const std::size_t state : group) text += (text.empty() ? "" : ", ") + std::to_string(state + 1);
        const DrawnText placed = numberAt(placeOf(group.front()), text);
        taken_.push_back(boxOf(placed));
        drawing_.shapes.emplace_back(placed);
    }
}

/// What a cycle is about comes last and on top; the values of the lines give way to its points.
Drawing CyclePicture::drawing() {
    for (std::size_t i = 0; i < cycle_.states.size(); ++i) {
        const DrawnPoint place = placeOf(i);
        taken_.push_back(
            {place.x - pointRadius, place.y - pointRadius, place.x + pointRadius, place.y + pointRadius});
    }
    enthalpyAxis();
    pressureAxis();
    diagramLines();
    titles();
    for (const DrawnText& label : labels_) drawing_.shapes.emplace_back(label);
    branches();
    points();
    pointNumbers();
    return std::move(drawing_);
}

}  // namespace

DrawnStroke strokeOf(PhLine::Kind kind, const CycleColours& colours) {
    constexpr double domeWidth = 1.5;
    DrawnStroke stroke{.colour = colours.lines};
    switch (kind) {
        case Kind::bubble:
        case Kind::dew:
            return {.colour = colours.text, .width = domeWidth};
        case Kind::entropy:
            stroke.dashes = {6, 4};
            break;
        case Kind::density:
            stroke.dashes = {8, 3, 1.5, 3};
            stroke.colour.opacity *= 0.6;  // they cross all others
            break;
        case Kind::quality:
            stroke.dashes = {1.5, 3};
            break;
        case Kind::temperature:
            break;
    }
    return stroke;
}

PhPlane::PhPlane(const PhRange& shown, double width, double height) : shown_(shown) {
    constexpr double besideLeft = 50, besideRight = 16, above = 14, below = 46;
    left_ = besideLeft;
    right_ = std::max(width - besideRight, besideLeft + 1);
    top_ = above;
    bottom_ = std::max(height - below, above + 1);
}

bool PhPlane::contains(const DrawnPoint& place) const {
    constexpr double edge = 0.5;
    return place.x >= left_ - edge && place.x <= right_ + edge && place.y >= top_ - edge &&
           place.y <= bottom_ + edge;
}

DrawnPoint PhPlane::placeOf(const PhPoint& point) const {
    const double x = (point.h - shown_.lowH) / (shown_.highH - shown_.lowH);
    const double y = std::log(point.p / shown_.lowP) / std::log(shown_.highP / shown_.lowP);
    return {left_ + x * (right_ - left_), bottom_ - y * (bottom_ - top_)};
}

PhPoint PhPlane::pointAt(const DrawnPoint& place) const {
    const double x = (place.x - left_) / (right_ - left_);
    const double y = (bottom_ - place.y) / (bottom_ - top_);
    return {shown_.lowH + x * (shown_.highH - shown_.lowH),
            shown_.lowP * std::pow(shown_.highP / shown_.lowP, y)};
}

Drawing cycleDrawing(const Cycle& cycle, const PhDiagram& diagram, const CycleView& view) {
    return CyclePicture(cycle, diagram, view).drawing();
}

std::optional<std::size_t> stateAt(const Cycle& cycle, const PhPlane& plane, const DrawnPoint& place) {
    constexpr double near = 9;
    std::optional<std::size_t> found;
    double least = near;
    for (std::size_t i = 0; i < cycle.states.size(); ++i) {
        const FluidState& state = cycle.states[i].state;
        const DrawnPoint there = plane.placeOf({state.h, state.p});
        const double distance = std::hypot(there.x - place.x, there.y - place.y);
        if (distance >= least) continue;
        least = distance;
        found = i;
    }
    return found;
}

}  // namespace marvello

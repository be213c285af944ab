#include "demo/pictures/Sheet.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace marvello::pictures {

namespace {

constexpr double wideLine = 0.5, narrowLine = 0.18;
constexpr double arrowLength = 2.4, arrowHalf = 0.42;
constexpr double gap = 0.8, overshoot = 1.5;
constexpr double balloonRadius = 2.3;
constexpr std::uint32_t black = 0x182126, grey = 0x55626A, petrol = 0x0E6A80, white = 0xFFFFFF;

}  // namespace

void Sheet::outline() {
    wmf_.setLine(WmfWriter::Line::solid, wideLine, black);
    wmf_.setFill(white);
}

void Sheet::narrow() {
    wmf_.setLine(WmfWriter::Line::solid, narrowLine, black);
    wmf_.setNoFill();
}

void Sheet::centre() {
    wmf_.setLine(WmfWriter::Line::dashDotted, narrowLine, grey);
    wmf_.setNoFill();
}

void Sheet::dimension() {
    wmf_.setLine(WmfWriter::Line::solid, narrowLine, grey);
    wmf_.setFill(grey);
}

void Sheet::box(const Placing& view, Spot low, Spot high, double left, double right) {
    if (left <= 0 && right <= 0) return wmf_.rectangle(view(low.x, high.y), view(high.x, low.y));
    std::vector<Spot> spots;
    // A quarter of an ellipse around a centre, from one angle on, against the clock; a plain corner for 0.
    const auto corner = [&](double x, double y, double radius, double tall, double from) {
        const int steps = radius > 0 ? 8 : 0;
        for (int i = 0; i <= steps; ++i) {
            const double angle = (from + (steps == 0 ? 45 : 90.0 * i / steps)) * std::numbers::pi / 180;
            spots.push_back(view(x + radius * std::cos(angle), y + tall * std::sin(angle)));
        }
    };
    const double half = (high.y - low.y) / 2;
    const double tallRight = right > 0 ? std::min(half, right * 1.6) : 0,
                 tallLeft = left > 0 ? std::min(half, left * 1.6) : 0;
    corner(high.x - right, high.y - tallRight, right, tallRight, 0);
    corner(low.x + left, high.y - tallLeft, left, tallLeft, 90);
    corner(low.x + left, low.y + tallLeft, left, tallLeft, 180);
    corner(high.x - right, low.y + tallRight, right, tallRight, 270);
    wmf_.polygon(spots);
}

void Sheet::circle(const Placing& view, double x, double y, double radius) {
    wmf_.circle(view(x, y), radius * view.scale);
}

void Sheet::centreCross(const Placing& view, double x, double y, double radius, double over) {
    const Spot c = view(x, y);
    const double reach = radius * view.scale + over;
    centre();
    wmf_.line({c.x - reach, c.y}, {c.x + reach, c.y});
    wmf_.line({c.x, c.y - reach}, {c.x, c.y + reach});
}

/// `dx` and `dy` point from the tip back along the line.
void Sheet::arrow(Spot tip, double dx, double dy) {
    wmf_.polygon({tip,
                  {tip.x + dx * arrowLength - dy * arrowHalf, tip.y + dy * arrowLength + dx * arrowHalf},
                  {tip.x + dx * arrowLength + dy * arrowHalf, tip.y + dy * arrowLength - dx * arrowHalf}});
}

void Sheet::across(Spot from, Spot to, double at, const std::string& text) {
    dimension();
    for (const Spot& spot : {from, to}) {
        const double way = at > spot.y ? 1 : -1;
        wmf_.line({spot.x, spot.y + way * gap}, {spot.x, at + way * overshoot});
    }
    wmf_.line({from.x, at}, {to.x, at});
    arrow({from.x, at}, 1, 0);
    arrow({to.x, at}, -1, 0);
    wmf_.setText(3.2);
    wmf_.text({(from.x + to.x) / 2, at - 0.9}, WmfWriter::Align::centre, text);
}

void Sheet::upright(Spot from, Spot to, double at, const std::string& text) {
    dimension();
    for (const Spot& spot : {from, to}) {
        const double way = at > spot.x ? 1 : -1;
        wmf_.line({spot.x + way * gap, spot.y}, {at + way * overshoot, spot.y});
    }
    wmf_.line({at, from.y}, {at, to.y});
    const double down = from.y < to.y ? 1 : -1;
    arrow({at, from.y}, 0, down);
    arrow({at, to.y}, 0, -down);
    wmf_.setText(3.2, false, 90);
    wmf_.text({at - 0.9, (from.y + to.y) / 2}, WmfWriter::Align::centre, text);
}

void Sheet::balloon(Spot at, Spot meant, const std::string& letter) {
    const double way = std::hypot(meant.x - at.x, meant.y - at.y);
    const double dx = (meant.x - at.x) / way, dy = (meant.y - at.y) / way;
    dimension();
    wmf_.line({at.x + dx * balloonRadius, at.y + dy * balloonRadius}, meant);
    wmf_.circle(meant, 0.45);
    balloonAlone(at, letter);
}

void Sheet::balloonAlone(Spot at, const std::string& letter) {
    wmf_.setLine(WmfWriter::Line::solid, 0.25, petrol);
    wmf_.setFill(white);
    wmf_.circle(at, balloonRadius);
    wmf_.setText(2.9, true);
    wmf_.text({at.x, at.y + 1.05}, WmfWriter::Align::centre, letter);
}

void Sheet::emblem(Spot corner, double size) {
    const double s = size / 16;
    const auto at = [&](double x, double y) { return Spot{corner.x + x * s, corner.y + y * s}; };
    wmf_.setLine(WmfWriter::Line::none, 0);
    wmf_.setFill(petrol);
    wmf_.polygons({{at(1.5, 1.5), at(4.9, 1.5), at(4.9, 14.5), at(1.5, 14.5)},
                   {at(6, 8), at(11, 1.5), at(15.1, 1.5), at(10.2, 8), at(15.1, 14.5), at(11, 14.5)}});
}

}  // namespace marvello::pictures

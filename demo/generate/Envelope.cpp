#include "demo/generate/Envelope.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "catalogue/clsLimits.h"
#include "data/Numbers.h"

namespace marvello::generate {
namespace {

/// Adding 0 turns a negative zero into a zero.
double toTenth(double value) { return std::nearbyint(value * 10) / 10 + 0.0; }

/// The places between `left` and `right` where any of the lines bends or two of them cross.
std::vector<double> corners(const std::vector<const BrokenLine*>& lines, double left, double right) {
    std::vector<double> places{left, right};
    for (const BrokenLine* line : lines) {
        for (const Point& point : line->points()) {
            if (point.x > left && point.x < right) places.push_back(point.x);
        }
    }
    std::sort(places.begin(), places.end());
    places.erase(std::unique(places.begin(), places.end()), places.end());
    const std::vector<double> bends = places;
    for (std::size_t i = 0; i + 1 < bends.size(); ++i) {
        for (std::size_t a = 0; a < lines.size(); ++a) {
            for (std::size_t b = a + 1; b < lines.size(); ++b) {
                const double before = lines[a]->at(bends[i]) - lines[b]->at(bends[i]);
                const double after = lines[a]->at(bends[i + 1]) - lines[b]->at(bends[i + 1]);
                if (before * after < 0) {
                    places.push_back(bends[i] + (bends[i + 1] - bends[i]) * before / (before - after));
                }
            }
        }
    }
    std::sort(places.begin(), places.end());
    return places;
}

clsPoints asCatalogueLine(const std::vector<Point>& line) {
    clsPoints points;
    for (const Point& point : line) points.add(point.x, point.y);
    return points;
}

/// The points of a vertical border at which an operating point may be stated: its ends, its middle, and each
/// tenth.
std::vector<Point> pointsOfBorder(const Point& from, const Point& to) {
    const double low = std::min(from.y, to.y);
    const double high = std::max(from.y, to.y);
    std::vector<Point> points{from, {from.x, (low + high) / 2}, to};
    for (double y = toTenth(low); y < high; y = toTenth(y + 0.1))
        points.push_back({from.x, std::max(y, low)});
    return points;
}

bool holds(const std::vector<Point>& line, const std::vector<Point>& points) {
    const clsPoints closed = asCatalogueLine(line);
    return std::ranges::all_of(points, [&](const Point& point) {
        return polygonTest(closed, point.x, point.y) > PolygonState::outside;
    });
}

/// The line with its border from the point at `at` to the next one moved to the right.
std::vector<Point> widened(std::vector<Point> line, std::size_t at, double by) {
    const Point from = line[at];
    const Point to = line[at + 1];
    line.insert(line.begin() + static_cast<std::ptrdiff_t>(at) + 1,
                {{from.x + by, from.y}, {to.x + by, to.y}});
    return line;
}

/// Adds a point, unless it repeats the last one or the last lies on the way from the one before to it.
void append(std::vector<Point>& line, const Point& point) {
    if (!line.empty() && line.back() == point) return;
    if (line.size() >= 2) {
        const Point& a = line[line.size() - 2];
        const Point& b = line.back();
        const double turn = (b.x - a.x) * (point.y - b.y) - (b.y - a.y) * (point.x - b.x);
        if (std::abs(turn) < 1e-9) line.pop_back();
    }
    line.push_back(point);
}

}  // namespace

double BrokenLine::at(double x) const {
    if (x <= points_.front().x) return points_.front().y;
    for (std::size_t i = 1; i < points_.size(); ++i) {
        const Point& from = points_[i - 1];
        const Point& to = points_[i];
        if (x <= to.x) return from.y + (to.y - from.y) * (x - from.x) / (to.x - from.x);
    }
    return points_.back().y;
}

BrokenLine BrokenLine::raised(double by) const {
    std::vector<Point> points = points_;
    for (Point& point : points) point.y += by;
    return BrokenLine(points);
}

bool Region::contains(double x, double y) const {
    return x >= left() && x <= right() && y >= lower_.at(x) && y <= upper_.at(x);
}

std::vector<Point> Region::cut(const BrokenLine& lower, const BrokenLine& upper, double left,
                               double right) const {
    const double from = std::max(left, this->left());
    const double to = std::min(right, this->right());
    std::vector<Point> below;
    std::vector<Point> above;
    for (const double x : corners({&lower_, &upper_, &lower, &upper}, from, to)) {
        const double low = std::max(lower_.at(x), lower.at(x));
        const double high = std::min(upper_.at(x), upper.at(x));
        if (low > high + 1e-9) continue;
        append(below, {x, low});
        append(above, {x, high});
    }
    below.insert(below.end(), above.rbegin(), above.rend());
    std::vector<Point> outline;
    for (const Point& point : below) append(outline, {toTenth(point.x), toTenth(point.y)});
    if (outline.size() < 3) return {};
    append(outline, Point(outline.front()));
    return outline.size() < 4 ? std::vector<Point>{} : outline;
}

std::vector<Point> holdingItsBorders(const std::vector<Point>& line) {
    constexpr std::array steps{1e-6, 2e-6, 5e-6, 1e-5, 2e-5, 5e-5, 1e-4};
    std::vector<Point> result = line;
    for (std::size_t i = 0; i + 1 < line.size(); ++i) {
        const Point& from = line[i];
        const Point& to = line[i + 1];
        const auto border = pointsOfBorder(from, to);
        if (from.x != to.x || holds(result, border)) continue;
        const auto at = static_cast<std::size_t>(std::ranges::find(result, from) - result.begin());
        for (const double step : steps) {
            const auto wider = widened(result, at, step);
            if (!holds(wider, border)) continue;
            result = wider;
            break;
        }
    }
    return result;
}

std::string pointsText(const std::vector<Point>& points) {
    std::string line;
    for (const Point& point : points) {
        if (!line.empty()) line += ';';
        line += storedText(point.x) + ',' + storedText(point.y);
    }
    return line;
}

}  // namespace marvello::generate

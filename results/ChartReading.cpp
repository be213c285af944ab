#include "results/ChartReading.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>

#include "results/ReportLines.h"

namespace marvello {

namespace {

/// The value of a curve; none where it is not.
std::optional<double> valueAt(const ChartCurve& curve, double across) {
    const std::vector<DrawnPoint>& points = curve.points;
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (points[i].x == across) return points[i].y;
        if (i == 0) continue;
        const auto [low, high] = std::minmax(points[i - 1].x, points[i].x);
        if (across <= low || across >= high) continue;
        const double share = (across - points[i - 1].x) / (points[i].x - points[i - 1].x);
        return std::lerp(points[i - 1].y, points[i].y, share);
    }
    return std::nullopt;
}

/// Where an upright line crosses an outline, from below: entry and exit by turns.
std::vector<double> crossingsAt(const ChartCurve& outline, double across) {
    const auto [first, last] = std::ranges::minmax(outline.points, {}, &DrawnPoint::x);
    if (across < first.x || across > last.x) return {};
    // Just inside of an end or a corner, where the crossings are in pairs.
    constexpr double beside = 1e-7;
    const double x = across + (across + beside < last.x ? beside : -beside);
    std::vector<double> crossings;
    for (std::size_t i = 1; i < outline.points.size(); ++i) {
        const DrawnPoint& from = outline.points[i - 1];
        const DrawnPoint& to = outline.points[i];
        if ((from.x < x) == (to.x < x)) continue;
        crossings.push_back(std::lerp(from.y, to.y, (x - from.x) / (to.x - from.x)));
    }
    std::ranges::sort(crossings);
    return crossings;
}

std::string number(double value, const ChartAxis& axis, const NumberMarks& marks) {
    return formatNumber(value, axis.pattern, marks);
}

/// The values of one curve and how they are written, without the unit; empty where it is not.
struct Part {
    std::vector<DrawnPoint> points;
    std::string text;
};
Part partOf(const ChartCurve& curve, double across, const ChartAxis& axis, const NumberMarks& marks) {
    Part part;
    if (!curve.isOutline) {
        if (const auto value = valueAt(curve, across))
            part = {{{across, *value}}, number(*value, axis, marks)};
        return part;
    }
    const std::vector<double> crossings = crossingsAt(curve, across);
    for (std::size_t i = 1; i < crossings.size(); i += 2) {
        if (!part.text.empty()) part.text += ", ";
        part.text += number(crossings[i - 1], axis, marks) + " \u2013 " + number(crossings[i], axis, marks);
        for (const double y : {crossings[i - 1], crossings[i]}) part.points.push_back({across, y});
    }
    return part;
}

}  // namespace

std::vector<double> readPlaces(const Chart& chart) {
    std::vector<double> places;
    for (const ChartCurve& curve : chart.curves) {
        if (curve.name.empty()) continue;
        for (const DrawnPoint& point : curve.points) places.push_back(point.x);
        if (!curve.isOutline || curve.points.empty()) continue;
        const auto [first, last] = std::ranges::minmax(curve.points, {}, &DrawnPoint::x);
        for (double place = std::ceil(first.x); place <= last.x; ++place) places.push_back(place);
    }
    std::ranges::sort(places);
    constexpr double same = 1e-3;  // limits and points of operation are met but for the last digits
    const auto isSame = [](double one, double other) { return other - one < same; };
    places.erase(std::unique(places.begin(), places.end(), isSame), places.end());
    return places;
}

ChartReading readChart(const Chart& chart, double across, const NumberMarks& marks) {
    ChartReading reading{
        .at = chart.across.name + ' ' + withUnit(number(across, chart.across, marks), chart.across.unit),
        .across = across,
        .values = {}};
    std::vector<int> sets;  // of the values
    for (const ChartCurve& curve : chart.curves) {
        if (curve.name.empty()) continue;
        const ChartAxis& axis = curve.isOnSecond && chart.second ? *chart.second : chart.up;
        const Part part = partOf(curve, across, axis, marks);
        if (part.points.empty()) continue;
        const std::string text = withUnit(part.text, axis.unit);
        const auto known = std::ranges::find(sets, curve.set) - sets.begin();
        if (known == std::ssize(sets)) {
            sets.push_back(curve.set);
            reading.values.push_back({curve.name, text, part.points, curve.isOnSecond});
        } else if (curve.isOutline) {  // a second area; two pieces of a line have an end in common
            ChartReading::Value& value = reading.values[static_cast<std::size_t>(known)];
            value.text += ", " + text;
            value.points.insert(value.points.end(), part.points.begin(), part.points.end());
        }
    }
    return reading;
}

}  // namespace marvello

#include "engine/PlanePolygon.h"

#include <algorithm>
#include <cmath>

namespace marvello {

HalfPlane HalfPlane::leftOf(const PlanePoint& from, const PlanePoint& to) {
    const double a = from.y - to.y;
    const double b = to.x - from.x;
    return {a, b, -(a * from.x + b * from.y)};
}

PlanePolygon clipped(const PlanePolygon& polygon, const HalfPlane& half) {
    PlanePolygon result;
    if (polygon.empty()) return result;
    result.reserve(polygon.size() + 2);
    PlanePoint from = polygon.back();
    double fromAt = half.at(from);
    for (const PlanePoint& to : polygon) {
        const double toAt = half.at(to);
        if ((fromAt > 0 && toAt < 0) || (fromAt < 0 && toAt > 0)) {
            const double part = fromAt / (fromAt - toAt);
            result.push_back({from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part});
        }
        if (toAt >= 0) result.push_back(to);
        from = to;
        fromAt = toAt;
    }
    return result;
}

double areaOf(const PlanePolygon& polygon) {
    if (polygon.empty()) return 0;
    double twice = 0;
    PlanePoint from = polygon.back();
    for (const PlanePoint& to : polygon) {
        twice += from.x * to.y - to.x * from.y;
        from = to;
    }
    return twice / 2;
}

bool isInside(const PlanePolygon& polygon, const PlanePoint& point) {
    bool isIn = false;
    PlanePoint from = polygon.empty() ? PlanePoint() : polygon.back();
    for (const PlanePoint& to : polygon) {
        if ((from.y > point.y) != (to.y > point.y) &&
            point.x < from.x + (to.x - from.x) * (point.y - from.y) / (to.y - from.y))
            isIn = !isIn;
        from = to;
    }
    return isIn;
}

bool isWithin(std::span<const PlanePolygon> polygons, const PlanePoint& point) {
    return std::ranges::any_of(polygons,
                               [&](const PlanePolygon& polygon) { return isInside(polygon, point); });
}

std::vector<std::pair<double, double>> partsInside(const PlanePolygon& polygon, const PlanePoint& from,
                                                   const PlanePoint& to) {
    std::vector<double> meetings{0, 1};
    PlanePoint corner = polygon.empty() ? PlanePoint() : polygon.back();
    const HalfPlane side = HalfPlane::leftOf(from, to);
    for (const PlanePoint& next : polygon) {
        const double at = side.at(corner);
        const double nextAt = side.at(next);
        if ((at > 0) != (nextAt > 0)) {
            const HalfPlane edge = HalfPlane::leftOf(corner, next);
            const double begin = edge.at(from);
            const double end = edge.at(to);
            if (begin != end) meetings.push_back(std::clamp(begin / (begin - end), 0.0, 1.0));
        }
        corner = next;
    }
    std::ranges::sort(meetings);
    std::vector<std::pair<double, double>> parts;
    for (std::size_t i = 1; i < meetings.size(); ++i) {
        const double middle = (meetings[i - 1] + meetings[i]) / 2;
        if (meetings[i] <= meetings[i - 1] ||
            !isInside(polygon, {std::lerp(from.x, to.x, middle), std::lerp(from.y, to.y, middle)}))
            continue;
        if (!parts.empty() && parts.back().second == meetings[i - 1])
            parts.back().second = meetings[i];
        else
            parts.emplace_back(meetings[i - 1], meetings[i]);
    }
    return parts;
}

}  // namespace marvello

#pragma once

#include <span>
#include <utility>
#include <vector>

namespace marvello {

/// A point of a plane.
struct PlanePoint {
    double x = 0;
    double y = 0;

    bool operator==(const PlanePoint&) const = default;
};

/// The corners of an area in order; the last is joined to the first.
using PlanePolygon = std::vector<PlanePoint>;

/// Half the plane: where a * x + b * y + c is 0 or more.
struct HalfPlane {
    double a = 0;
    double b = 0;
    double c = 0;

    double at(const PlanePoint& point) const { return a * point.x + b * point.y + c; }

    /// What is on the left of the way from one point to another.
    static HalfPlane leftOf(const PlanePoint& from, const PlanePoint& to);
};

/// Returns the part of a polygon in a half-plane. Parts that hang together outside of it are joined along its
/// edge, there and back, which encloses nothing.
PlanePolygon clipped(const PlanePolygon& polygon, const HalfPlane& half);

/// The area, positive for corners that go round against the clock.
double areaOf(const PlanePolygon& polygon);

/// Whether a point is in a polygon, which may be concave; on an edge either.
bool isInside(const PlanePolygon& polygon, const PlanePoint& point);

/// Whether a point is in one of several polygons.
bool isWithin(std::span<const PlanePolygon> polygons, const PlanePoint& point);

/// Returns the parts of the way between two points that are in a polygon, as fractions of the way.
std::vector<std::pair<double, double>> partsInside(const PlanePolygon& polygon, const PlanePoint& from,
                                                   const PlanePoint& to);

}  // namespace marvello

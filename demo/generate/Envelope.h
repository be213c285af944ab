#pragma once

#include <string>
#include <vector>

namespace marvello::generate {

/// A point of the envelope: evaporating (x) and condensing (y) dew temperature in degC.
struct Point {
    double x;
    double y;

    bool operator==(const Point&) const = default;
};

/// A broken line y(x), points with growing x; beyond its ends it goes on level.
class BrokenLine {
  public:
    explicit BrokenLine(std::vector<Point> points) : points_(std::move(points)) {}

    const std::vector<Point>& points() const { return points_; }
    double at(double x) const;
    BrokenLine raised(double by) const;

  private:
    std::vector<Point> points_;
};

/// The part of the plane between two broken lines.
class Region {
  public:
    Region(BrokenLine lower, BrokenLine upper) : lower_(std::move(lower)), upper_(std::move(upper)) {}

    double left() const { return lower_.points().front().x; }
    double right() const { return lower_.points().back().x; }
    const BrokenLine& lower() const { return lower_; }
    const BrokenLine& upper() const { return upper_; }
    bool contains(double x, double y) const;

    /// What of the region lies between two other lines and between two values of x; no points when there is
    /// nothing.
    std::vector<Point> cut(const BrokenLine& lower, const BrokenLine& upper, double left, double right) const;

    /// The region as a closed line: along the lower edge, back along the upper, and to the first point again.
    std::vector<Point> outline() const { return cut(lower_, upper_, left(), right()); }

  private:
    BrokenLine lower_;
    BrokenLine upper_;
};

/// Returns the closed line with each vertical border at its right side moved outwards, by the smallest step
/// that lets the points of the border as it was count as inside. The test of the catalogue loses them by its
/// angles in single precision. The points of the line stay, so that it is the same elsewhere.
std::vector<Point> holdingItsBorders(const std::vector<Point>& line);

/// A closed line as the catalogue stores it: "x,y;x,y;...".
std::string pointsText(const std::vector<Point>& points);

}  // namespace marvello::generate

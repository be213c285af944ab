#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "engine/PlanePolygon.h"

namespace marvello {

/// Tells points apart that are the same but for the rounding of how they were calculated.
class PointNumbers {
  public:
    /// Points closer than about `tolerance` are one.
    explicit PointNumbers(double tolerance) : tolerance_(tolerance) {}

    int numberOf(const PlanePoint& point);
    const PlanePoint& point(int number) const { return points_[static_cast<std::size_t>(number)]; }
    int count() const { return static_cast<int>(points_.size()); }

  private:
    struct Place {
        std::int64_t x, y;
        bool operator==(const Place&) const = default;
    };
    struct Hash {
        std::size_t operator()(const Place& place) const {
            return static_cast<std::size_t>(place.x) * 0x9E3779B97F4A7C15ULL ^
                   static_cast<std::size_t>(place.y) * 0xC2B2AE3D27D4EB4FULL;
        }
    };
    double tolerance_;
    std::unordered_map<Place, int, Hash> numbers_;
    std::vector<PlanePoint> points_;
};

/// Joins neighbouring pieces of an area, all of which go round against the clock: edges that two pieces share
/// disappear.
class PieceJoiner {
  public:
    explicit PieceJoiner(double tolerance) : points_(tolerance) {}

    void add(const PlanePolygon& piece);
    /// Returns the borders of what was added: those around it against the clock, those of its holes with it.
    std::vector<PlanePolygon> borders() const;

  private:
    void addEdge(int from, int to);

    PointNumbers points_;
    std::vector<std::vector<int>> next_;  ///< by point: where edges from it lead
};

/// Joins the segments of lines into lines as long as they get.
class SegmentJoiner {
  public:
    explicit SegmentJoiner(double tolerance) : points_(tolerance) {}

    void add(const PlanePoint& from, const PlanePoint& to);
    /// A closed line ends where it begins.
    std::vector<std::vector<PlanePoint>> lines() const;

  private:
    PointNumbers points_;
    std::vector<std::vector<int>> neighbours_;
};

}  // namespace marvello

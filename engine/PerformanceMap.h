#pragma once

#include <functional>
#include <optional>
#include <unordered_map>
#include <vector>

#include "catalogue/clsLimits.h"
#include "engine/Contours.h"
#include "engine/Performance.h"

namespace marvello {

/// Operating points at equal distances over a rectangle of dew temperatures, degrees Celsius. Point (column,
/// row) has the number row * columns + column, from the lowest temperatures on.
struct MapGrid {
    double lowTed = 0;
    double highTed = 0;
    double lowTcd = 0;
    double highTcd = 0;
    int columns = 2;  ///< at least 2, rows too
    int rows = 2;

    int count() const { return columns * rows; }
    double ted(int point) const;
    double tcd(int point) const;
    /// The grid with half the distances, which has all points of this one.
    MapGrid finer() const;

    bool operator==(const MapGrid&) const = default;
};

/// Returns the grid over the rectangle around the application limit. None without such a limit.
std::optional<MapGrid> gridOver(const clsLimits& limits, int columns, int rows);

/// The lines of the application limit, in degrees Celsius.
std::vector<PlanePolygon> applicationPolygons(const clsLimits& limits);

/// What a compressor comes to over a grid of operating points.
struct PerformanceMap {
    /// Where values end on the way from a point with values to one with an error.
    struct End {
        double part;  ///< of the way from the own point of the edge
        Performance last;
    };

    MapGrid grid;
    std::vector<Performance> points;
    std::unordered_map<int, End> ends;  ///< by GridField::endKey()

    /// The quantities of a figure for its contours, in metric units. For the COP the quotient of the figures
    /// as they are calculated: that of the calculation is one of rounded figures, and its lines would be
    /// jagged.
    GridField fieldOf(Figure figure) const;
};

/// Says whether a calculation is to go on; an empty one always is.
using IsWanted = std::function<bool()>;

/// Calculates a compressor over a grid at conditions whose temperatures are not used. What a coarser map of
/// the same compressor and conditions has of the grid's points is taken from it. Returns none if it is no
/// longer wanted. Throws FluidLibraryError.
std::optional<PerformanceMap> mapOver(Calculator& calculator, const PreparedCompressor& compressor,
                                      const clsProjectConditions& conditions, const MapGrid& grid,
                                      const PerformanceMap* coarser = nullptr, const IsWanted& isWanted = {});

/// How far the isolines of a map may be from their level, as a part of the range of the quantity.
inline constexpr double lineTolerance = 0.002;

/// Returns how far a coarser map is from the points that a finer one adds, where isolines pass, as a part of
/// the range of the quantity within the application limit: the figure with the largest part counts. Between
/// the points a quantity is taken as even, so the lines of the finer map are about four times nearer.
double roughnessOf(const PerformanceMap& finer, const clsLimits& limits);

/// Calculates the map over the application limit of a compressor: coarse first, and finer until its lines are
/// true to lineTolerance. Hands out each, the last with true. Ends early if it is no longer wanted. Nothing
/// is handed out without an application limit. Throws FluidLibraryError.
void refineMap(Calculator& calculator, const PreparedCompressor& compressor,
               const clsProjectConditions& conditions, const IsWanted& isWanted,
               const std::function<void(const PerformanceMap&, bool isLast)>& handOut);

/// The value of a figure as a map draws it; see PerformanceMap::fieldOf().
std::optional<double> mappedValueOf(const Performance& performance, Figure figure);

}  // namespace marvello

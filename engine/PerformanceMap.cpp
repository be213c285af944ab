#include "engine/PerformanceMap.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace marvello {

namespace {

using Edge = GridField::Edge;

double along(double low, double high, int step, int count) {
    return std::lerp(low, high, static_cast<double>(step) / (count - 1));
}

/// Calculates the points of a map.
class MapRun {
  public:
    MapRun(Calculator& calculator, const PreparedCompressor& compressor,
           const clsProjectConditions& conditions, const IsWanted& isWanted)
        : calculator_(calculator), compressor_(compressor), conditions_(conditions), isWanted_(isWanted) {}

    /// False if the map is no longer wanted.
    bool calculatePoints(PerformanceMap& map, const PerformanceMap* coarser) {
        const MapGrid& grid = map.grid;
        const bool hasCoarser = coarser && coarser->grid.finer() == grid;
        map.points.resize(static_cast<std::size_t>(grid.count()));
        for (int point = 0; point < grid.count(); ++point) {
            if (isWanted_ && !isWanted_()) return false;
            const int column = point % grid.columns;
            const int row = point / grid.columns;
            auto& performance = map.points[static_cast<std::size_t>(point)];
            if (hasCoarser && column % 2 == 0 && row % 2 == 0)
                performance =
                    coarser->points[static_cast<std::size_t>(row / 2 * coarser->grid.columns + column / 2)];
            else
                performance = at(grid.ted(point), grid.tcd(point));
        }
        return true;
    }

    bool findEnds(PerformanceMap& map) {
        const MapGrid& grid = map.grid;
        for (int point = 0; point < grid.count(); ++point) {
            if (isWanted_ && !isWanted_()) return false;
            const bool hasRight = point % grid.columns + 1 < grid.columns;
            const bool hasUpper = point + grid.columns < grid.count();
            if (hasRight) findEnd(map, point, point + 1, Edge::right);
            if (hasUpper) findEnd(map, point, point + grid.columns, Edge::up);
            if (hasRight && hasUpper) findEnd(map, point, point + grid.columns + 1, Edge::diagonal);
        }
        return true;
    }

  private:
    Performance at(double ted, double tcd) {
        conditions_.TEvaporatingDew = ted;
        conditions_.TCondensationDew = tcd;
        return performanceAt(calculator_, compressor_, conditions_);
    }

    /// By halving, down to a hundredth of the edge.
    void findEnd(PerformanceMap& map, int from, int to, Edge edge) {
        const auto performanceOf = [&map](int point) -> const Performance& {
            return map.points[static_cast<std::size_t>(point)];
        };
        const bool isKnown = performanceOf(from).hasValues();
        const int missing = isKnown ? to : from;
        if (isKnown == performanceOf(to).hasValues() || performanceOf(missing).state != PointState::error)
            return;
        PerformanceMap::End end{isKnown ? 0.0 : 1.0, performanceOf(isKnown ? from : to)};
        double none = 1 - end.part;
        constexpr int turns = 7;
        for (int turn = 0; turn < turns; ++turn) {
            const double middle = (end.part + none) / 2;
            const MapGrid& grid = map.grid;
            Performance there = at(std::lerp(grid.ted(from), grid.ted(to), middle),
                                   std::lerp(grid.tcd(from), grid.tcd(to), middle));
            if (there.hasValues())
                end = {middle, std::move(there)};
            else
                none = middle;
        }
        map.ends.emplace(GridField::endKey(from, edge), std::move(end));
    }

    Calculator& calculator_;
    const PreparedCompressor& compressor_;
    clsProjectConditions conditions_;
    const IsWanted& isWanted_;
};

}  // namespace

double MapGrid::ted(int point) const { return along(lowTed, highTed, point % columns, columns); }
double MapGrid::tcd(int point) const { return along(lowTcd, highTcd, point / columns, rows); }

MapGrid MapGrid::finer() const {
    MapGrid grid = *this;
    grid.columns = 2 * columns - 1;
    grid.rows = 2 * rows - 1;
    return grid;
}

std::optional<MapGrid> gridOver(const clsLimits& limits, int columns, int rows) {
    std::optional<MapGrid> grid;
    for (const PlanePolygon& polygon : applicationPolygons(limits))
        for (const PlanePoint& at : polygon) {
            if (!grid) grid = MapGrid{at.x, at.x, at.y, at.y, columns, rows};
            grid->lowTed = std::min(grid->lowTed, at.x);
            grid->highTed = std::max(grid->highTed, at.x);
            grid->lowTcd = std::min(grid->lowTcd, at.y);
            grid->highTcd = std::max(grid->highTcd, at.y);
        }
    if (grid && (grid->lowTed == grid->highTed || grid->lowTcd == grid->highTcd)) return std::nullopt;
    return grid;
}

std::vector<PlanePolygon> applicationPolygons(const clsLimits& limits) {
    std::vector<PlanePolygon> polygons;
    for (const auto& limit : limits) {
        if (limit->LimitType != limitType::application) continue;
        PlanePolygon polygon;
        for (const clsPoint& point : limit->Points) polygon.push_back({point.x, point.Y});
        if (polygon.size() > 1 && polygon.front() == polygon.back()) polygon.pop_back();
        if (polygon.size() >= 3) polygons.push_back(std::move(polygon));
    }
    return polygons;
}

std::optional<PerformanceMap> mapOver(Calculator& calculator, const PreparedCompressor& compressor,
                                      const clsProjectConditions& conditions, const MapGrid& grid,
                                      const PerformanceMap* coarser, const IsWanted& isWanted) {
    PerformanceMap map{.grid = grid, .points = {}, .ends = {}};
    MapRun run(calculator, compressor, conditions, isWanted);
    if (!run.calculatePoints(map, coarser) || !run.findEnds(map)) return std::nullopt;
    return map;
}

double roughnessOf(const PerformanceMap& finer, const clsLimits& limits) {
    const std::vector<PlanePolygon> within = applicationPolygons(limits);
    double roughness = 0;
    for (const Figure figure : figures()) {
        const GridField field = finer.fieldOf(figure);
        const ValueRange range = rangeWithin(field, within);
        const std::vector<double> levels = roundLevels(range);
        for (int point = 0; point < finer.grid.count(); ++point) {
            // Between two points of the coarser map: next to, above, or across.
            const int right = point % field.columns % 2;
            const int up = point / field.columns % 2;
            const int step = right + up * field.columns;
            if (step == 0 || !isWithin(within, field.place(point))) continue;
            const auto value = [&](int node) { return field.valueAt(node); };
            if (!value(point - step) || !value(point) || !value(point + step)) continue;
            const auto [least, most] = std::minmax({*value(point - step), *value(point + step)});
            const auto above = std::ranges::upper_bound(levels, least);
            if (above == levels.end() || *above >= most) continue;
            roughness = std::max(roughness, std::abs(*value(point) - (least + most) / 2) / range.width());
        }
    }
    return roughness;
}

void refineMap(Calculator& calculator, const PreparedCompressor& compressor,
               const clsProjectConditions& conditions, const IsWanted& isWanted,
               const std::function<void(const PerformanceMap&, bool isLast)>& handOut) {
    constexpr int first = 21;
    constexpr int finest = 81;
    const Envelope* const envelope = compressor.envelopeFor(conditions.EcoCalculateMode);
    std::optional<MapGrid> grid = envelope ? gridOver(envelope->limits, first, first) : std::nullopt;
    std::optional<PerformanceMap> coarser;
    for (bool isLast = false; grid && !isLast; grid = grid->finer()) {
        std::optional<PerformanceMap> map =
            mapOver(calculator, compressor, conditions, *grid, coarser ? &*coarser : nullptr, isWanted);
        if (!map) return;
        constexpr double nearer = 4;
        isLast = grid->columns >= finest ||
                 (coarser && roughnessOf(*map, envelope->limits) <= nearer * lineTolerance);
        handOut(*map, isLast);
        coarser = std::move(map);
    }
}

std::optional<double> mappedValueOf(const Performance& performance, Figure figure) {
    if (figure != Figure::cop || !performance.hasValues()) return valueOf(performance, figure);
    const Performance::Duty& duty = performance.duty();
    return duty.power > 0 ? std::optional(duty.capacity / duty.power) : std::nullopt;
}

GridField PerformanceMap::fieldOf(Figure figure) const {
    GridField field{.lowerLeft = {grid.lowTed, grid.lowTcd},
                    .upperRight = {grid.highTed, grid.highTcd},
                    .columns = grid.columns,
                    .rows = grid.rows,
                    .nodes = {},
                    .values = {},
                    .ends = {}};
    for (const Performance& point : points) {
        const auto value = mappedValueOf(point, figure);
        field.nodes.push_back(value                                ? GridField::Node::value
                              : point.state == PointState::outside ? GridField::Node::outside
                                                                   : GridField::Node::hole);
        field.values.push_back(value.value_or(0));
    }
    for (const auto& [key, end] : ends)
        if (const auto value = mappedValueOf(end.last, figure))
            field.ends.emplace(key, GridField::End{end.part, *value});
    return field;
}

}  // namespace marvello

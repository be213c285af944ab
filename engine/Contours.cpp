#include "engine/Contours.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>

#include "engine/PieceJoiner.h"

namespace marvello {

namespace {

using Node = GridField::Node;
using Edge = GridField::Edge;

/// A corner of a triangle.
struct Corner {
    PlanePoint place;
    double value;
};
using Triangle = std::array<Corner, 3>;

/// Gives nodes outside that are next to others the value that continues these, up to the third power of the
/// distance.
class Continuation {
  public:
    explicit Continuation(GridField& field) : field_(field) {}

    void run() {
        // A corner of the polygon may be narrower than a cell for some cells.
        constexpr int furthest = 4;
        for (int turn = 0; turn < furthest; ++turn) {
            std::vector<std::pair<int, double>> found;
            for (int row = 0; row < field_.rows; ++row)
                for (int column = 0; column < field_.columns; ++column)
                    if (const auto value = continued(column, row))
                        found.emplace_back(row * field_.columns + column, *value);
            for (const auto& [node, value] : found) {
                field_.nodes[static_cast<std::size_t>(node)] = Node::value;
                field_.values[static_cast<std::size_t>(node)] = value;
            }
        }
    }

  private:
    std::optional<double> valueAt(int column, int row) const {
        if (column < 0 || row < 0 || column >= field_.columns || row >= field_.rows) return std::nullopt;
        return field_.valueAt(row * field_.columns + column);
    }

    /// The mean of what the directions with the most neighbours say.
    std::optional<double> continued(int column, int row) const {
        if (field_.nodes[static_cast<std::size_t>(row * field_.columns + column)] != Node::outside) return {};
        std::size_t most = 0;
        double sum = 0;
        int count = 0;
        for (int right = -1; right <= 1; ++right)
            for (int up = -1; up <= 1; ++up) {
                std::array<double, 4> f{};
                std::size_t known = 0;
                for (; known < f.size() && (right != 0 || up != 0); ++known) {
                    const int steps = static_cast<int>(known) + 1;
                    const auto value = valueAt(column + right * steps, row + up * steps);
                    if (!value) break;
                    f[known] = *value;
                }
                if (known == 0 || known < most) continue;
                if (known > most) sum = count = 0;
                most = known;
                sum += beyond(f, known);
                ++count;
            }
        return count > 0 ? std::optional(sum / count) : std::nullopt;
    }

    static double beyond(const std::array<double, 4>& f, std::size_t known) {
        switch (known) {
            case 1:
                return f[0];
            case 2:
                return 2 * f[0] - f[1];
            case 3:
                return 3 * (f[0] - f[1]) + f[2];
            default:
                return 4 * (f[0] + f[2]) - 6 * f[1] - f[3];
        }
    }

    GridField& field_;
};

/// Cuts triangles by levels and polygons.
class Cutter {
  public:
    Cutter(const GridField& field, std::span<const PlanePolygon> within, std::span<const double> levels)
        : field_(field), levels_(levels.begin(), levels.end()) {
        for (const PlanePolygon& polygon : within) {
            within_.push_back(polygon);
            if (areaOf(polygon) < 0) std::ranges::reverse(within_.back());
        }
        const double cell = std::min((field.upperRight.x - field.lowerLeft.x) / (field.columns - 1),
                                     (field.upperRight.y - field.lowerLeft.y) / (field.rows - 1));
        const double tolerance = cell * 1e-7;
        bands_.assign(levels.size() + 1, PieceJoiner(tolerance));
        lines_.assign(levels.size(), SegmentJoiner(tolerance));
        Continuation(field_).run();
        markCells();
    }

    Contours run() {
        for (int row = 0; row + 1 < field_.rows; ++row)
            for (int column = 0; column + 1 < field_.columns; ++column) cutCell(column, row);
        Contours result{.levels = levels_, .lines = {}, .bands = {}};
        for (std::size_t i = 0; i < lines_.size(); ++i)
            result.lines.push_back({levels_[i], lines_[i].lines()});
        for (const PieceJoiner& band : bands_) result.bands.push_back({band.borders()});
        return result;
    }

  private:
    enum class Cell : std::uint8_t { outside, inside, cut };

    /// Which cells an edge of a polygon passes, and which of the others are inside.
    void markCells() {
        cells_.assign(static_cast<std::size_t>((field_.columns - 1) * (field_.rows - 1)), Cell::outside);
        for (int row = 0; row + 1 < field_.rows; ++row)
            for (int column = 0; column + 1 < field_.columns; ++column) {
                const int node = row * field_.columns + column;
                const PlanePoint low = field_.place(node);
                const PlanePoint high = field_.place(node + field_.columns + 1);
                const PlanePolygon box{low, {high.x, low.y}, high, {low.x, high.y}};
                const PlanePoint middle{(low.x + high.x) / 2, (low.y + high.y) / 2};
                cells_[cellOf(column, row)] =
                    std::ranges::any_of(within_,
                                        [&](const auto& polygon) { return isPassedBy(polygon, low, high); })
                        ? Cell::cut
                    : isWithin(within_, middle) ? Cell::inside
                                                : Cell::outside;
            }
    }

    static bool isPassedBy(const PlanePolygon& polygon, const PlanePoint& low, const PlanePoint& high) {
        PlanePoint from = polygon.empty() ? PlanePoint() : polygon.back();
        for (const PlanePoint& to : polygon) {
            const PlanePoint start = from;
            from = to;
            if (std::max(start.x, to.x) < low.x || std::min(start.x, to.x) > high.x ||
                std::max(start.y, to.y) < low.y || std::min(start.y, to.y) > high.y)
                continue;
            const HalfPlane side = HalfPlane::leftOf(start, to);
            const auto [least, most] = std::minmax(
                {side.at(low), side.at({high.x, low.y}), side.at(high), side.at({low.x, high.y})});
            if (least <= 0 && most >= 0) return true;
        }
        return false;
    }

    std::size_t cellOf(int column, int row) const {
        return static_cast<std::size_t>(row * (field_.columns - 1) + column);
    }

    void cutCell(int column, int row) {
        cell_ = cells_[cellOf(column, row)];
        if (cell_ == Cell::outside) return;
        const int node = row * field_.columns + column;
        cutTriangle({node, node + 1, node + field_.columns + 1},
                    {GridField::endKey(node, Edge::right), GridField::endKey(node + 1, Edge::up),
                     GridField::endKey(node, Edge::diagonal)});
        cutTriangle(
            {node, node + field_.columns + 1, node + field_.columns},
            {GridField::endKey(node, Edge::diagonal), GridField::endKey(node + field_.columns, Edge::right),
             GridField::endKey(node, Edge::up)});
    }

    Corner cornerAt(int node) const {
        return {field_.place(node), field_.values[static_cast<std::size_t>(node)]};
    }

    /// Where the quantity ends between a node with a value and one without.
    Corner endAt(int known, int missing, int key) const {
        const int own = key / 3;
        const auto found = field_.ends.find(key);
        const PlanePoint from = field_.place(own);
        const PlanePoint to = field_.place(own == known ? missing : known);
        const GridField::End end =
            found == field_.ends.end() ? GridField::End{0.5, cornerAt(known).value} : found->second;
        return {{std::lerp(from.x, to.x, end.part), std::lerp(from.y, to.y, end.part)}, end.value};
    }

    /// `edges`: those from each corner to the next.
    void cutTriangle(const std::array<int, 3>& corners, const std::array<int, 3>& edges) {
        std::array<Corner, 4> shape{};
        std::size_t count = 0;
        const auto isKnown = [&](std::size_t i) {
            return field_.nodes[static_cast<std::size_t>(corners[i])] == Node::value;
        };
        for (std::size_t i = 0; i < 3; ++i) {
            const std::size_t next = (i + 1) % 3;
            if (isKnown(i)) shape[count++] = cornerAt(corners[i]);
            if (isKnown(i) && !isKnown(next)) shape[count++] = endAt(corners[i], corners[next], edges[i]);
            if (!isKnown(i) && isKnown(next)) shape[count++] = endAt(corners[next], corners[i], edges[i]);
        }
        if (count >= 3) cut({shape[0], shape[1], shape[2]});
        if (count == 4) cut({shape[0], shape[2], shape[3]});
    }

    void cut(const Triangle& triangle) {
        const auto [least, most] = std::minmax({triangle[0].value, triangle[1].value, triangle[2].value});
        const auto first = std::ranges::upper_bound(levels_, least) - levels_.begin();
        for (auto band = static_cast<std::size_t>(first); band < bands_.size(); ++band) {
            addPiece(band, triangle);
            if (band == levels_.size() || levels_[band] > most) break;
            addSegment(band, triangle);
        }
    }

    void addPiece(std::size_t band, const Triangle& triangle) {
        std::vector<Corner> part(triangle.begin(), triangle.end());
        if (band > 0) part = above(part, levels_[band - 1], 1);
        if (band < levels_.size()) part = above(part, levels_[band], -1);
        PlanePolygon piece;
        for (const Corner& corner : part) piece.push_back(corner.place);
        if (cell_ == Cell::inside) {
            bands_[band].add(piece);
            return;
        }
        if (!(areaOf(piece) > 0)) return;  // a point or a line
        for (PlanePolygon inside : within_) {
            for (std::size_t i = 0; i < piece.size() && !inside.empty(); ++i) {
                const PlanePoint& next = piece[(i + 1) % piece.size()];
                if (piece[i] != next) inside = clipped(inside, HalfPlane::leftOf(piece[i], next));
            }
            bands_[band].add(inside);
        }
    }

    /// The part of a convex shape with values at least (`sign` 1) or at most (-1) a level.
    static std::vector<Corner> above(const std::vector<Corner>& shape, double level, double sign) {
        std::vector<Corner> part;
        for (std::size_t i = 0; i < shape.size(); ++i) {
            const Corner& from = shape[i];
            const Corner& to = shape[(i + 1) % shape.size()];
            const double fromAt = sign * (from.value - level);
            const double toAt = sign * (to.value - level);
            if (fromAt >= 0) part.push_back(from);
            if ((fromAt > 0 && toAt < 0) || (fromAt < 0 && toAt > 0))
                part.push_back({between(from, to, level), level});
        }
        return part;
    }

    static PlanePoint between(const Corner& from, const Corner& to, double level) {
        const double part = (level - from.value) / (to.value - from.value);
        return {std::lerp(from.place.x, to.place.x, part), std::lerp(from.place.y, to.place.y, part)};
    }

    void addSegment(std::size_t line, const Triangle& triangle) {
        const double level = levels_[line];
        std::vector<PlanePoint> ends;
        for (std::size_t i = 0; i < 3; ++i) {
            const Corner& from = triangle[i];
            const Corner& to = triangle[(i + 1) % 3];
            if ((from.value >= level) != (to.value >= level)) ends.push_back(between(from, to, level));
        }
        if (ends.size() != 2) return;
        if (cell_ == Cell::inside) {
            lines_[line].add(ends[0], ends[1]);
            return;
        }
        const auto at = [&](double part) {
            return PlanePoint{std::lerp(ends[0].x, ends[1].x, part), std::lerp(ends[0].y, ends[1].y, part)};
        };
        for (const PlanePolygon& polygon : within_)
            for (const auto& [begin, end] : partsInside(polygon, ends[0], ends[1]))
                lines_[line].add(at(begin), at(end));
    }

    GridField field_;
    std::vector<double> levels_;
    std::vector<PlanePolygon> within_;  ///< against the clock
    std::vector<Cell> cells_;
    Cell cell_ = Cell::outside;  ///< of the triangle in work
    std::vector<PieceJoiner> bands_;
    std::vector<SegmentJoiner> lines_;
};

}  // namespace

PlanePoint GridField::place(int node) const {
    const auto along = [](double from, double to, int step, int count) {
        return std::lerp(from, to, static_cast<double>(step) / (count - 1));
    };
    return {along(lowerLeft.x, upperRight.x, node % columns, columns),
            along(lowerLeft.y, upperRight.y, node / columns, rows)};
}

std::optional<double> GridField::valueAt(int node) const {
    const auto index = static_cast<std::size_t>(node);
    return nodes[index] == Node::value ? std::optional(values[index]) : std::nullopt;
}

double ContourBand::area() const {
    double sum = 0;
    for (const PlanePolygon& border : borders) sum += areaOf(border);
    return sum;
}

Contours contoursOf(const GridField& field, std::span<const PlanePolygon> within,
                    std::span<const double> levels) {
    return Cutter(field, within, levels).run();
}

ValueRange rangeWithin(const GridField& field, std::span<const PlanePolygon> within) {
    ValueRange range{std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};
    for (int node = 0; node < field.columns * field.rows; ++node) {
        const auto value = field.valueAt(node);
        if (!value || !isWithin(within, field.place(node))) continue;
        range.minimum = std::min(range.minimum, *value);
        range.maximum = std::max(range.maximum, *value);
    }
    return range.minimum <= range.maximum ? range : ValueRange();
}

std::vector<double> roundLevels(const ValueRange& range) {
    constexpr std::size_t fewest = 5;
    constexpr std::size_t most = 8;
    const double magnitude = range.width() / most;
    if (!(magnitude > 0) || !std::isfinite(magnitude)) return {};
    // The rounder ones first.
    const double power = std::floor(std::log10(magnitude));
    for (const auto& steps :
         {std::array{1.0, 2.0, 5.0, 10.0}, std::array{2.5, 4.0, 25.0, 40.0}, std::array{1.5, 3.0, 6.0, 8.0}})
        for (const double step : steps) {
            // Divided by a whole number where it can be, so that levels such as 0.3 are what they say.
            const double whole = std::pow(10.0, std::abs(power));
            const auto multiple = [&](double count) {
                return power < 0 ? count * step / whole : count * step * whole;
            };
            std::vector<double> levels;
            for (double count = std::floor(range.minimum / multiple(1)) + 1; levels.size() <= most; ++count) {
                if (multiple(count) >= range.maximum) break;
                if (multiple(count) > range.minimum) levels.push_back(multiple(count));
            }
            if (levels.size() >= fewest && levels.size() <= most) return levels;
        }
    return {};
}

}  // namespace marvello

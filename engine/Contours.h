#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

#include "engine/PlanePolygon.h"

namespace marvello {

/// Values of a quantity at the nodes of a regular grid over a rectangle. Node (column, row) has the number
/// row * columns + column, from the lower left corner; columns and rows are at least 2.
struct GridField {
    enum class Node : std::uint8_t {
        value,
        outside,  ///< Without a value: the quantity goes on as its neighbours have it.
        hole      ///< Without a value: the quantity ends before it.
    };
    /// The three edges of a node: to the right, upwards, and both at once.
    enum class Edge : std::uint8_t { right, up, diagonal };
    /// Where on an edge between a node with a value and a hole the quantity ends.
    struct End {
        double part;   ///< of the way from the edge's own node
        double value;  ///< of the quantity there
    };

    PlanePoint lowerLeft;
    PlanePoint upperRight;
    int columns = 0;
    int rows = 0;
    std::vector<Node> nodes;
    std::vector<double> values;
    std::unordered_map<int, End> ends;  ///< by endKey(); an edge without one ends in its middle

    static int endKey(int node, Edge edge) { return node * 3 + static_cast<int>(edge); }
    PlanePoint place(int node) const;
    /// None for a node without a value.
    std::optional<double> valueAt(int node) const;
};

/// A line on which a quantity has one value, in parts that do not hang together. A closed part ends where it
/// begins.
struct Isoline {
    double level;
    std::vector<std::vector<PlanePoint>> parts;
};

/// Where a quantity is from one level to the next: the borders of the area, those of holes the other way
/// round, to be filled by their winding.
struct ContourBand {
    std::vector<PlanePolygon> borders;

    double area() const;
};

/// Isolines of a quantity and the bands between them, the first below the first level.
struct Contours {
    std::vector<double> levels;
    std::vector<Isoline> lines;      ///< one for each level
    std::vector<ContourBand> bands;  ///< one more than levels
};

/// Returns isolines and bands of a field within polygons that do not overlap, at rising levels. Between the
/// nodes of a triangle the field is even; cells are cut from lower left to upper right.
Contours contoursOf(const GridField& field, std::span<const PlanePolygon> within,
                    std::span<const double> levels);

/// The smallest and the largest value.
struct ValueRange {
    double minimum = 0;
    double maximum = 0;

    double width() const { return maximum - minimum; }
};

/// Returns the range of a field at its nodes in the polygons. An empty range if there is none.
ValueRange rangeWithin(const GridField& field, std::span<const PlanePolygon> within);

/// Returns 5 to 8 round numbers in a range, at equal distances; none in an empty range.
std::vector<double> roundLevels(const ValueRange& range);

}  // namespace marvello

#include "engine/Contours.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <numbers>
#include <numeric>
#include <random>

#include "engine/PieceJoiner.h"

namespace marvello {
namespace {

using Surface = std::function<double(double x, double y)>;
using Node = GridField::Node;

/// A surface over a rectangle, known everywhere.
GridField fieldOf(const PlanePoint& low, const PlanePoint& high, int side, const Surface& surface) {
    GridField field{.lowerLeft = low,
                    .upperRight = high,
                    .columns = side,
                    .rows = side,
                    .nodes = {},
                    .values = {},
                    .ends = {}};
    for (int node = 0; node < side * side; ++node) {
        const PlanePoint at = field.place(node);
        field.nodes.push_back(Node::value);
        field.values.push_back(surface(at.x, at.y));
    }
    return field;
}

std::vector<PlanePolygon> only(const PlanePolygon& polygon) { return {polygon}; }

double bandArea(const Contours& contours) {
    return std::accumulate(contours.bands.begin(), contours.bands.end(), 0.0,
                           [](double sum, const ContourBand& band) { return sum + band.area(); });
}

double lengthOf(const Isoline& line) {
    double length = 0;
    for (const auto& part : line.parts)
        for (std::size_t i = 1; i < part.size(); ++i)
            length += std::hypot(part[i].x - part[i - 1].x, part[i].y - part[i - 1].y);
    return length;
}

const PlanePolygon square{{0, 0}, {10, 0}, {10, 10}, {0, 10}};
/// With a notch from above; clockwise.
const PlanePolygon notched{{1, 1}, {1, 9}, {4, 9}, {5, 2.5}, {6, 9}, {9.3, 9}, {9.3, 1}};

}  // namespace

TEST(Contours, OfAPlaneAreStripes) {
    const GridField field = fieldOf({0, 0}, {10, 10}, 12, [](double x, double) { return x; });
    const Contours contours = contoursOf(field, only(square), std::vector{2.0, 5.0});
    ASSERT_EQ(contours.bands.size(), 3U);
    EXPECT_NEAR(contours.bands[0].area(), 20, 1e-9);
    EXPECT_NEAR(contours.bands[1].area(), 30, 1e-9);
    EXPECT_NEAR(contours.bands[2].area(), 50, 1e-9);
    ASSERT_EQ(contours.lines.size(), 2U);
    for (const Isoline& line : contours.lines) {
        ASSERT_EQ(line.parts.size(), 1U) << "one line from edge to edge";
        EXPECT_NEAR(lengthOf(line), 10, 1e-9);
        for (const PlanePoint& at : line.parts.front()) EXPECT_NEAR(at.x, line.level, 1e-12);
    }
}

TEST(Contours, OfALevelThatIsAtNodesAreWhole) {
    const GridField field = fieldOf({0, 0}, {10, 10}, 11, [](double x, double y) { return x + y; });
    const Contours contours = contoursOf(field, only(square), std::vector{8.0});
    ASSERT_EQ(contours.lines.front().parts.size(), 1U);
    EXPECT_NEAR(lengthOf(contours.lines.front()), 8 * std::numbers::sqrt2, 1e-9);
    EXPECT_NEAR(contours.bands[0].area(), 32, 1e-9);
    EXPECT_NEAR(contours.bands[1].area(), 68, 1e-9);
    EXPECT_EQ(contours.bands[0].borders.size(), 1U);
}

TEST(Contours, OfAConeAreCirclesThatClose) {
    const GridField field =
        fieldOf({-5, -5}, {5, 5}, 101, [](double x, double y) { return std::hypot(x, y); });
    const PlanePolygon around{{-5, -5}, {5, -5}, {5, 5}, {-5, 5}};
    const Contours contours = contoursOf(field, only(around), std::vector{2.0, 4.0});
    for (const Isoline& line : contours.lines) {
        ASSERT_EQ(line.parts.size(), 1U);
        EXPECT_EQ(line.parts.front().front(), line.parts.front().back());
        // A chord of a cell of 0.1 is off by less than 0.1 * 0.1 / 8 / r.
        for (const PlanePoint& at : line.parts.front())
            EXPECT_NEAR(std::hypot(at.x, at.y), line.level, 0.01 / 8 / line.level * 2);
        EXPECT_NEAR(lengthOf(line), 2 * std::numbers::pi * line.level, 0.01);
    }
    EXPECT_NEAR(contours.bands[0].area(), 4 * std::numbers::pi, 0.02);
    EXPECT_NEAR(contours.bands[1].area(), 12 * std::numbers::pi, 0.02);
    EXPECT_EQ(contours.bands[1].borders.size(), 2U) << "a ring has a hole";
}

TEST(Contours, OfASaddleCrossAtItsLevel) {
    const GridField field = fieldOf({-1, -1}, {1, 1}, 21, [](double x, double y) { return x * y; });
    const PlanePolygon around{{-1, -1}, {1, -1}, {1, 1}, {-1, 1}};
    const Contours contours = contoursOf(field, only(around), std::vector{-0.1, 0.0, 0.1});
    // Above 0 are two of the quarters. Of a quarter, 0.1 - 0.1 * ln 0.1 is below 0.1.
    EXPECT_NEAR(contours.bands[2].area() + contours.bands[3].area(), 2, 0.06);
    EXPECT_NEAR(contours.bands[3].area(), 2 * (1 - 0.1 + 0.1 * std::log(0.1)), 0.01);
    EXPECT_NEAR(bandArea(contours), 4, 1e-9);
    EXPECT_EQ(contours.lines[0].parts.size(), 2U);
    EXPECT_EQ(contours.lines[2].parts.size(), 2U);
}

TEST(Contours, FillAConcavePolygonWhateverTheSurface) {
    std::mt19937 random(3);
    std::uniform_real_distribution<double> factor(-3, 3);
    for (int turn = 0; turn < 50; ++turn) {
        const double a = factor(random);
        const double b = factor(random);
        const double c = factor(random);
        const GridField field = fieldOf({1, 1}, {9.3, 9}, 9 + turn, [&](double x, double y) {
            return a * x + b * y + c * std::sin(x * b) * std::cos(y);
        });
        const auto levels = roundLevels(rangeWithin(field, only(notched)));
        ASSERT_FALSE(levels.empty());
        const Contours contours = contoursOf(field, only(notched), levels);
        EXPECT_NEAR(bandArea(contours), std::abs(areaOf(notched)), 1e-6) << turn;
        for (const Isoline& line : contours.lines)
            for (const auto& part : line.parts)
                for (std::size_t i = 1; i < part.size(); ++i) {
                    const PlanePoint middle{(part[i].x + part[i - 1].x) / 2, (part[i].y + part[i - 1].y) / 2};
                    EXPECT_TRUE(isInside(notched, middle));
                }
    }
}

TEST(Contours, GoOnToThePolygonWithoutValuesOutsideOfIt) {
    const auto surface = [](double x, double y) { return 0.01 * x * x * x - 0.2 * x * y + 0.3 * y * y; };
    const GridField whole = fieldOf({1, 1}, {9.3, 9}, 31, surface);
    GridField known = whole;
    for (int node = 0; node < known.columns * known.rows; ++node)
        if (!isInside(notched, known.place(node))) {
            known.nodes[static_cast<std::size_t>(node)] = Node::outside;
            known.values[static_cast<std::size_t>(node)] = 0;
        }
    const std::vector<double> levels{0, 4, 8, 12};
    const Contours expected = contoursOf(whole, only(notched), levels);
    const Contours contours = contoursOf(known, only(notched), levels);
    EXPECT_NEAR(bandArea(contours), std::abs(areaOf(notched)), 1e-6);
    for (std::size_t band = 0; band < expected.bands.size(); ++band)
        EXPECT_NEAR(contours.bands[band].area(), expected.bands[band].area(), 1e-3);
}

TEST(Contours, EndBeforeAHole) {
    // Values only right of x + y / 10 = 4.
    const auto edge = [](double y) { return 4 - y / 10; };
    GridField field = fieldOf({0, 0}, {10, 10}, 21, [](double x, double y) { return x + y; });
    const auto isHole = [&](const PlanePoint& at) { return at.x < edge(at.y); };
    for (int node = 0; node < 441; ++node) {
        const PlanePoint at = field.place(node);
        if (isHole(at)) field.nodes[static_cast<std::size_t>(node)] = Node::hole;
        const auto addEnd = [&](GridField::Edge kind, const PlanePoint& to) {
            if (isHole(at) == isHole(to)) return;
            // Along the way x + y / 10 grows evenly.
            const double own = at.x + at.y / 10;
            const double part = (4 - own) / (to.x + to.y / 10 - own);
            field.ends[GridField::endKey(node, kind)] = {
                part, std::lerp(at.x, to.x, part) + std::lerp(at.y, to.y, part)};
        };
        addEnd(GridField::Edge::right, {at.x + 0.5, at.y});
        addEnd(GridField::Edge::up, {at.x, at.y + 0.5});
        addEnd(GridField::Edge::diagonal, {at.x + 0.5, at.y + 0.5});
    }
    const Contours contours = contoursOf(field, only(square), std::vector{8.0, 12.0});
    EXPECT_NEAR(bandArea(contours), 100 - 35, 1e-9) << "a trapezium of 4 and 3 is left out";
    EXPECT_NEAR(lengthOf(contours.lines[0]), 40.0 / 9 * std::numbers::sqrt2, 1e-9)
        << "from 8, 0 up to where 0.9 x is 3.2";
    for (const PlanePoint& at : contours.lines[0].parts.front()) EXPECT_GE(at.x + at.y / 10, 4 - 1e-9);
}

TEST(RoundLevels, AreFiveToEightWhateverTheRange) {
    std::mt19937 random(5);
    std::uniform_real_distribution<double> exponent(-4, 6);
    std::uniform_real_distribution<double> part(-1, 1);
    for (int turn = 0; turn < 20'000; ++turn) {
        const double width = std::pow(10, exponent(random));
        const double start = part(random) * 10 * width;
        const auto levels = roundLevels({start, start + width});
        ASSERT_GE(levels.size(), 5U) << start << " " << width;
        ASSERT_LE(levels.size(), 8U) << start << " " << width;
        EXPECT_GT(levels.front(), start);
        EXPECT_LT(levels.back(), start + width);
    }
    EXPECT_EQ(roundLevels({1.72, 8.4}), (std::vector<double>{2, 3, 4, 5, 6, 7, 8}));
    EXPECT_EQ(roundLevels({0.05, 0.75}), (std::vector<double>{0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7}));
    EXPECT_TRUE(roundLevels({3, 3}).empty());
}

TEST(SegmentJoiner, JoinsInAnyOrderAndDirection) {
    SegmentJoiner joiner(1e-9);
    joiner.add({2, 0}, {1, 0});
    joiner.add({3, 0}, {4, 0});
    joiner.add({2 + 1e-12, 0}, {3, 0});
    joiner.add({1, 0}, {0, 0});
    joiner.add({9, 9}, {8, 8});
    const auto lines = joiner.lines();
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].size(), 5U);
}

}  // namespace marvello

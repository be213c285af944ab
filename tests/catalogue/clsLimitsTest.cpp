#include "catalogue/clsLimits.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <stdexcept>
#include <utility>

namespace marvello {
namespace {

std::shared_ptr<clsLimit> limitOf(int type, const char* points) {
    auto limit = std::make_shared<clsLimit>();
    limit->setType(type);
    limit->Points = parsePoints(points);
    return limit;
}

TEST(parsePoints, BracketsFurtherElementsAndFaults) {
    const clsPoints points = parsePoints("(-20.5,30);(10 , 3e1,99);(1,-2)");
    ASSERT_EQ(points.Count(), 3);
    EXPECT_EQ(points.Item(1).x, -20.5);
    EXPECT_EQ(points.Item(2).Y, 30);
    EXPECT_EQ(points.getLeftPoint()->x, -20.5);
    EXPECT_EQ(points.getLeftPoint()->Y, 30);
    EXPECT_EQ(points.getRightPoint()->x, 10);
    EXPECT_EQ(points.getRightPoint()->Y, -2);
    clsPoints fewer = points;
    fewer.Remove(2);
    EXPECT_EQ(fewer.Item(1).x, -20.5);
    EXPECT_EQ(fewer.Item(2).Y, -2);
    EXPECT_EQ(fewer.getRightPoint()->x, 10);  // the corners stay
    for (const char* bad : {"", "1,2;", "1", "1,2;x,3", "1;2", "1,,2", "nan,1", "1,2;;3,4"}) {
        EXPECT_THROW(parsePoints(bad), std::invalid_argument) << bad;
    }
}

TEST(polygonTest, ClosedAndOpenSquares) {
    const clsPoints closed = parsePoints("0,0;10,0;10,10;0,10;0,0");
    EXPECT_EQ(polygonTest(closed, 5, 5), PolygonState::inside);
    EXPECT_EQ(polygonTest(closed, 50, 5), PolygonState::outside);
    EXPECT_EQ(polygonTest(closed, 10, 10), PolygonState::onVertex);
    const clsPoints open = parsePoints("0,0;10,0;10,10;0,10");
    EXPECT_EQ(polygonTest(open, 5, 5), PolygonState::inside);
    EXPECT_EQ(polygonTest(open, -1, 5), PolygonState::undecided);  // just beyond the edge that is not there
    const clsPoints triangle = parsePoints("0,0;10,0;0,10");
    EXPECT_EQ(polygonTest(triangle, 0, 0), PolygonState::undecided);
    EXPECT_EQ(polygonTest(parsePoints("0,0;10,0;0,10;0,0"), 2, 2), PolygonState::inside);
}

// The angles of the axes are told one by one: a point straight above, below and next to the corners of a
// diamond.
TEST(polygonTest, CornersStraightAboveBelowAndBeside) {
    for (const char* diamond : {"5,0;10,5;5,10;0,5;5,0", "5,0;0,5;5,10;10,5;5,0"}) {
        const clsPoints line = parsePoints(diamond);
        EXPECT_EQ(polygonTest(line, 5, 5), PolygonState::inside);
        for (const auto& [x, y] : {std::pair{5, -3}, {5, 13}, {-3, 5}, {13, 5}}) {
            EXPECT_EQ(polygonTest(line, x, y), PolygonState::outside) << x << " " << y;
        }
    }
}

/// Second method: how often a ray to the right crosses the edges.
bool crossesOddly(const clsPoints& line, double x, double y) {
    bool inside = false;
    for (int i = 1; i < line.Count(); ++i) {
        const clsPoint& a = line.Item(i);
        const clsPoint& b = line.Item(i + 1);
        if ((a.Y > y) != (b.Y > y) && x < (b.x - a.x) * (y - a.Y) / (b.Y - a.Y) + a.x) inside = !inside;
    }
    return inside;
}

TEST(polygonTest, AgreesWithRayCastingOnAConcaveLineInBothDirections) {
    const clsPoints around = parsePoints("-20,20;12,20;15,30;15,60;0,55;-5,40;-12,50;-20,35;-20,20");
    clsPoints reversed;
    for (int i = around.Count(); i >= 1; --i) reversed.add(around.Item(i).x, around.Item(i).Y);
    std::mt19937 random(7);
    std::uniform_real_distribution<double> x(-30, 25);
    std::uniform_real_distribution<double> y(10, 70);
    for (int i = 0; i < 5000; ++i) {
        const double px = x(random);
        const double py = y(random);
        const auto expected = crossesOddly(around, px, py) ? PolygonState::inside : PolygonState::outside;
        ASSERT_EQ(polygonTest(around, px, py), expected) << px << " " << py;
        ASSERT_EQ(polygonTest(reversed, px, py), expected) << px << " " << py;
    }
}

// The same line with each point many times over has its angles summed wherever the point is.
TEST(polygonTest, CountsWhatTheSumOfTheAnglesSays) {
    constexpr int times = 15;
    const clsPoints line = parsePoints("-20,20;12,20;15,30;15,60;0,55;-5,40;-12,50;-20,35;-20,20");
    clsPoints repeated;
    for (const clsPoint& point : line)
        for (int i = 0; i < times; ++i) repeated.add(point.x, point.Y);
    ASSERT_GT(repeated.Count(), 100);
    std::mt19937 random(11);
    std::uniform_real_distribution<double> part(0, 1);
    std::normal_distribution<double> aside(0, 0.02);  // K: to both sides of where counting begins
    for (int i = 0; i < 20000; ++i) {
        const int edge = 1 + i % (line.Count() - 1);
        const clsPoint& from = line.Item(edge);
        const clsPoint& to = line.Item(edge + 1);
        const double along = part(random);
        const double x = from.x + along * (to.x - from.x) + aside(random);
        const double y = from.Y + along * (to.Y - from.Y) + aside(random);
        ASSERT_EQ(polygonTest(line, x, y), polygonTest(repeated, x, y)) << x << " " << y;
    }
}

TEST(clsLimits, LimitsAroundAPointKeepTheirOrderAndIdentity) {
    clsLimits limits;
    limits.add(limitOf(-1, "-30,10;30,10;30,80;-30,80;-30,10"));
    limits.add(limitOf(6, "-5,25;5,25;5,35;-5,35;-5,25"));
    limits.add(limitOf(0, "-20,20;15,20;15,60;-20,60;-20,20"));
    const clsLimits around = limits.GetLimitsFromPoint(10, 50);
    ASSERT_EQ(around.Count(), 2);
    EXPECT_EQ(&around.Item(1), &limits.Item(1));
    EXPECT_EQ(&around.Item(2), &limits.Item(3));
    EXPECT_TRUE(around.FindLimitType(0));
    EXPECT_FALSE(around.FindLimitType(6));
    EXPECT_EQ(limits.GetLimitsFromPoint(100, 50).Count(), 0);
    EXPECT_EQ(limits.getLeftPoint()->x, -30);
    EXPECT_EQ(limits.getLeftPoint()->Y, 80);
    limits.Remove(1);
    EXPECT_EQ(limits.getLeftPoint()->x, -30);  // corners do not shrink
    EXPECT_EQ(limits.GetLimitType(-1), nullptr);
    EXPECT_THROW(limits.add(std::make_shared<clsLimit>()), std::invalid_argument);
}

}  // namespace
}  // namespace marvello

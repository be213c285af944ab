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

TEST(clsLimit, AttributesFollowTheType) {
    struct Look {
        int type, style, red, green, blue, width;
        const char *description, *caption;
        bool visible;
    };
    // Colours as the pictures of the graph name them.
    for (const Look& look : {
             Look{-1, 1, 0xFF, 0, 0, 2, "Over limit", "", true},
             Look{0, 0, 0, 0, 0, 3, "Application limit", "", true},
             Look{1, 0, 0xFF, 0x82, 0, 2, "Iniection limit", "", true},
             Look{2, 0, 0x84, 0x82, 0xFF, 2, "Oil cooling limit", "", true},
             Look{3, 0, 0xFF, 0, 0xFF, 2, "Motor Small limit", "", true},
             Look{4, 2, 0x80, 0x80, 0x80, 2, "", "25%", true},
             Look{5, 4, 0x80, 0x80, 0x80, 2, "", "50%", true},
             Look{6, 2, 0x80, 0x80, 0x80, 2, "", "75%", true},
             Look{7, 0, 0, 0xC0, 0, 2, "Oil Filter", "", true},
             Look{8, 4, 0xFF, 0xFF, 0, 2, "H only", "", false},
             Look{9, 4, 0, 0xFF, 0, 2, "H suggested", "", false},
             Look{10, 4, 0, 0, 0xFF, 2, "S Suggested", "", false},
             Look{11, 0, 0xE7, 0, 0, 2, "", "", true},
             Look{12, 0, 0x69, 0x1C, 0, 2, "50Hz", "50Hz", true},
             Look{13, 0, 0x69, 0x1C, 0, 2, "60Hz", "60Hz", true},
             Look{14, 0, 0xD2, 0x04, 0, 2, "70Hz", "70Hz", true},
             Look{99, 0, 0, 0, 0, 2, "", "", true},
         }) {
        const auto limit = limitOf(look.type, "0,0");
        EXPECT_EQ(limit->DrawStyle, look.style) << look.type;
        EXPECT_EQ(limit->Color, look.red + 0x100 * look.green + 0x10000 * look.blue) << look.type;
        EXPECT_EQ(limit->DrawWidth, look.width) << look.type;
        EXPECT_EQ(limit->Description, look.description);
        EXPECT_EQ(limit->Caption, look.caption);
        EXPECT_EQ(limit->Visible, look.visible) << look.type;
    }
}

}  // namespace
}  // namespace marvello

#include "results/Chart.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace marvello {
namespace {

template <class Shape>
std::vector<Shape> shapesOf(const Drawing& drawing) {
    std::vector<Shape> shapes;
    for (const auto& shape : drawing.shapes)
        if (const auto* each = std::get_if<Shape>(&shape)) shapes.push_back(*each);
    return shapes;
}

bool hasText(const Drawing& drawing, const std::string& text) {
    for (const DrawnText& each : shapesOf<DrawnText>(drawing))
        if (each.text == text) return true;
    return false;
}

Chart twoAxes() {
    const CurveStyle rings{.line = CurveStyle::Line::none, .hasRings = true};
    return {.across = {.title = "Load %", .hasZero = true},
            .up = {.title = "COP"},
            .second = ChartAxis{.title = "Power kW", .hasZero = true},
            .curves = {{.points = {{25, 3.1}, {50, 3.6}, {100, 4.2}}, .style = rings},
                       {.points = {{25, 12}, {100, 37}}, .style = {}, .isOnSecond = true}}};
}

TEST(Chart, TheAxesAreRoundAndHoldAllValues) {
    const ChartPlane plane(twoAxes(), 600, 300);
    // 0 to 100 in at most nine steps; 3.1 to 4.2 and 0 to 37 in at most six.
    EXPECT_EQ(plane.across().low, 0);
    EXPECT_EQ(plane.across().high, 100);
    EXPECT_EQ(plane.across().step, 20);
    EXPECT_DOUBLE_EQ(plane.up().low, 3);
    EXPECT_DOUBLE_EQ(plane.up().high, 4.2);
    EXPECT_DOUBLE_EQ(plane.up().step, 0.2);
    EXPECT_EQ(plane.second().low, 0);
    EXPECT_EQ(plane.second().high, 40);
    EXPECT_DOUBLE_EQ(plane.placeOf({0, 3}).x, plane.left());
    EXPECT_DOUBLE_EQ(plane.placeOf({0, 3}).y, plane.bottom());
    EXPECT_DOUBLE_EQ(plane.placeOf({100, 40}, true).x, plane.right());
    EXPECT_DOUBLE_EQ(plane.placeOf({100, 40}, true).y, plane.top());
    EXPECT_DOUBLE_EQ(plane.placeOf({50, 10}, true).y, plane.bottom() - (plane.bottom() - plane.top()) / 4);
}

TEST(Chart, DrawsItsCurvesOnTheirAxes) {
    const Chart chart = twoAxes();
    const ChartPlane plane(chart, 600, 300);
    const Drawing drawing = chartDrawing(chart, {.width = 600, .height = 300, .marks = {.point = ","}});
    const auto rings = shapesOf<DrawnRing>(drawing);
    ASSERT_EQ(rings.size(), 3U);
    EXPECT_DOUBLE_EQ(rings[1].centre.x, plane.placeOf({50, 3.6}).x);
    EXPECT_DOUBLE_EQ(rings[1].centre.y, plane.placeOf({50, 3.6}).y);
    const DrawnLine last = shapesOf<DrawnLine>(drawing).back();
    EXPECT_DOUBLE_EQ(last.points.back().y, plane.placeOf({100, 37}, true).y);
    for (const char* text : {"3,2", "4", "40", "Load %", "COP", "Power kW"})
        EXPECT_TRUE(hasText(drawing, text)) << text;
    EXPECT_FALSE(hasText(drawing, "-0"));
}

TEST(Chart, ValuesThatAreAllAlikeHaveRoom) {
    Chart chart{.curves = {{.points = {{5, 3}}}}};
    const ChartPlane plane(chart, 400, 300);
    EXPECT_LT(plane.up().low, 3);
    EXPECT_GT(plane.up().high, 3);
    EXPECT_LT(plane.across().low, 5);
    chart.curves.clear();
    EXPECT_GT(chartDrawing(chart, {.width = 400, .height = 300}).shapes.size(), 2U) << "axes alone";
}

TEST(Chart, ALegendThatIsTooLongTakesAnotherRow) {
    Chart chart = twoAxes();
    // Samples of 28 and 8 after them, names of 175, 128 and 87, and 24 between two entries: 211 and 164 + 24
    // + 123 in 326 pixels.
    const double bare = ChartPlane(chart, 430, 300).top();
    for (const char* name : {"by turns between two steps", "runs intermittently", "capacity step"})
        chart.legend.push_back({name, {.line = CurveStyle::Line::dashed}});
    const ChartPlane narrow(chart, 430, 300);
    EXPECT_EQ(narrow.top() - bare, 2 * (ChartPlane(chart, 900, 300).top() - bare)) << "two rows and one";
    const Drawing drawing = chartDrawing(chart, {.width = 430, .height = 300});
    for (const DrawnText& text : shapesOf<DrawnText>(drawing)) {
        if (text.anchor != DrawnText::Anchor::start) continue;
        EXPECT_LE(text.at.x + drawnWidth(text), 430) << text.text;
    }
}

Chart threeBins() {
    return {.up = {.title = "Energy", .hasZero = true},
            .legend = {{.name = "one", .fill = BarFill::solid}, {.name = "other", .fill = BarFill::hatched}},
            .categories = {{"-5", "100 h"}, {"0", "200 h"}, {"5", "300 h"}},
            .bars = {{{10, 20, 40}, BarFill::solid}, {{5, 40, 0}, BarFill::hatched}},
            .markedCategory = 1};
}

/// The bars of a category are about its middle, next to each other, and as high as their values.
TEST(Chart, BarsStandOverTheirCategories) {
    const Chart chart = threeBins();
    const ChartPlane plane(chart, 700, 400);
    EXPECT_EQ(plane.up().low, 0);
    EXPECT_EQ(plane.up().high, 40);
    const double third = (plane.right() - plane.left()) / 3;
    EXPECT_EQ(plane.categoryAt(plane.left() + third * 1.01), 1U);
    EXPECT_EQ(plane.categoryAt(plane.right() - 0.01), 2U);
    EXPECT_FALSE(plane.categoryAt(plane.right()));
    EXPECT_FALSE(plane.categoryAt(plane.left() - 1));
    std::vector<DrawnArea> solid;
    std::vector<DrawnArea> hatched;
    const ChartColours colours;
    for (const DrawnArea& area : shapesOf<DrawnArea>(chartDrawing(chart, {.width = 700, .height = 400}))) {
        if (area.points[2].y != plane.bottom() || area.fill == colours.tint) continue;  // legend, mark
        (area.fill == colours.accent ? solid : hatched).push_back(area);
    }
    ASSERT_EQ(solid.size(), 3U);
    ASSERT_EQ(hatched.size(), 2U) << "a value of 0 has none";
    EXPECT_DOUBLE_EQ(solid[0].points[0].y, plane.bottom() - (plane.bottom() - plane.top()) / 4);
    EXPECT_DOUBLE_EQ(hatched[1].points[0].y, plane.top());
    const double middle = plane.left() + 1.5 * third;
    EXPECT_LE(solid[1].points[1].x, middle);
    EXPECT_GE(hatched[1].points[0].x, middle);
    EXPECT_NEAR(middle - solid[1].points[0].x, hatched[1].points[1].x - middle, 1e-9);
}

TEST(Chart, BarsOfNothingAreNotSeen) {
    Chart chart = threeBins();
    chart.bars = {{{0, 0, 0}, BarFill::solid}};
    chart.legend.clear();
    chart.markedCategory.reset();
    EXPECT_EQ(ChartPlane(chart, 700, 400).up().low, 0);
    EXPECT_TRUE(shapesOf<DrawnArea>(chartDrawing(chart, {.width = 700, .height = 400})).empty());
}

TEST(Chart, HatchingStaysInItsBar) {
    Chart chart = threeBins();
    chart.bars = {{{10, 20, 40}, BarFill::crosshatched}};
    chart.legend.clear();
    const ChartPlane plane(chart, 700, 400);
    const Drawing drawing = chartDrawing(chart, {.width = 700, .height = 400});
    const DrawnColour muted = ChartColours().muted;
    int inside = 0;
    for (const DrawnLine& line : shapesOf<DrawnLine>(drawing)) {
        if (!(line.stroke.colour == muted) || line.points.size() != 2) continue;
        ++inside;
        const std::size_t bar = plane.categoryAt(line.points.front().x).value();
        const double top = plane.placeOf({0, chart.bars[0].values[bar]}).y;
        const double middle = plane.placeOf({static_cast<double>(bar) + 0.5, 0}).x;
        const double half = 0.3 * (plane.right() - plane.left()) / 3;
        for (const DrawnPoint& point : line.points) {
            EXPECT_GE(point.y, top - 1e-9);
            EXPECT_LE(point.y, plane.bottom() + 1e-9);
            EXPECT_LE(std::abs(point.x - middle), half + 1e-9);
        }
    }
    EXPECT_GT(inside, 20);
}

TEST(Chart, ManyCategoriesHaveTheNamesThatFit) {
    Chart chart{.up = {.hasZero = true}};
    for (int i = 0; i < 58; ++i) {
        chart.categories.push_back({std::to_string(i - 19), "150 h"});
        chart.curves.resize(1);
        chart.curves[0].points.push_back({i + 0.5, 3.0 + i});
    }
    const Drawing drawing = chartDrawing(chart, {.width = 700, .height = 400});
    double last = -100;
    for (const DrawnText& text : shapesOf<DrawnText>(drawing)) {
        if (text.anchor != DrawnText::Anchor::middle || text.text.empty()) continue;
        EXPECT_EQ(text.text.find('h'), std::string::npos);
        EXPECT_GE(text.at.x - drawnWidth(text) / 2, last);
        last = text.at.x + drawnWidth(text) / 2;
    }
    EXPECT_GT(last, 500);
}

}  // namespace
}  // namespace marvello

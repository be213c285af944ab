#include "results/CycleDrawing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "data/Session.h"
#include "engine/clsSelections.h"
#include "results/CycleTexts.h"
#include "tests/support/SmallCatalogue.h"

namespace marvello {
namespace {

class CycleDrawingTest : public ::testing::Test {
  protected:
    CycleDrawingTest() {
        catalogue.compressor({{"fKForo", "1.7"}, {"fKPerdita", "0.9"}, {"fSez", "280"}});
        catalogue.completeDefault();
        catalogue.exec("update tPolynomials set fC1=60, fC2=-0.5, fC3=0, fC4=0.3 where fType=3");
        catalogue.text("frmselection.cycle.tankliquid", "Tank, liquid");
        conditions.SuperHeat = 12;
        conditions.SubCooling = 4;
        conditions.Eco = 8;
        conditions.MotorVoltage = 380;
    }

    Cycle cycle() {
        selections.Selection(std::make_shared<clsProjectConditions>(conditions), "TK-A", "*", "R134A", 0);
        return *cycleOf(selections.Item(1), GetRefprop("R134A"));
    }

    static std::vector<std::string> textsOf(const Drawing& drawing) {
        std::vector<std::string> texts;
        for (const auto& shape : drawing.shapes)
            if (const auto* text = std::get_if<DrawnText>(&shape)) texts.push_back(text->text);
        return texts;
    }
    template <class Shape>
    static std::vector<Shape> shapesOf(const Drawing& drawing) {
        std::vector<Shape> shapes;
        for (const auto& shape : drawing.shapes)
            if (const auto* each = std::get_if<Shape>(&shape)) shapes.push_back(*each);
        return shapes;
    }

    testing::SmallCatalogue catalogue;
    clsProjectConditions conditions = conditionsAt(-10, 40);
    clsSelections selections;
};

TEST_F(CycleDrawingTest, EverythingLiesInTheFrameAtAnyZoom) {
    conditions.EcoCalculateMode = EconomizerMode::approach;
    const Cycle shown = cycle();
    for (const auto units : {UnitSystem::metric, UnitSystem::imperial}) {
        const auto diagram = phDiagramAround(shown, "R134A", units);
        for (const PhRange& range : {diagram->range, PhRange{240, 270, 8, 12}, PhRange{390, 420, 2.9, 3.2}}) {
            const CycleView view{.width = 486, .height = 450, .shown = range, .units = units};
            const Drawing drawing = cycleDrawing(shown, *diagram, view);
            const PhPlane plane(range, view.width, view.height);
            EXPECT_GT(shapesOf<DrawnLine>(drawing).size(), 8U);
            for (const DrawnLine& line : shapesOf<DrawnLine>(drawing))
                for (const DrawnPoint& point : line.points) EXPECT_TRUE(plane.contains(point));
            for (const DrawnRing& ring : shapesOf<DrawnRing>(drawing))
                EXPECT_TRUE(plane.contains(ring.centre));
            for (const DrawnText& text : shapesOf<DrawnText>(drawing)) {
                EXPECT_TRUE(text.at.x >= 0 && text.at.x <= view.width) << text.text;
                EXPECT_TRUE(text.at.y >= 0 && text.at.y <= view.height) << text.text;
            }
            const PhPoint there{250, 9};
            const PhPoint back = plane.pointAt(plane.placeOf(there));
            EXPECT_NEAR(back.h, there.h, 1e-9);
            EXPECT_NEAR(back.p, there.p, 1e-9);
        }
    }
}

// Points 2 and 3 lie next to each other; a part of the plane in which they are apart has both numbers.
TEST_F(CycleDrawingTest, NumbersThatWouldTouchStandTogether) {
    conditions.EcoCalculateMode = EconomizerMode::approach;
    const Cycle shown = cycle();
    const auto diagram = phDiagramAround(shown, "R134A", UnitSystem::metric);
    CycleView view{.width = 486, .height = 450, .shown = diagram->range};
    const auto isJoined = [](const std::string& text) { return text.find("2, 3") != std::string::npos; };
    EXPECT_TRUE(std::ranges::any_of(textsOf(cycleDrawing(shown, *diagram, view)), isJoined));
    const FluidState& mixed = shown.states[2].state;
    view.shown = {mixed.h - 10, mixed.h + 10, mixed.p * 0.95, mixed.p * 1.05};
    const auto near = textsOf(cycleDrawing(shown, *diagram, view));
    EXPECT_TRUE(std::ranges::none_of(near, isJoined));
    EXPECT_THAT(near, ::testing::IsSupersetOf({"2", "3"}));
}

TEST_F(CycleDrawingTest, FillsTheChosenStateAndFindsItAtItsPlace) {
    const Cycle shown = cycle();
    ASSERT_EQ(shown.states.size(), 6U);
    const auto diagram = phDiagramAround(shown, "R134A", UnitSystem::metric);
    const CycleView view{.width = 700, .height = 500, .shown = diagram->range, .chosen = 1};
    const auto rings = shapesOf<DrawnRing>(cycleDrawing(shown, *diagram, view));
    ASSERT_EQ(rings.size(), 6U);
    for (std::size_t i = 0; i < rings.size(); ++i)
        EXPECT_EQ(rings[i].fill, i == 1 ? view.colours.accent : view.colours.ground);
    const PhPlane plane(view.shown, view.width, view.height);
    EXPECT_EQ(stateAt(shown, plane, {rings[1].centre.x + 3, rings[1].centre.y - 3}), 1U);
    EXPECT_FALSE(stateAt(shown, plane, {rings[1].centre.x + 30, rings[1].centre.y}));
}

// 12 K above -10 degrees Celsius is 35.6 degrees Fahrenheit; 2.0060330747 bar are 29.0951 psi.
TEST_F(CycleDrawingTest, TableIsInTheUnitsOfTheForm) {
    const Cycle shown = cycle();
    const CycleTable metric = tableOf(shown, UnitSystem::metric, {.point = ","});
    EXPECT_EQ(metric.rows.size(), 6U);
    EXPECT_EQ(metric.rows[0].number, "1");
    EXPECT_EQ(metric.rows[0].values,
              (std::vector<std::string>{"2,0", "2,01", "402,9", "1,7713", "9,48", "-", "801"}));
    EXPECT_EQ(metric.rows[3].values[5], "0,000");  // the bubble point
    const CycleTable imperial = tableOf(shown, UnitSystem::imperial);
    EXPECT_EQ(imperial.columns[2].unit, "Btu/lb");
    // 402.883 / 2.324444 = 173.3 Btu/lb, 1.77132 / 4.184 = 0.4234, 9.4848 / 16.018463 = 0.592, 800.7 /
    // 0.45359
    EXPECT_EQ(imperial.rows[0].values,
              (std::vector<std::string>{"35.6", "29.10", "173.3", "0.4234", "0.59", "-", "1765"}));
    const std::string copied = copiedText(shown, UnitSystem::metric);
    EXPECT_EQ(std::ranges::count(copied, '\n'), 1 + 6 + 1 + 10);
}

TEST_F(CycleDrawingTest, ReadingNamesWhatIsThere) {
    clsRefprop& refprop = GetRefprop("R134A");
    // In the dome of R134a at 40 degrees Celsius: pc = 10.165930 bar, h' = 256.41, h" = 419.43 kJ/kg.
    const double half = (256.4093 + 419.4285) / 2;
    const std::string wet = readingAt(refprop, {half, 10.165930}, UnitSystem::metric);
    EXPECT_THAT(wet, ::testing::HasSubstr("T 40.0"));
    EXPECT_THAT(wet, ::testing::HasSubstr("x 0.500"));
    EXPECT_THAT(readingAt(refprop, {440, 2}, UnitSystem::metric), ::testing::Not(::testing::HasSubstr("x ")));
    EXPECT_EQ(std::ranges::count(readingAt(refprop, {-2000, 2}, UnitSystem::metric), '\n'), 0);
}

}  // namespace
}  // namespace marvello

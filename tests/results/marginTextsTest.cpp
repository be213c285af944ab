#include "results/MarginTexts.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "data/Session.h"
#include "results/Columns.h"

using namespace marvello;

namespace {

// Without a dictionary a text is its key, a limit keeps its name, and the sign of the degree
// "general.variable03".
class MarginTexts : public ::testing::Test {
  protected:
    MarginTexts() {
        line(limitType::application, "0,20;30,20;30,60;0,60;0,20");
        line(limitType::oilCooling, "-20,45;40,45;40,90;-20,90;-20,45");
        line(limitType::hOnly, "-20,0;2,0;2,90;-20,90;-20,0");     // is not drawn
        line(limitType::oilFilter, "24,0;40,0;40,90;24,90;24,0");  // too far to be of interest
        line(limitType::step75, "0,20;12,20;12,50;0,50;0,20");
        at(2.03, 41);
    }

    void at(double ted, double tcd) {
        compressor.Variables.Clear();
        compressor.Variables.set(var::Ted, ted);
        compressor.Variables.set(var::Tcd, tcd);
        conditions = conditionsAt(ted, tcd);
    }

    std::vector<ShownMargin> margins(UnitSystem units = UnitSystem::metric) {
        return shownMargins(compressor, conditions, units, {});
    }

    ShownValue column(UnitSystem units = UnitSystem::metric) {
        clsOutput output;
        output.Key = "@Margin";
        output.UmDescription = "K";
        return valueIn(compressor, output, units);
    }

    Session session;
    clsCompressor compressor;
    clsProjectConditions conditions;

  private:
    void line(int type, const char* points) {
        auto limit = std::make_shared<clsLimit>();
        limit->setType(type);
        limit->Points = parsePoints(points);
        compressor.limits.add(std::move(limit));
    }
};

}  // namespace

TEST_F(MarginTexts, AreTheNearestFirstAndRoundedDown) {
    auto shown = margins();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[0].limitType, limitType::application);
    EXPECT_EQ(shown[0].name, "Application limit");
    EXPECT_EQ(shown[0].distance, "2.0 K");
    EXPECT_EQ(shown[0].direction, "find.margin.teddown");
    EXPECT_EQ(shown[1].limitType, limitType::oilCooling);
    EXPECT_EQ(shown[1].distance, "4.0 K");
    EXPECT_EQ(margins(UnitSystem::imperial)[0].distance, "3.6 general.variable03F");  // of 3.654
    EXPECT_EQ(marginLine(compressor, UnitSystem::metric, {}),
              "Application limit: 2.0 K (find.margin.teddown)");
    EXPECT_EQ(column().text, "2.0");
    EXPECT_EQ(column(UnitSystem::imperial).text, "3.7");  // a column rounds as all columns do

    conditions.StepCapacity = 75;
    shown = margins();
    ASSERT_EQ(shown.size(), 3U);
    EXPECT_EQ(shown[1].name, "report.stepcapacity.caption 75%");
    EXPECT_EQ(shown[1].direction, "find.margin.teddown");
}

TEST_F(MarginTexts, OfAPointOutsideSaysByHowMuchItIsMissed) {
    at(-0.43, 41);
    EXPECT_EQ(column().text, "-0.4");
    EXPECT_EQ(margins()[0].distance, "messages.margin.over");
    const ShownMessage outside{
        .severity = Severity::attention, .text = {}, .key = "messages.message02", .causes = {}};
    EXPECT_EQ(distanceText(compressor, outside, UnitSystem::metric, {}), "messages.margin.beyond");
    at(0, 60);
    EXPECT_EQ(column().text, "0");
    EXPECT_EQ(distanceText(compressor, outside, UnitSystem::metric, {}), "");
    at(-10, 70);  // no change of one temperature leads back
    EXPECT_EQ(column().text, blankValue.text);
    EXPECT_EQ(marginLine(compressor, UnitSystem::metric, {}), "");
}

TEST_F(MarginTexts, SayWhatIsMissedOfErrorsAndWarningsAlone) {
    auto limit = std::make_shared<clsLimit>();
    limit->setType(limitType::smallMotor);
    limit->Points = parsePoints("0,20;30,20;30,50;0,50;0,20");
    compressor.limits.add(std::move(limit));
    compressor.hasFullSmallMotor = true;
    const auto distance = [this](MotorChoice motor) {
        compressor.Motor.MotorType = motor;
        for (const ShownMargin& margin : margins())
            if (margin.limitType == limitType::smallMotor) return margin.distance;
        return std::string();
    };
    at(10, 41);
    EXPECT_EQ(distance(MotorChoice::full), "9.0 K");  // to where the small one is not sufficient any more
    EXPECT_EQ(distance(MotorChoice::small), "9.0 K");
    at(10, 52.5);
    EXPECT_EQ(distance(MotorChoice::full), "2.5 K");
    EXPECT_EQ(distance(MotorChoice::small), "messages.margin.over");
}

TEST(IsShownMargin, NeverWithItsOwnVisibility) {
    for (const UnitSystem units : {UnitSystem::metric, UnitSystem::imperial})
        for (const bool hasEconomizer : {false, true}) EXPECT_FALSE(isShown(5, units, hasEconomizer));
}

#include "results/ChartReading.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace marvello {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> textsOf(const ChartReading& reading) {
    std::vector<std::string> texts;
    for (const ChartReading::Value& value : reading.values) texts.push_back(value.name + ' ' + value.text);
    return texts;
}

/// Two figures on axes of their own; that of the first in two pieces with a gap between 30 and 40.
Chart twoFigures() {
    return {.across = {.name = "Load", .unit = "%"},
            .up = {.name = "COP", .pattern = "#0.00"},
            .second = ChartAxis{.name = "Power", .unit = "kW"},
            .curves = {{.points = {{10, 2}, {30, 3}}, .name = "COP", .set = 0},
                       {.points = {{40, 3.5}, {100, 4.1}}, .name = "COP", .set = 0},
                       {.points = {{10, 12}, {100, 39}}, .isOnSecond = true, .name = "Power", .set = 1},
                       {.points = {{55, 1}}, .style = {.hasRings = true}}}};
}

TEST(ChartReading, ReadsBetweenPointsOnTheLineThroughThem) {
    const ChartReading reading = readChart(twoFigures(), 25, {.point = ","});
    EXPECT_EQ(reading.at, "Load 25,0 %");
    // 2 + 15 / 20, and 12 + 15 / 90 x 27.
    EXPECT_THAT(textsOf(reading), ElementsAre("COP 2,75", "Power 16,5 kW"));
    EXPECT_TRUE(reading.values[1].isOnSecond);
    EXPECT_THAT(textsOf(readChart(twoFigures(), 35, {})), ElementsAre("Power 19.5 kW")) << "in the gap";
    EXPECT_THAT(textsOf(readChart(twoFigures(), 100, {})), ElementsAre("COP 4.10", "Power 39.0 kW"));
    EXPECT_TRUE(readChart(twoFigures(), 9.9, {}).values.empty());
}

TEST(ChartReading, ItsPlacesAreThePointsOfWhatIsRead) {
    EXPECT_THAT(readPlaces(twoFigures()), ElementsAre(10, 30, 40, 100)) << "no rings";
    EXPECT_TRUE(readPlaces(Chart()).empty());
}

// From (0, 20) up to (0, 40), over (2, 60) and down a slope from (4, 60) to (4, 30); with a second area of
// the same machine above it.
TEST(ChartReading, AnOutlineIsReadAsItsRange) {
    const Chart chart{.across = {.name = "Te", .unit = "C"},
                      .up = {.name = "Tc", .unit = "C"},
                      .curves = {{.points = {{0, 20}, {0, 40}, {2, 60}, {4, 60}, {4, 30}, {0, 20}},
                                  .name = "A",
                                  .isOutline = true},
                                 {.points = {{2.5, 70}, {3.5, 70}, {3.5, 80}, {2.5, 80}, {2.5, 70}},
                                  .name = "A",
                                  .isOutline = true}}};
    EXPECT_THAT(readPlaces(chart), ElementsAre(0, 1, 2, 2.5, 3, 3.5, 4));
    EXPECT_THAT(textsOf(readChart(chart, 1, {})), ElementsAre("A 22.5 \u2013 50.0 C"));
    EXPECT_THAT(textsOf(readChart(chart, 3, {})), ElementsAre("A 27.5 \u2013 60.0 C, 70.0 \u2013 80.0 C"));
    EXPECT_THAT(textsOf(readChart(chart, 0, {})), ElementsAre("A 20.0 \u2013 40.0 C")) << "at the left end";
    EXPECT_THAT(textsOf(readChart(chart, 4, {})), ElementsAre("A 30.0 \u2013 60.0 C")) << "at the right end";
    EXPECT_THAT(textsOf(readChart(chart, 4.5, {})), ElementsAre());
}

TEST(ChartReading, TwoMachinesOfOneNameAreTwo) {
    const Chart chart{.curves = {{.points = {{0, 1}, {1, 1}}, .name = "A", .set = 0},
                                 {.points = {{0, 2}, {1, 2}}, .name = "A", .set = 1}}};
    EXPECT_THAT(textsOf(readChart(chart, 0.5, {})), ElementsAre("A 1.0", "A 2.0"));
}

}  // namespace
}  // namespace marvello

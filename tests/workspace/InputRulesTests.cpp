#include "workspace/InputRules.h"

#include <gtest/gtest.h>

#include "tools/catalogue/Program.h"

using namespace marvello;

TEST(SeriesMask, SwitchesTheSelectorsOfEachSeries) {
    EXPECT_EQ(seriesMask("NL-H", "R134A"), 32U);
    EXPECT_EQ(seriesMask(" tk-a(p) ", "R404A"), 15U);
    EXPECT_EQ(seriesMask("DZ2", "R134A"), 13U);
    EXPECT_EQ(seriesMask("GH", "R134A"), 8U);
    for (const char* none : {"TK-B", "TK-C", "TK-D", "GH4", ""})
        EXPECT_EQ(seriesMask(none, "R134A"), 0U) << none;
}

TEST(SeriesMask, AddsTheMotorSizeWithR134AOnly) {
    EXPECT_EQ(seriesMask("MV-A", "r134a"), 29U);
    EXPECT_EQ(seriesMask("MV-A", "R404A"), 13U);
    EXPECT_EQ(seriesMask("TK-A", "R134A"), 31U);
    EXPECT_EQ(seriesMask("MV-G", "R134A"), 24U);
    EXPECT_EQ(seriesMask("MV-H", "R134A"), 24U);
    EXPECT_EQ(seriesMask("TK-E", "R134A"), 13U);
}

TEST(SeriesMask, OffersCapacityStepsToTheSeriesThatACatalogueMustHaveThemOf) {
    for (const char* series :
         {"TK-A", "TK-A(P)", "TK-A(Q)", "TK-A(V)", "TK-B", "TK-C", "TK-D", "TK-E", "MV-A", "MV-A(V)",  "MV-E",
          "MV-G", "MV-H",    "MV-J",    "GH",      "GH4",  "DZ1",  "DZ2",  "NL-H", "tk-a", "no series"})
        EXPECT_EQ(offersCapacitySteps(series), allows(seriesMask(series, "R134A"), Selector::stepCapacity))
            << series;
}

TEST(SeriesOfMarket, ReducesTheTwoMarketsToOneSeries) {
    EXPECT_EQ(seriesOfMarket("DZ1").serie, "DZ");
    EXPECT_EQ(seriesOfMarket("DZ1").market, 1);
    EXPECT_EQ(seriesOfMarket("DZ2").market, 2);
    EXPECT_EQ(seriesOfMarket("TK-A").serie, "TK-A");
    EXPECT_EQ(seriesOfMarket("TK-A").market, 0);
}

TEST(PermittedSuperheat, ReplacesWhatIsOutsideOfTheBounds) {
    struct Case {
        const char* refrigerant;
        bool isImperial;
        bool isDifference;
        double asked;
        double permitted;
    };
    // At an evaporating temperature of 5; the bounds themselves are permitted.
    for (const Case& c : {Case{"R134A", false, true, 25, 10},
                          {"R134A", false, true, 20, 20},
                          {"R134A", false, true, 0, 0},
                          {"R134A", false, true, -0.1, 10},
                          {"R290", false, true, 25, 25},
                          {"r290", false, true, 40.1, 10},
                          {"R134A", false, false, 4.9, 15},
                          {"R134A", false, false, 25, 25},
                          {"R134A", false, false, 25.1, 15},
                          {"R290", false, false, 45, 45},
                          {"R134A", true, true, 36.5, 18},
                          {"R290", true, true, 72, 72},
                          {"R134A", true, false, 73.1, 55},
                          {"R290", true, false, 109, 109},
                          {"R290", true, false, 4, 55}})
        EXPECT_EQ(permittedSuperheat(c.asked, superheatRange(c.refrigerant, c.isImperial, c.isDifference, 5)),
                  c.permitted)
            << c.refrigerant << " " << c.asked << (c.isImperial ? " imperial" : "");
}

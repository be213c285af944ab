#include "inputs/InputRules.h"

#include <gtest/gtest.h>

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
        UnitSystem units;
        bool isDifference;
        double asked;
        double permitted;
    };
    using enum UnitSystem;
    // At an evaporating temperature of 5; the bounds themselves are permitted.
    for (const Case& c : {Case{"R134A", metric, true, 25, 10},
                          {"R134A", metric, true, 20, 20},
                          {"R134A", metric, true, 0, 0},
                          {"R134A", metric, true, -0.1, 10},
                          {"R290", metric, true, 25, 25},
                          {"r290", metric, true, 40.1, 10},
                          {"R134A", metric, false, 4.9, 15},
                          {"R134A", metric, false, 25, 25},
                          {"R134A", metric, false, 25.1, 15},
                          {"R290", metric, false, 45, 45},
                          {"R134A", imperial, true, 36.5, 18},
                          {"R290", imperial, true, 72, 72},
                          {"R134A", imperial, false, 73.1, 55},
                          {"R290", imperial, false, 109, 109},
                          {"R290", imperial, false, 4, 55}})
        EXPECT_EQ(permittedSuperheat(c.asked, superheatRange(c.refrigerant, c.units, c.isDifference, 5)),
                  c.permitted)
            << c.refrigerant << " " << c.asked << (c.units == imperial ? " imperial" : "");
}

#include "results/YearEntries.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace marvello {
namespace {

using Reason = LoadProfileFault::Reason;
constexpr auto metric = UnitSystem::metric;
constexpr auto imperial = UnitSystem::imperial;

/// -4 and 14 °F are -20 and -10 °C; 122 °F is 50 °C, which is more than 100 in its own unit.
TEST(YearEntries, AnEvaporatingTableIsInTheUnitsOfThePerson) {
    EXPECT_EQ(evaporatingRuleIn("-10,5", metric).points.front().evaporating, -10.5);
    const EvaporatingRule rule = evaporatingRuleIn(" -4 : 14 ; 122:5 ", imperial);
    ASSERT_EQ(rule.points.size(), 2U);
    EXPECT_NEAR(rule.points[0].outdoor, -20, 1e-9);
    EXPECT_NEAR(rule.points[0].evaporating, -10, 1e-9);
    EXPECT_NEAR(rule.points[1].outdoor, 50, 1e-9);
    EXPECT_EQ(enteredText(rule, imperial, {}), "-4:14;122:5");
    EXPECT_EQ(enteredText(rule, metric, {.minus = "-", .point = ","}), "-20:-10;50:-15");
    EXPECT_EQ(enteredText(evaporatingRuleIn("2", metric), metric, {}), "2.00");
    for (const char* text : {"", "x", "1:2;", "1:2:3", "1:2;1:3", "200:2;3:4", "-300", "90:2;10:3"})
        EXPECT_THROW(evaporatingRuleIn(text, metric), std::invalid_argument) << text;
}

TEST(YearEntries, AValueThatIsRefusedLeavesItsBin) {
    LoadBin bin{.outdoor = 10, .hours = 100, .load = 0.5};
    enter(bin, BinColumn::outdoor, "-4", imperial);
    EXPECT_NEAR(bin.outdoor, -20, 1e-9);
    EXPECT_NEAR(shownValue(bin, BinColumn::outdoor, imperial), -4, 1e-9);
    enter(bin, BinColumn::load, " 72,5 ", metric);
    EXPECT_EQ(bin.load, 0.725);
    const LoadBin before = bin;
    const auto reasonOf = [&](BinColumn column, const std::string& text) {
        try {
            enter(bin, column, text, metric);
        } catch (const LoadProfileFault& fault) {
            EXPECT_EQ(fault.text, text);
            return fault.reason;
        }
        return Reason::notCsv;
    };
    EXPECT_EQ(reasonOf(BinColumn::outdoor, "71"), Reason::outsideRange);
    EXPECT_EQ(reasonOf(BinColumn::hours, "-1"), Reason::negativeHours);
    EXPECT_EQ(reasonOf(BinColumn::hours, "8785"), Reason::hoursAboveYear);
    EXPECT_EQ(reasonOf(BinColumn::load, "100.1"), Reason::loadAboveFull);
    EXPECT_EQ(reasonOf(BinColumn::load, "all"), Reason::notANumber);
    EXPECT_EQ(bin, before);
}

TEST(YearEntries, CellsOfASpreadsheetGoFromAPlaceOn) {
    const std::vector<LoadBin> bins{{0, 100, 1}, {5, 200, 1}};
    const auto whole =
        pasted(bins, 0, BinColumn::outdoor,
               "Outdoor\tHours\tLoad\r\n-5\t120\t35\r\n\r\n2,5\t1390\t46\r\n7.5\t1730\t100\r\n", metric);
    EXPECT_EQ(whole, (std::vector<LoadBin>{{-5, 120, 0.35}, {2.5, 1390, 0.46}, {7.5, 1730, 1}}));
    const auto hours = pasted(bins, 1, BinColumn::hours, "300;50;7\n400\n", metric);
    EXPECT_EQ(hours, (std::vector<LoadBin>{{0, 100, 1}, {5, 300, 0.5}, {10, 400, 1}}))
        << "beyond the last column nothing, beyond the last row a new one";
    try {
        pasted(bins, 0, BinColumn::outdoor, "1\t2\t3\n4\t-5\t6\n", metric);
        FAIL();
    } catch (const LoadProfileFault& fault) {
        EXPECT_EQ(fault.line, 2);
        EXPECT_EQ(fault.reason, Reason::negativeHours);
    }
}

TEST(YearEntries, BinsAreSortedAndReadBack) {
    std::vector<LoadBin> bins{{10, 1, 1}, {-5, 0.1, 0.3}, {10, 3, 0.5}, {0, 4, 1.0 / 3}};
    EXPECT_EQ(sortBins(bins, 2), 3U) << "behind the other one of 10 degrees";
    EXPECT_EQ(bins[2].hours, 1);
    EXPECT_EQ(loadProfileIn(binsText(bins), "kept").bins, bins);
    EXPECT_EQ(nextBin(bins).outdoor, 15);
    EXPECT_EQ(nextBin({{68, 1, 1}}).outdoor, 70);
}

}  // namespace
}  // namespace marvello

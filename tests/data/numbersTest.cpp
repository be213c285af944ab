#include "data/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace marvello;

namespace {

const NumberMarks german{.point = ",", .group = "."};
const NumberMarks swedish{.minus = "\u2212", .point = ",", .group = "\u00A0"};

}  // namespace

TEST(FormatNumber, RoundsHalfAwayFromZeroOnTheDigitsThatOneSees) {
    const struct {
        double value;
        const char* pattern;
        const char* text;
        double shown;
    } cases[]{
        {2.675, "#0.00", "2.68", 2.68},  // stored just below 2.675
        {-0.125, "#0.00", "-0.13", -0.13},
        {0.5, "#0", "1", 1},
        {9.996, "#0.00", "10.00", 10},
        {0.04, "#0.0", "0.0", 0},
        {-0.001, "#0.00", "0.00", 0},
        {1e17, "#0.0", "100000000000000000.0", 1e17},
        {1048800, "#,#", "1,048,800", 1048800},
        {0.25, "#.#", ".3", 0.3},
        {53.0, "#", "53", 53},
        {1234567.25, "", "1234567.25", 1234567.25},
        {0.00005, "", "5e-05", 0.00005},
    };
    for (const auto& [value, pattern, text, shown] : cases) {
        EXPECT_EQ(formatNumber(value, pattern), text);
        EXPECT_EQ(shownValue(value, pattern), shown) << text;
        EXPECT_FALSE(std::signbit(shownValue(value, pattern)) && shown == 0) << text;
    }
    EXPECT_EQ(formatNumber(std::nan(""), "#0.0"), "");
}

TEST(FormatNumber, WritesTheMarksOfALocale) {
    EXPECT_EQ(formatNumber(1234.5, "#0.00", german), "1234,50");
    EXPECT_EQ(formatNumber(392400.4, "#,#", german), "392.400");
    EXPECT_EQ(formatNumber(-12.5, "", german), "-12,5");
    EXPECT_EQ(formatNumber(-1234567.0, "#,#0.0", swedish), "\u22121\u00A0234\u00A0567,0");
}

TEST(ExponentText, HasOneFormForAllSizes) {
    EXPECT_EQ(exponentText(100, {}), "1E+02");
    EXPECT_EQ(exponentText(-0.00012, german), "-1,2E-04");
    EXPECT_EQ(exponentText(-2.5e-7, swedish), "\u22122,5E-07");
}

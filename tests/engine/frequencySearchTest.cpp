#include "engine/FrequencySearch.h"

#include <gtest/gtest.h>

#include <cmath>

namespace marvello {
namespace {

using Trial = FrequencySearch::Trial;

TEST(FrequencySearch, SolvesAndRemembers) {
    int calls = 0;
    FrequencySearch search(20, 70, [&](float f) {
        ++calls;
        const double x = static_cast<double>(f) / 50;
        return Trial{true, 100 * x * x * x};
    });
    // 100 x^3 = 51.2 at x = 0.8.
    EXPECT_NEAR(search.solve(51.2), 40, 1e-5);
    const int once = calls;
    EXPECT_LE(once, 14);
    EXPECT_NEAR(search.solve(100), 50, 1e-5);
    EXPECT_LT(calls - once, once);
    const int twice = calls;
    EXPECT_EQ(search.solve(1), 20);     // 6.4 at least
    EXPECT_EQ(search.solve(1000), 70);  // 274.4 at most
    EXPECT_EQ(calls, twice);
}

TEST(FrequencySearch, EndsWhereErrorsBegin) {
    const auto capacity = [](float f) { return Trial{f >= 27.3F && f <= 61.7F, static_cast<double>(f)}; };
    FrequencySearch search(20, 70, capacity);
    ASSERT_TRUE(search.isPossible());
    EXPECT_NEAR(search.solve(45.5), 45.5, 1e-4);
    EXPECT_NEAR(search.solve(80), 61.7, 0.001);
    EXPECT_LE(search.solve(80), 61.7F);
    EXPECT_NEAR(search.solve(10), 27.3, 0.001);
    EXPECT_GE(search.solve(10), 27.3F);
    EXPECT_FALSE(FrequencySearch(20, 70, [](float) { return Trial{}; }).isPossible());
}

TEST(FrequencySearch, TakesTheNearerSideOfAStep) {
    FrequencySearch search(20, 60,
                           [](float f) { return Trial{true, static_cast<double>(f) + (f < 41.3F ? 0 : 2)}; });
    EXPECT_NEAR(search.solve(41.9), 41.3, 1e-4);
    EXPECT_LT(search.solve(41.9), 41.3F);
    EXPECT_GE(search.solve(42.9), 41.3F);
}

TEST(FrequencySearch, OneFrequencyIsARange) {
    FrequencySearch search(20, 20, [](float) { return Trial{true, 7}; });
    EXPECT_EQ(search.solve(9), 20);
}

}  // namespace
}  // namespace marvello

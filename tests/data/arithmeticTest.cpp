#include "data/Arithmetic.h"

#include <gtest/gtest.h>

#include <cmath>

namespace marvello {
namespace {

TEST(Arithmetic, DisplayRoundingIsHalfAwayFromZero) {
    EXPECT_EQ(roundedToPlaces(2.5, 0), 3);
    EXPECT_EQ(roundedToPlaces(0.25, 1), 0.3);
    EXPECT_EQ(roundedToPlaces(-0.25, 1), -0.3);
    EXPECT_EQ(roundedToPlaces(0.04, 1), 0);
    EXPECT_EQ(roundedToPlaces(12.34, 1), 12.3);
    EXPECT_THROW(roundedToPlaces(std::nan(""), 1), ArithmeticFault);
}

TEST(Arithmetic, IntegersRoundHalfToEven) {
    EXPECT_EQ(roundedToInteger(0.5), 0);
    EXPECT_EQ(roundedToInteger(1.5), 2);
    EXPECT_EQ(roundedToInteger(-2.5), -2);
    EXPECT_EQ(roundedToInteger(400.5), 400);
    EXPECT_THROW(roundedToInteger(2147483648.0), ArithmeticFault);
    EXPECT_THROW(roundedToInteger(std::nan("")), ArithmeticFault);
}

}  // namespace
}  // namespace marvello

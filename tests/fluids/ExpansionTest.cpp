// The numerical tools below the solvers: polynomials on cells, and the exponential of four numbers at once.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>

#include "fluids/Expansion.h"
#include "fluids/PropertyError.h"
#include "fluids/VectorMath.h"

namespace marvello::test {
namespace {

using fluids::Expansion;

/// e^x in three functions, a bell whose width asks for narrow cells, and an even one like ln p over sqrt(1 -
/// T/Tc).
constexpr double begin = -1.5;
constexpr double end = 2;
double rising(double x) { return std::exp(x); }
double bell(double x) { return 1 / (1 + 25 * x * x); }
double even(double x) { return -x * x - 0.3 * x * x * x * x; }

Expansion fitted(double tolerance) {
    return Expansion({{begin, -0.5, end}, 3, tolerance, 1e-6}, [](double x, std::span<double> values) {
        values[0] = rising(x);
        values[1] = bell(x);
        values[2] = even(x);
        return true;
    });
}

TEST(Expansion, ComesAsNearAsAskedFor) {
    for (const double tolerance : {1e-6, 1e-12}) {
        const Expansion expansion = fitted(tolerance);
        EXPECT_LE(expansion.error(), tolerance);
        EXPECT_EQ(expansion.begin(), begin);
        EXPECT_EQ(expansion.end(), end);
        for (int k = 0; k <= 3000; ++k) {
            const double x = begin + (end - begin) * k / 3000;
            // The fit is tried out at two places of a cell; elsewhere its error is a few times as great.
            EXPECT_NEAR(expansion.at(0, x), rising(x), 5 * tolerance);
            EXPECT_NEAR(expansion.at(1, x), bell(x), 5 * tolerance);
            std::array<double, 3> all{};
            expansion.all(expansion.placeOf(x), all);
            for (std::size_t f = 0; f < 3; ++f) EXPECT_EQ(all[f], expansion.at(f, x));
            const Expansion::ValueAndSlope here = expansion.withSlope(1, x);
            EXPECT_NEAR(here.value, bell(x), 5 * tolerance);
            EXPECT_NEAR(here.slope, -50 * x * bell(x) * bell(x), 1e3 * tolerance);
        }
    }
    EXPECT_GT(fitted(1e-12).cellCount(), 2 * fitted(1e-6).cellCount());
}

/// The error is of rounding alone where a polynomial of degree 9 is fitted, which takes no further cell.
TEST(Expansion, IsExactForItsOwnKind) {
    const auto polynomial = [](double x) { return 1 - x * x * x + 1e-2 * std::pow(x, 9); };
    const Expansion expansion({{0, 1, 3}, 1, 1e-9, 1e-3}, [&](double x, std::span<double> values) {
        values[0] = polynomial(x);
        return true;
    });
    EXPECT_EQ(expansion.cellCount(), 2U);
    for (double x = 0; x <= 3; x += 0.01) EXPECT_NEAR(expansion.at(0, x), polynomial(x), 1e-11);
}

TEST(Expansion, Inverse) {
    const Expansion expansion = fitted(1e-12);
    std::mt19937_64 random(3);
    std::uniform_real_distribution<double> anywhere(begin, end);
    for (int k = 0; k < 3000; ++k) {
        const double x = anywhere(random);
        EXPECT_NEAR(expansion.inverse(0, rising(x), begin, end), x, 1e-11);
        // On a branch that falls, and with the bracket's end next to the place looked for.
        if (x > 0.01) {
            EXPECT_NEAR(expansion.inverse(1, bell(x), 0, end), x, 1e-9);
            EXPECT_NEAR(expansion.inverse(1, bell(x), 0.999 * x, 1.0001 * x), x, 1e-9);
        }
        if (x < -0.01) {
            EXPECT_NEAR(expansion.inverse(2, even(x), begin, 0), x, 1e-9);
        }
    }
    // Beyond what lies between, the nearer end.
    EXPECT_EQ(expansion.inverse(0, 0.1, -1, 1), -1);
    EXPECT_EQ(expansion.inverse(0, 10, -1, 1), 1);
    EXPECT_EQ(expansion.inverse(1, 2, 0.1, 1), 0.1);
    EXPECT_EQ(expansion.inverse(1, 0, 0.1, 1), 1);
    EXPECT_EQ(expansion.inverse(0, expansion.at(0, begin), begin, end), begin);
    EXPECT_EQ(expansion.inverse(0, expansion.at(0, end), begin, end), end);
}

/// Where an even function turns, as vapour pressure does at the critical point, and nowhere else.
TEST(Expansion, Extremum) {
    const Expansion expansion = fitted(1e-12);
    for (const std::size_t function : {1U, 2U}) {
        ASSERT_TRUE(expansion.extremum(function, begin, end));
        EXPECT_NEAR(*expansion.extremum(function, begin, end), 0, 1e-10);
        EXPECT_FALSE(expansion.extremum(function, 0.1, end));
    }
    EXPECT_FALSE(expansion.extremum(0, begin, end));
}

TEST(Expansion, AMissingSampleIsAnError) {
    EXPECT_THROW(Expansion({{0, 1}, 1, 1e-9, 1e-3}, [](double x, std::span<double>) { return x < 0.5; }),
                 fluids::PropertyError);
}

/// A step cannot be fitted; the cells stop at the least width.
TEST(Expansion, RoughFunctionsEnd) {
    const Expansion expansion({{0, 1}, 1, 1e-9, 1e-2}, [](double x, std::span<double> values) {
        values[0] = x < 1 / std::numbers::pi ? 0 : 1;
        return true;
    });
    EXPECT_GT(expansion.error(), 1e-3);
    EXPECT_LT(expansion.cellCount(), 20U);
    EXPECT_NEAR(expansion.at(0, 0.2), 0, 1e-9);
    EXPECT_NEAR(expansion.at(0, 0.9), 1, 1e-9);
}

double exponentialOf(double x) {
    fluids::Lanes lanes{x, x / 2, -x, 0.0};
    fluids::exponential(lanes);
    EXPECT_EQ(lanes[3], 1);
    return lanes[0];
}

/// Against the next wider type: half a unit in the last place is the best that a double can do.
TEST(VectorMath, Exponential) {
    std::mt19937_64 random(5);
    double worst = 0;
    for (const double range : {1e-10, 0.1, 1.0, 30.0, 700.0}) {
        std::uniform_real_distribution<double> anywhere(-range, range);
        for (int k = 0; k < 20000; ++k) {
            const double x = anywhere(random);
            const long double exact = std::exp(static_cast<long double>(x));
            const double unit =
                std::nextafter(static_cast<double>(exact), 1e308) - static_cast<double>(exact);
            worst = std::max(worst, static_cast<double>(std::abs(exponentialOf(x) - exact)) / unit);
        }
    }
    EXPECT_LT(worst, 1.5);
    EXPECT_EQ(exponentialOf(0.0), 1);
    // Halfway between two multiples of ln 2 the remainder is greatest.
    for (int k = -1000; k < 1000; ++k) {
        const double x = (k + 0.5) * std::numbers::ln2;
        EXPECT_LT(std::abs(exponentialOf(x) / std::exp(static_cast<long double>(x)) - 1), 4e-16L);
    }
}

TEST(VectorMath, ExponentialStaysFinite) {
    const double largest = exponentialOf(700);
    const double least = exponentialOf(-700);
    EXPECT_TRUE(std::isfinite(largest));
    EXPECT_GT(least, std::numeric_limits<double>::min());
    for (const double x : {700.1, 1e5, 1e300}) {
        EXPECT_EQ(exponentialOf(x), largest);
        EXPECT_EQ(exponentialOf(-x), least);
    }
}

}  // namespace
}  // namespace marvello::test

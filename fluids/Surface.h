#pragma once

#include <array>
#include <cmath>
#include <cstddef>

#include "fluids/Chebyshev.h"
#include "fluids/VectorMath.h"

namespace marvello::fluids {

/// A polynomial of one variable, for -1 to 1.
template <std::size_t count>
struct Polynomial {
    std::array<double, count> coefficients{};  ///< of the powers

    double at(double x) const {
        double sum = 0;
        for (std::size_t power = count; power-- > 0;) sum = sum * x + coefficients[power];
        return sum;
    }

    /// Several places at once.
    [[gnu::always_inline]] void at(const Lanes& x, Lanes& sum) const {
        sum = Lanes{};
        for (std::size_t power = count; power-- > 0;) sum = sum * x + coefficients[power];
    }

    /// Where a rising or falling polynomial has a value, by Newton's method; anything where it has it not
    /// between about -1 and 1.
    double inverse(double value) const {
        constexpr int steps = 8;
        constexpr double enough = 1e-9;
        const double low = at(-1);
        const double high = at(1);
        double x = (2 * value - low - high) / (high - low);
        for (int i = 0; i < steps; ++i) {
            double here = 0;
            double slope = 0;
            for (std::size_t power = count; power-- > 0;) {
                slope = slope * x + here;
                here = here * x + coefficients[power];
            }
            const double step = (value - here) / slope;
            x += step;
            if (!(std::abs(step) > enough)) break;
        }
        return x;
    }
};

/// A polynomial of two variables, both for -1 to 1.
template <std::size_t count>
struct Surface {
    std::array<Polynomial<count>, count> byFirst{};  ///< for each power of the second

    /// As a function of the first.
    Polynomial<count> at(double second) const {
        Polynomial<count> sum;
        for (std::size_t power = count; power-- > 0;) {
            for (std::size_t k = 0; k < count; ++k)
                sum.coefficients[k] = sum.coefficients[k] * second + byFirst[power].coefficients[k];
        }
        return sum;
    }
    double at(double first, double second) const { return at(second).at(first); }

    /// Several places at once.
    [[gnu::always_inline]] void at(const Lanes& first, const Lanes& second, Lanes& sum) const {
        sum = Lanes{};
        for (std::size_t power = count; power-- > 0;) {
            Lanes row;
            byFirst[power].at(first, row);
            sum = sum * second + row;
        }
    }

    /// Adds the share of a sample at the Chebyshev points `i` of the first and `j` of the second variable.
    void add(std::size_t i, std::size_t j, double value) {
        const SquareMatrix<count>& matrix = powersFromValues<count>();
        for (std::size_t second = 0; second < count; ++second) {
            for (std::size_t first = 0; first < count; ++first)
                byFirst[second].coefficients[first] += matrix[first][i] * matrix[second][j] * value;
        }
    }
};

}  // namespace marvello::fluids

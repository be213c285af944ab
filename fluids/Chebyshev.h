#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace marvello::fluids {

/// One of `count` places from -1 to 1 at which a function is sampled for a polynomial.
inline double chebyshevPoint(std::size_t k, std::size_t count) {
    return std::cos(std::numbers::pi * (static_cast<double>(k) + 0.5) / static_cast<double>(count));
}

/// What the sample at point `k` adds to the coefficient of the Chebyshev polynomial T_m.
inline double chebyshevWeight(std::size_t m, std::size_t k, std::size_t count) {
    const double angle = std::numbers::pi * static_cast<double>(m) * (static_cast<double>(k) + 0.5) /
                         static_cast<double>(count);
    return (m == 0 ? 1.0 : 2.0) / static_cast<double>(count) * std::cos(angle);
}

template <std::size_t count>
using SquareMatrix = std::array<std::array<double, count>, count>;

/// The coefficients of the powers (columns) in the first Chebyshev polynomials (rows).
template <std::size_t count>
const SquareMatrix<count>& chebyshevPolynomials() {
    // T_0 = 1, T_1 = s, T_(m+1) = 2 s T_m - T_(m-1).
    static const SquareMatrix<count> rows = [] {
        SquareMatrix<count> found{};
        found[0][0] = 1;
        found[1][1] = 1;
        for (std::size_t m = 2; m < count; ++m) {
            for (std::size_t power = 0; power < count; ++power)
                found[m][power] = (power > 0 ? 2 * found[m - 1][power - 1] : 0) - found[m - 2][power];
        }
        return found;
    }();
    return rows;
}

/// The matrix from values at the Chebyshev points (columns) to coefficients of the powers (rows). Its entries
/// grow with the count and lose as much of the precision: for up to about ten.
template <std::size_t count>
const SquareMatrix<count>& powersFromValues() {
    static const SquareMatrix<count> matrix = [] {
        const SquareMatrix<count>& polynomials = chebyshevPolynomials<count>();
        SquareMatrix<count> found{};
        for (std::size_t k = 0; k < count; ++k) {
            for (std::size_t m = 0; m < count; ++m) {
                const double share = chebyshevWeight(m, k, count);
                for (std::size_t power = 0; power < count; ++power)
                    found[power][k] += share * polynomials[m][power];
            }
        }
        return found;
    }();
    return matrix;
}

/// The coefficients of the powers from the values at the Chebyshev points, of a function smooth enough that
/// those of its Chebyshev polynomials fall at least as fast as 2^-m: at any count without loss.
template <std::size_t count>
std::array<double, count> smoothPowers(const std::array<double, count>& values) {
    const SquareMatrix<count>& polynomials = chebyshevPolynomials<count>();
    std::array<double, count> found{};
    for (std::size_t m = 0; m < count; ++m) {
        double coefficient = 0;
        for (std::size_t k = 0; k < count; ++k) coefficient += chebyshevWeight(m, k, count) * values[k];
        for (std::size_t power = 0; power < count; ++power)
            found[power] += coefficient * polynomials[m][power];
    }
    return found;
}

}  // namespace marvello::fluids

#pragma once

#include <algorithm>
#include <cmath>

namespace marvello {

/// Returns the smallest of 1, 2, 2.5 and 5 times a power of ten of which at most `most` go into `span`; both
/// are positive.
inline double roundStep(double span, double most) {
    const double least = span / most;
    const double power = std::pow(10, std::floor(std::log10(least)));
    constexpr double noise = 1e-9;
    for (const double factor : {1.0, 2.0, 2.5, 5.0})
        if (factor * power >= least * (1 - noise)) return factor * power;
    return 10 * power;
}

/// Returns the first multiple of a step that is not below a value, but for the noise of the division.
inline double firstMultiple(double value, double step) {
    constexpr double noise = 1e-9;
    return std::ceil(value / step - noise) * step;
}

}  // namespace marvello

#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

#include "fluids/PropertyError.h"

namespace marvello::fluids {

/// A function's value and slope.
struct Slope {
    double value = 0;
    double derivative = 0;
};

/// Finds where an increasing function is 0, between `low` (value at most 0) and `high` (value at least 0):
/// Newton's method, with bisection where a step leaves the bracket or gains too little. `function(x)` gives a
/// Slope; `guess` is where to begin. Steps are measured against |x|, or `magnitude` if that is greater.
template <class Function>
double findIncreasingRoot(double low, double high, double guess, Function function, double magnitude = 0) {
    constexpr int steps = 200;
    constexpr double converged = 1e-8;  // what is left after a Newton step is of the order of its square
    constexpr double spacing = 4 * std::numeric_limits<double>::epsilon();
    double x = guess > low && guess < high ? guess : (low + high) / 2;
    double lastStep = high - low;
    for (int i = 0; i < steps; ++i) {
        const Slope f = function(x);
        if (f.value == 0) return x;
        (f.value < 0 ? low : high) = x;
        const double unit = std::max(std::abs(x), magnitude);
        const double newton = f.derivative > 0 ? -f.value / f.derivative : high - low;
        if (std::abs(newton) <= converged * unit) return x + newton;
        const bool usable =
            x + newton > low && x + newton < high && std::abs(newton) <= 0.7 * std::abs(lastStep);
        lastStep = usable ? newton : (low + high) / 2 - x;
        x += lastStep;
        if (std::abs(lastStep) <= spacing * unit) return x;
    }
    throw PropertyError(Fault::noConvergence, "A search for a state did not end.");
}

}  // namespace marvello::fluids

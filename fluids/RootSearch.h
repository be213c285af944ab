#pragma once

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
/// Slope; `guess` is where to begin. Ends when a step is below the spacing of doubles at x times `roundings`.
template <class Function>
double findIncreasingRoot(double low, double high, double guess, Function function, double roundings = 2) {
    constexpr int steps = 200;
    constexpr double epsilon = std::numeric_limits<double>::epsilon();
    double x = guess > low && guess < high ? guess : (low + high) / 2;
    double lastStep = high - low;
    for (int i = 0; i < steps; ++i) {
        const Slope f = function(x);
        if (f.value == 0) return x;
        (f.value < 0 ? low : high) = x;
        double next = f.derivative > 0 ? x - f.value / f.derivative : low;
        // A step that is not half the step before last time is made a bisection, so the bracket always shrinks.
        if (!(next > low && next < high) || std::abs(next - x) > 0.7 * std::abs(lastStep)) {
            next = (low + high) / 2;
        }
        lastStep = next - x;
        if (std::abs(lastStep) <= roundings * epsilon * std::abs(x) || next == low || next == high) return next;
        x = next;
    }
    throw PropertyError(Fault::noConvergence, "A search for a state did not end.");
}

}  // namespace marvello::fluids

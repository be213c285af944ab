#include "fluids/PowerTable.h"

#include <algorithm>
#include <cmath>

namespace marvello::fluids {
namespace {

constexpr double largestGap = 32;

double integerPower(double base, unsigned exponent) {
    double result = 1;
    for (double square = base; exponent != 0; exponent >>= 1, square *= square) {
        if ((exponent & 1) != 0) result *= square;
    }
    return result;
}

}  // namespace

PowerTable::PowerTable(std::vector<double> exponents) {
    std::sort(exponents.begin(), exponents.end());
    exponents.erase(std::unique(exponents.begin(), exponents.end()), exponents.end());
    double before = 0;
    for (const double exponent : exponents) {
        const double gap = exponent - before;
        const bool whole = exponent > 0 && gap >= 1 && gap <= largestGap && gap == std::floor(gap);
        steps_.push_back({exponent, whole ? static_cast<unsigned>(gap) : 0});
        needsLogarithm_ = needsLogarithm_ || (!whole && exponent != 0);
        before = std::max(exponent, 0.0);
    }
}

std::size_t PowerTable::indexOf(double exponent) const {
    const auto found = std::lower_bound(steps_.begin(), steps_.end(), exponent,
                                        [](const Step& step, double value) { return step.exponent < value; });
    return static_cast<std::size_t>(found - steps_.begin());
}

void PowerTable::fill(double base, std::span<double> powers) const {
    const double logarithm = needsLogarithm_ ? std::log(base) : 0;
    double before = 1;
    for (std::size_t i = 0; i < steps_.size(); ++i) {
        const Step& step = steps_[i];
        powers[i] =
            step.gap != 0 ? before * integerPower(base, step.gap) : std::exp(step.exponent * logarithm);
        if (step.exponent >= 0) before = powers[i];
    }
}

}  // namespace marvello::fluids

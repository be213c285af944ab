#include "fluids/Expansion.h"

#include <algorithm>
#include <cmath>

#include "fluids/Chebyshev.h"
#include "fluids/PropertyError.h"

namespace marvello::fluids {
namespace {

constexpr std::size_t count = Expansion::coefficientCount;
constexpr double missing = 1e300;  // an error where a sample has no value

}  // namespace

Expansion::Expansion(const Build& build, const Sample& sample) : functionCount_(build.functionCount) {
    borders_.push_back(build.borders.front());
    for (std::size_t i = 0; i + 1 < build.borders.size(); ++i)
        error_ = std::max(error_, split(build, sample, build.borders[i + 1], 1));
    if (!(error_ < missing)) throw PropertyError(Fault::noConvergence, "A curve has no value at some place.");
    makeIndex();
    for (std::size_t f = 0; f < functionCount_; ++f) {
        for (const double border : borders_) borderValues_.push_back(at(f, border));
    }
}

/// Adds the cell from the last border to `high`, or its three parts where they are better. Returns the
/// largest error seen.
double Expansion::split(const Build& build, const Sample& sample, double high, double parentError) {
    const double low = borders_.back();
    const std::size_t cell = borders_.size() - 1;
    const double error = addCell(sample, high);
    // An error that a narrower cell has hardly made smaller is rounding of the samples.
    const bool isNoise = error < 20 * build.tolerance && error > 0.1 * parentError;
    if (error <= build.tolerance || isNoise || high - low <= build.minWidth) return error;

    const std::size_t first = cell * count * functionCount_;
    const std::vector<double> whole(coefficients_.begin() + static_cast<std::ptrdiff_t>(first),
                                    coefficients_.end());
    const auto undo = [&] {
        borders_.resize(cell + 1);
        coefficients_.resize(first);
    };
    undo();
    const double third = (high - low) / 3;
    double partsError = 0;
    for (const double border : {low + third, high - third, high})
        partsError = std::max(partsError, split(build, sample, border, error));
    if (partsError < 4 * error) return partsError;
    undo();
    borders_.push_back(high);
    coefficients_.insert(coefficients_.end(), whole.begin(), whole.end());
    return error;
}

/// Fits the cell from the last border to `high` and tries the fit out. Returns the largest error seen.
double Expansion::addCell(const Sample& sample, double high) {
    const SquareMatrix<count>& matrix = powersFromValues<count>();
    const double low = borders_.back();
    std::array<double, maxFunctions> values{};
    const auto take = [&](double within) {
        return sample((low + high + within * (high - low)) / 2, {values.data(), functionCount_});
    };
    const std::size_t first = coefficients_.size();
    coefficients_.resize(first + count * functionCount_);
    borders_.push_back(high);
    for (std::size_t k = 0; k < count; ++k) {
        if (!take(chebyshevPoint(k, count))) return missing;
        for (std::size_t power = 0; power < count; ++power) {
            for (std::size_t f = 0; f < functionCount_; ++f)
                coefficients_[first + power * functionCount_ + f] += matrix[power][k] * values[f];
        }
    }
    // Between two Chebyshev points, near an end and near the middle, where errors are largest.
    double error = 0;
    for (const double within : {-0.95, 0.31}) {
        if (!take(within)) return missing;
        for (std::size_t f = 0; f < functionCount_; ++f)
            error = std::max(error, std::abs(at(f, Place{borders_.size() - 2, within}) - values[f]));
    }
    return error;
}

void Expansion::makeIndex() {
    const std::size_t parts = 4 * cellCount();
    indexPerWidth_ = static_cast<double>(parts) / (end() - begin());
    std::size_t cell = 0;
    for (std::size_t part = 0; part < parts; ++part) {
        const double left = begin() + static_cast<double>(part) / indexPerWidth_;
        while (cell + 1 < cellCount() && borders_[cell + 1] <= left) ++cell;
        index_.push_back(cell);
    }
}

Expansion::Place Expansion::placeOf(double x) const {
    const double part =
        std::clamp((x - begin()) * indexPerWidth_, 0.0, static_cast<double>(index_.size() - 1));
    std::size_t cell = index_[static_cast<std::size_t>(part)];
    while (cell + 1 < cellCount() && x >= borders_[cell + 1]) ++cell;
    while (cell > 0 && x < borders_[cell]) --cell;
    const double low = borders_[cell];
    const double high = borders_[cell + 1];
    return {cell, (2 * x - low - high) / (high - low)};
}

double Expansion::at(std::size_t function, Place place) const { return within(function, place, count).value; }

void Expansion::all(Place place, std::span<double> values) const {
    const double* from = &coefficients_[place.cell * count * functionCount_];
    const double square = place.within * place.within;
    std::array<double, maxFunctions> odd;
    std::fill_n(values.begin(), functionCount_, 0.0);
    std::fill_n(odd.begin(), functionCount_, 0.0);
    for (std::size_t power = count; power > 0; power -= 2) {
        const double* row = from + (power - 2) * functionCount_;
        for (std::size_t f = 0; f < functionCount_; ++f) {
            values[f] = values[f] * square + row[f];
            odd[f] = odd[f] * square + row[functionCount_ + f];
        }
    }
    for (std::size_t f = 0; f < functionCount_; ++f) values[f] += place.within * odd[f];
}

/// Of the polynomial of the lowest `terms` coefficients on a cell, an even number; the slope is by the place
/// within. Even and odd powers are summed apart, so that they do not wait for each other.
Expansion::ValueAndSlope Expansion::within(std::size_t function, Place place, std::size_t terms) const {
    const double* from = &coefficients_[place.cell * count * functionCount_ + function];
    const double square = place.within * place.within;
    ValueAndSlope even;  // slopes by the square
    ValueAndSlope odd;
    for (std::size_t power = terms; power > 0; power -= 2) {
        const double* pair = from + (power - 2) * functionCount_;
        even.slope = even.slope * square + even.value;
        odd.slope = odd.slope * square + odd.value;
        even.value = even.value * square + pair[0];
        odd.value = odd.value * square + pair[functionCount_];
    }
    return {even.value + place.within * odd.value,
            odd.value + 2 * place.within * (even.slope + place.within * odd.slope)};
}

Expansion::ValueAndSlope Expansion::withSlope(std::size_t function, double x) const {
    const Place place = placeOf(x);
    const ValueAndSlope here = within(function, place, count);
    return {here.value, here.slope * 2 / (borders_[place.cell + 1] - borders_[place.cell])};
}

double Expansion::inverse(std::size_t function, double value, double low, double high) const {
    const Place first = placeOf(low);
    const Place last = placeOf(high);
    double atLow = at(function, first);
    double atHigh = at(function, last);
    const bool rises = atHigh > atLow;
    if (rises ? value <= atLow : value >= atLow) return low;
    if (rises ? value >= atHigh : value <= atHigh) return high;
    // The cell, by halving what lies between.
    const double* values = &borderValues_[function * borders_.size()];
    std::size_t cell = first.cell;
    for (std::size_t beyond = last.cell + 1; beyond - cell > 1;) {
        const std::size_t middle = cell + (beyond - cell) / 2;
        ((values[middle] > value) == rises ? beyond : cell) = middle;
    }
    Bracket bracket{-1, 1, values[cell], values[cell + 1]};
    if (cell == first.cell) {
        bracket.low = first.within;
        bracket.atLow = atLow;
    }
    if (cell == last.cell) {
        bracket.high = last.within;
        bracket.atHigh = atHigh;
    }
    const double within = inverseWithin(function, value, cell, bracket);
    return (borders_[cell] + borders_[cell + 1] + within * (borders_[cell + 1] - borders_[cell])) / 2;
}

/// Newton's method in a bracket: roughly on a cubic first, then on the whole polynomial.
double Expansion::inverseWithin(std::size_t function, double value, std::size_t cell, Bracket bracket) const {
    constexpr int steps = 100;
    constexpr std::size_t cubic = 4;
    const bool rises = bracket.atHigh > bracket.atLow;
    double x = bracket.low +
               (bracket.high - bracket.low) * (value - bracket.atLow) / (bracket.atHigh - bracket.atLow);
    for (int i = 0; i < 3; ++i) {
        const ValueAndSlope here = within(function, {cell, x}, cubic);
        const double next = x - (here.value - value) / here.slope;
        if (!(next > bracket.low && next < bracket.high)) break;
        x = next;
    }
    for (int i = 0; i < steps; ++i) {
        const ValueAndSlope here = within(function, {cell, x}, count);
        ((here.value > value) == rises ? bracket.high : bracket.low) = x;
        const double newton = x - (here.value - value) / here.slope;
        const bool inside = newton > bracket.low && newton < bracket.high;
        const double next = inside ? newton : (bracket.low + bracket.high) / 2;
        const double step = std::abs(next - x);
        x = next;
        if ((inside && step < 1e-8) || bracket.high - bracket.low < 1e-15) break;
    }
    return x;
}

std::optional<double> Expansion::extremum(std::size_t function, double low, double high) const {
    const bool rises = withSlope(function, low).slope > 0;
    if ((withSlope(function, high).slope > 0) == rises) return std::nullopt;
    for (int i = 0; i < 60; ++i) {
        const double middle = (low + high) / 2;
        ((withSlope(function, middle).slope > 0) == rises ? low : high) = middle;
    }
    return (low + high) / 2;
}

}  // namespace marvello::fluids

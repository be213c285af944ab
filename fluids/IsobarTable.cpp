#include "fluids/IsobarTable.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "fluids/Chebyshev.h"
#include "fluids/PropertyError.h"
#include "fluids/RootSearch.h"

namespace marvello::fluids {
namespace {

constexpr std::size_t endPowers = 20;  // of the ends over ln p
constexpr std::size_t endFunctions = 8;
constexpr std::size_t powers = 8;          // of a piece of one phase, over each variable
constexpr std::size_t twoPhasePowers = 8;  // of the piece of two phases
constexpr double slack = 1e-4;             // beyond a piece, for the errors of its neighbours

/// A polynomial of one variable.
template <std::size_t count>
struct Polynomial {
    std::array<double, count> coefficients{};

    Slope at(double x) const {
        Slope sum;
        for (std::size_t power = count; power-- > 0;) {
            sum.derivative = sum.derivative * x + sum.value;
            sum.value = sum.value * x + coefficients[power];
        }
        return sum;
    }

    /// Where a rising or falling polynomial has a value, by Newton's method; anything where it has it not
    /// between about -1 and 1.
    double inverse(double value) const {
        constexpr int steps = 6;
        constexpr double enough = 1e-9;
        const double low = at(-1).value;
        const double high = at(1).value;
        double x = (2 * value - low - high) / (high - low);
        for (int i = 0; i < steps; ++i) {
            const Slope here = at(x);
            const double step = (value - here.value) / here.derivative;
            x += step;
            if (!(std::abs(step) > enough)) break;
        }
        return x;
    }
};

/// A polynomial of two variables.
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

    /// Adds the share of a sample at Chebyshev points `i` of the first and `j` of the second variable.
    void add(std::size_t i, std::size_t j, double value) {
        const SquareMatrix<count>& matrix = powersFromValues<count>();
        for (std::size_t second = 0; second < count; ++second) {
            for (std::size_t first = 0; first < count; ++first)
                byFirst[second].coefficients[first] += matrix[first][i] * matrix[second][j] * value;
        }
    }
};

}  // namespace

/// The ends over the place in a cell.
struct IsobarTable::Ends {
    bool isUsable = false;
    bool isSharp = false;
    std::array<std::array<double, endFunctions>, endPowers> coefficients{};

    IsobarEnds at(double within) const {
        std::array<double, endFunctions> even{};
        std::array<double, endFunctions> odd{};
        const double square = within * within;
        for (std::size_t power = endPowers; power > 0; power -= 2) {
            for (std::size_t f = 0; f < endFunctions; ++f) {
                even[f] = even[f] * square + coefficients[power - 2][f];
                odd[f] = odd[f] * square + coefficients[power - 1][f];
            }
        }
        for (std::size_t f = 0; f < endFunctions; ++f) even[f] += within * odd[f];
        return {even[0], even[1], even[2], even[3], even[4], even[5], even[6], even[7]};
    }
};

struct IsobarTable::OnePhasePiece {
    bool isUsable = false;
    Surface<powers> enthalpy, entropy, density;  ///< over the place on the stretch and in the cell

    const Surface<powers>& of(Property property) const {
        return property == Property::enthalpy ? enthalpy : entropy;
    }
};

struct IsobarTable::TwoPhasePiece {
    bool isUsable = false;
    /// Over the vapour's share and the place in the cell.
    Surface<twoPhasePowers> enthalpy, entropy, logTemperature, logLiquid, logVapour;
    std::vector<Surface<twoPhasePowers>> logK;

    const Surface<twoPhasePowers>& of(Property property) const {
        return property == Property::enthalpy ? enthalpy : entropy;
    }
};

struct IsobarTable::Cell {
    double low = 0;  ///< ln p
    double high = 0;
    Lazy<Ends> ends;
    std::array<Lazy<OnePhasePiece>, stretches.size()> pieces;
    Lazy<TwoPhasePiece> twoPhases;

    double pressureAt(double within) const { return std::exp((low + high + within * (high - low)) / 2); }
};

IsobarTable::IsobarTable(const Phase& phase, const PhaseBoundary& boundary, const FluidLimits& limits)
    : phase_(&phase), boundary_(&boundary), limits_(&limits) {
    // Each of the upper cells lies twice as close to the critical point as the one below it.
    constexpr int upper = 3;
    constexpr int lower = 12;
    const double top = boundary.pressureMax();
    for (int k = lower; k > 1; --k) borders_.push_back(std::log(top * std::pow(0.5, k)));
    for (int k = 1; k <= upper + 1; ++k) borders_.push_back(std::log(top * (1 - std::pow(0.5, k))));
    const double lowest = std::log(boundary.pressureMin(PhaseBoundary::Side::bubble));
    while (borders_.size() > 2 && borders_.front() < lowest) borders_.erase(borders_.begin());
    cells_ = std::make_unique<Cell[]>(borders_.size() - 1);
    for (std::size_t i = 0; i + 1 < borders_.size(); ++i) {
        cells_[i].low = borders_[i];
        cells_[i].high = borders_[i + 1];
    }
}

IsobarTable::~IsobarTable() = default;

/// What cannot be made stays as it is by default: not usable.
template <class Thing, class Make>
const Thing& IsobarTable::made(Lazy<Thing>& lazy, Make make) const {
    if (const Thing* found = lazy.made.load(std::memory_order_acquire)) return *found;
    const std::lock_guard lock(making_);
    if (!lazy.owned) {
        auto thing = std::make_unique<Thing>();
        try {
            make(*thing);
        } catch (const PropertyError&) {
            thing->isUsable = false;
        }
        lazy.owned = std::move(thing);
        lazy.made.store(lazy.owned.get(), std::memory_order_release);
    }
    return *lazy.owned;
}

std::optional<IsobarTable::Isobar> IsobarTable::at(double pressure) const {
    const double logPressure = std::log(pressure);
    if (!(logPressure >= borders_.front() && logPressure < borders_.back())) return std::nullopt;
    const auto beyond = std::upper_bound(borders_.begin(), borders_.end(), logPressure);
    Cell& cell = cells_[static_cast<std::size_t>(beyond - borders_.begin()) - 1];
    const Ends& ends = made(cell.ends, [&](Ends& made) { makeEnds(cell, made); });
    if (!ends.isUsable) return std::nullopt;
    Isobar isobar;
    isobar.table_ = this;
    isobar.cell_ = &cell;
    isobar.within_ = (2 * logPressure - cell.low - cell.high) / (cell.high - cell.low);
    isobar.pressure_ = pressure;
    isobar.ends_ = ends.at(isobar.within_);
    return isobar;
}

IsobarEnds IsobarTable::endsAt(double pressure) const {
    const PhaseBoundary::Cut cut = boundary_->cutAtPressure(pressure);
    const PhaseState liquid = phase_->at(cut.liquid.point.temperature).state(cut.liquid.density);
    const PhaseState vapour = phase_->at(cut.vapour.point.temperature).state(cut.vapour.density);
    return {liquid.temperature, vapour.temperature, liquid.density, vapour.density,
            liquid.enthalpy,    vapour.enthalpy,    liquid.entropy, vapour.entropy};
}

void IsobarTable::makeEnds(const Cell& cell, Ends& ends) const {
    constexpr double usable = 1e-6;
    constexpr double sharp = 1e-11;
    const auto valuesOf = [](const IsobarEnds& e) {
        return std::array<double, endFunctions>{e.liquidTemperature, e.vapourTemperature, e.liquidDensity,
                                                e.vapourDensity,     e.liquidEnthalpy,    e.vapourEnthalpy,
                                                e.liquidEntropy,     e.vapourEntropy};
    };
    std::array<std::array<double, endPowers>, endFunctions> samples{};
    for (std::size_t k = 0; k < endPowers; ++k) {
        const auto values = valuesOf(endsAt(cell.pressureAt(chebyshevPoint(k, endPowers))));
        for (std::size_t f = 0; f < endFunctions; ++f) samples[f][k] = values[f];
    }
    for (std::size_t f = 0; f < endFunctions; ++f) {
        const std::array<double, endPowers> found = smoothPowers(samples[f]);
        for (std::size_t power = 0; power < endPowers; ++power) ends.coefficients[power][f] = found[power];
    }
    double error = 0;
    for (const double within : {-0.97, 0.23}) {
        const IsobarEnds known = endsAt(cell.pressureAt(within));
        const auto right = valuesOf(known);
        const auto found = valuesOf(ends.at(within));
        const double enthalpy = known.vapourEnthalpy - known.liquidEnthalpy;
        const double entropy = known.vapourEntropy - known.liquidEntropy;
        // The temperature counts ten times, since properties change as much faster with it.
        const std::array<double, endFunctions> units{right[0] / 10, right[1] / 10, right[2], right[3],
                                                     enthalpy,      enthalpy,      entropy,  entropy};
        for (std::size_t f = 0; f < endFunctions; ++f)
            error = std::max(error, std::abs(found[f] - right[f]) / units[f]);
    }
    ends.isUsable = error < usable;
    ends.isSharp = error < sharp;
}

bool IsobarTable::Isobar::hasSharpEnds() const { return cell_->ends.made.load()->isSharp; }

/// Of one phase, on the side of the stretch.
PhaseState IsobarTable::stateAt(double temperature, double pressure, const Stretch& stretch,
                                double vapourCeiling, double guess) const {
    Isotherm isotherm = phase_->at(temperature);
    const double wanted = pressure / (phase_->gasConstant() * temperature);
    const double low = stretch.direction > 0 ? 0 : boundary_->liquidDensityFloor(temperature);
    const double high = stretch.direction > 0 ? vapourCeiling : limits_->densityMax;
    return isotherm.state(findIncreasingRoot(low, high, guess, [&](double density) {
        const ReducedPressure here = isotherm.reducedPressure(density);
        return Slope{here.value - wanted, here.byDensity};
    }));
}

void IsobarTable::makePiece(const Cell& cell, const Stretch& stretch, OnePhasePiece& piece) const {
    for (std::size_t j = 0; j < powers; ++j) {
        const double pressure = cell.pressureAt(chebyshevPoint(j, powers));
        const IsobarEnds ends = endsAt(pressure);
        const bool isVapour = stretch.direction > 0;
        const double end = isVapour ? ends.vapourTemperature : ends.liquidTemperature;
        PhaseState state;
        state.density = isVapour ? ends.vapourDensity : ends.liquidDensity;
        double byTemperature = 0;
        // The points fall, so the last one is nearest to boiling.
        for (std::size_t i = powers; i-- > 0;) {
            const double temperature = stretch.temperature(end, chebyshevPoint(i, powers));
            if (temperature < limits_->temperatureMin || temperature > limits_->temperatureMax) return;
            const double guess = state.density + byTemperature * (temperature - state.temperature);
            state = stateAt(temperature, pressure, stretch, ends.vapourDensity * (1 + 1e-5), guess);
            byTemperature = -state.pressureByTemperature / state.pressureByDensity;
            piece.enthalpy.add(i, j, state.enthalpy);
            piece.entropy.add(i, j, state.entropy);
            piece.density.add(i, j, state.density);
        }
    }
    piece.isUsable = true;
}

void IsobarTable::makeTwoPhases(const Cell& cell, TwoPhasePiece& piece) const {
    constexpr std::size_t count = twoPhasePowers;
    piece.logK.resize(phase_->mixture().size());
    Equilibrium equilibrium(phase_->mixture(), phase_->fractions());
    for (std::size_t j = 0; j < count; ++j) {
        const double pressure = cell.pressureAt(chebyshevPoint(j, count));
        const SaturationPoint bubble = boundary_->cutAtPressure(pressure).liquid.point;
        TwoPhases state{bubble.temperature,   pressure,   0, bubble.liquidDensity,
                        bubble.vapourDensity, bubble.logK};
        for (std::size_t i = count; i-- > 0;) {
            const double share = (1 + chebyshevPoint(i, count)) / 2;
            state.share = share;
            const auto found = equilibrium.solve(
                state, {Condition{Condition::Of::pressure, pressure}, {Condition::Of::share, share}});
            if (!found || !equilibrium.isStable() || !(found->firstDensity > found->secondDensity)) return;
            state = *found;
            const Equilibrium::EnthalpyEntropy values = equilibrium.enthalpyEntropy(state);
            piece.enthalpy.add(i, j, values.enthalpy);
            piece.entropy.add(i, j, values.entropy);
            piece.logTemperature.add(i, j, std::log(state.temperature));
            piece.logLiquid.add(i, j, std::log(state.firstDensity));
            piece.logVapour.add(i, j, std::log(state.secondDensity));
            for (std::size_t k = 0; k < piece.logK.size(); ++k) piece.logK[k].add(i, j, state.logK[k]);
        }
    }
    piece.isUsable = true;
}

std::optional<IsobarTable::OnePhase> IsobarTable::Isobar::liquidAt(Property property, double value) const {
    return onePhaseAt(property, value, -1, ends_.liquidTemperature);
}

std::optional<IsobarTable::OnePhase> IsobarTable::Isobar::vapourAt(Property property, double value) const {
    return onePhaseAt(property, value, 1, ends_.vapourTemperature);
}

std::optional<IsobarTable::OnePhase> IsobarTable::Isobar::onePhaseAt(Property property, double value,
                                                                     double direction,
                                                                     double endTemperature) const {
    for (std::size_t i = 0; i < stretches.size(); ++i) {
        const Stretch& stretch = stretches[i];
        if (stretch.direction != direction) continue;
        const OnePhasePiece& piece = table_->made(
            cell_->pieces[i], [&](OnePhasePiece& made) { table_->makePiece(*cell_, stretch, made); });
        if (!piece.isUsable) return std::nullopt;
        const Polynomial<powers> ofPlace = piece.of(property).at(within_);
        if (direction * (value - ofPlace.at(1).value) > 0) continue;
        const double place = ofPlace.inverse(value);
        if (!(std::abs(place) < 1 + slack)) return std::nullopt;
        return OnePhase{stretch.temperature(endTemperature, place),
                        piece.density.at(within_).at(place).value};
    }
    return std::nullopt;
}

std::optional<TwoPhases> IsobarTable::Isobar::twoPhasesAt(Property property, double value) const {
    const TwoPhasePiece& piece =
        table_->made(cell_->twoPhases, [&](TwoPhasePiece& made) { table_->makeTwoPhases(*cell_, made); });
    if (!piece.isUsable) return std::nullopt;
    const double place = piece.of(property).at(within_).inverse(value);
    if (!(std::abs(place) < 1 + slack)) return std::nullopt;
    const auto at = [&](const Surface<twoPhasePowers>& surface) {
        return surface.at(within_).at(place).value;
    };
    TwoPhases phases;
    phases.temperature = std::exp(at(piece.logTemperature));
    phases.pressure = pressure_;
    phases.share = (1 + place) / 2;
    phases.firstDensity = std::exp(at(piece.logLiquid));
    phases.secondDensity = std::exp(at(piece.logVapour));
    for (std::size_t k = 0; k < piece.logK.size(); ++k) phases.logK[k] = at(piece.logK[k]);
    return phases;
}

}  // namespace marvello::fluids

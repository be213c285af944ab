#include "fluids/IsobarTable.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "fluids/IsobarPieces.h"
#include "fluids/PropertyError.h"
#include "fluids/RootSearch.h"

namespace marvello::fluids {
namespace {

constexpr double slack = 1e-4;  // beyond a stretch, for the errors of its polynomials
constexpr double nextToEnd = 1e-5;

/// Of an end, in the order of IsobarEnds; the vapour's follows.
constexpr std::size_t liquidFunction(Property property) {
    return property == Property::temperature ? 0 : property == Property::enthalpy ? 4 : 6;
}

double ofLiquid(const IsobarEnds& ends, Property property) {
    return property == Property::temperature ? ends.liquidTemperature
           : property == Property::enthalpy  ? ends.liquidEnthalpy
                                             : ends.liquidEntropy;
}

double ofVapour(const IsobarEnds& ends, Property property) {
    return property == Property::temperature ? ends.vapourTemperature
           : property == Property::enthalpy  ? ends.vapourEnthalpy
                                             : ends.vapourEntropy;
}

/// The direction of a stretch: -1 where a value is a liquid's, 1 where it is a vapour's; 0 between and next
/// to both ends.
double directionOf(Property property, double value, double liquid, double vapour) {
    const double margin = nextToEnd * (property == Property::temperature ? vapour : vapour - liquid);
    return value < liquid - margin ? -1 : value > vapour + margin ? 1 : 0;
}

}  // namespace

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

const IsobarTable::Ends& IsobarTable::endsOf(Cell& cell) const {
    return made(cell.ends, [&](Ends& ends) { makeEnds(cell, ends); });
}

const IsobarTable::OnePhasePiece& IsobarTable::pieceOf(Cell& cell, std::size_t stretch) const {
    return made(cell.pieces[stretch],
                [&](OnePhasePiece& piece) { makePiece(cell, stretches[stretch], piece); });
}

std::optional<IsobarTable::Place> IsobarTable::placeOf(double pressure) const {
    const double logPressure = std::log(pressure);
    if (!(logPressure >= borders_.front() && logPressure < borders_.back())) return std::nullopt;
    const auto beyond = std::upper_bound(borders_.begin(), borders_.end(), logPressure);
    const auto cell = static_cast<std::size_t>(beyond - borders_.begin()) - 1;
    return Place{cell, cells_[cell].withinOf(logPressure)};
}

std::optional<IsobarTable::Isobar> IsobarTable::at(double pressure) const {
    const auto place = placeOf(pressure);
    if (!place) return std::nullopt;
    Isobar isobar;
    isobar.table_ = this;
    isobar.cell_ = &cells_[place->cell];
    const Ends& ends = endsOf(*isobar.cell_);
    if (!ends.isUsable) return std::nullopt;
    isobar.within_ = place->within;
    isobar.pressure_ = pressure;
    isobar.ends_ = ends.at(place->within);
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

bool IsobarTable::isInRange(const Stretch& stretch, const IsobarEnds& ends) const {
    const double end = stretch.direction > 0 ? ends.vapourTemperature : ends.liquidTemperature;
    double farthest = 0;
    stretch.temperature(end, 1 + slack, farthest);
    return farthest > limits_->temperatureMin && farthest < limits_->temperatureMax;
}

void IsobarTable::makePiece(const Cell& cell, const Stretch& stretch, OnePhasePiece& piece) const {
    constexpr std::size_t count = piecePowers;
    for (const double within : {-1.0, 1.0}) {
        if (!isInRange(stretch, endsAt(cell.pressureAt(within)))) return;
    }
    const bool isVapour = stretch.direction > 0;
    Surface<count> enthalpy;  // over the place on the stretch
    Surface<count> entropy;
    for (std::size_t j = 0; j < count; ++j) {
        const double pressure = cell.pressureAt(chebyshevPoint(j, count));
        const IsobarEnds ends = endsAt(pressure);
        const double end = isVapour ? ends.vapourTemperature : ends.liquidTemperature;
        PhaseState state;
        state.temperature = end;
        state.density = isVapour ? ends.vapourDensity : ends.liquidDensity;
        double byTemperature = 0;
        // The points fall, so the last one is nearest to boiling.
        for (std::size_t i = count; i-- > 0;) {
            double temperature = 0;
            stretch.temperature(end, chebyshevPoint(i, count), temperature);
            const double guess = state.density + byTemperature * (temperature - state.temperature);
            state = stateAt(temperature, pressure, stretch, ends.vapourDensity * (1 + 1e-5), guess);
            byTemperature = -state.pressureByTemperature / state.pressureByDensity;
            enthalpy.add(i, j, state.enthalpy);
            entropy.add(i, j, state.entropy);
            piece.density.add(i, j, state.density);
        }
    }
    piece.enthalpy.invert(enthalpy);
    piece.entropy.invert(entropy);
    piece.isUsable = true;
}

/// From a property over the place on a stretch to the place over the property.
void IsobarTable::OnePhasePiece::ByValue::invert(const Surface<piecePowers>& values) {
    constexpr std::size_t count = piecePowers;
    for (std::size_t power = 0; power < count; ++power) {
        near.coefficients[power] = values.byFirst[power].at(-1);
        far.coefficients[power] = values.byFirst[power].at(1);
    }
    for (std::size_t j = 0; j < count; ++j) {
        const double within = chebyshevPoint(j, count);
        const Polynomial<count> ofPlace = values.at(within);
        const double atNear = near.at(within);
        const double atFar = far.at(within);
        for (std::size_t i = 0; i < count; ++i) {
            const double value = ((atNear + atFar) + chebyshevPoint(i, count) * (atFar - atNear)) / 2;
            place.add(i, j, ofPlace.inverse(value));
        }
    }
}

void IsobarTable::makeTwoPhases(const Cell& cell, TwoPhasePiece& piece) const {
    constexpr std::size_t count = piecePowers;
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

std::optional<double> IsobarTable::Isobar::placeBetweenEnds(Property property, double value) const {
    const double liquid = ofLiquid(ends_, property);
    const double place = (value - liquid) / (ofVapour(ends_, property) - liquid);
    if (!(place > nextToEnd && place < 1 - nextToEnd)) return std::nullopt;
    return place;
}

std::optional<IsobarTable::OnePhase> IsobarTable::Isobar::onePhaseAt(Property property, double value) const {
    const double direction =
        directionOf(property, value, ofLiquid(ends_, property), ofVapour(ends_, property));
    const double end = direction > 0 ? ends_.vapourTemperature : ends_.liquidTemperature;
    for (std::size_t i = 0; i < stretchCount; ++i) {
        const Stretch& stretch = stretches[i];
        if (stretch.direction != direction) continue;
        const OnePhasePiece& piece = table_->pieceOf(*cell_, i);
        if (!piece.isUsable) return std::nullopt;
        double place = 0;
        if (property == Property::temperature) {
            stretch.place(end, value, place);
        } else {
            const OnePhasePiece::ByValue& by = piece.by(property);
            const double far = by.far.at(within_);
            if (direction * (value - far) > 0) continue;
            const double near = by.near.at(within_);
            place = by.place.at((2 * value - near - far) / (far - near), within_);
        }
        if (place > 1) continue;
        if (!(place > -1 - slack)) return std::nullopt;
        double temperature = value;
        if (property != Property::temperature) stretch.temperature(end, place, temperature);
        return OnePhase{temperature, piece.density.at(place, within_)};
    }
    return std::nullopt;
}

std::optional<TwoPhases> IsobarTable::Isobar::twoPhasesAt(Property property, double value) const {
    const TwoPhasePiece& piece =
        table_->made(cell_->twoPhases, [&](TwoPhasePiece& made) { table_->makeTwoPhases(*cell_, made); });
    if (!piece.isUsable) return std::nullopt;
    const double place = piece.of(property).at(within_).inverse(value);
    if (!(std::abs(place) < 1 + slack)) return std::nullopt;
    const auto at = [&](const Surface<piecePowers>& surface) { return surface.at(place, within_); };
    TwoPhases phases;
    phases.temperature = std::exp(at(piece.logTemperature));
    phases.pressure = pressure_;
    phases.share = (1 + place) / 2;
    phases.firstDensity = std::exp(at(piece.logLiquid));
    phases.secondDensity = std::exp(at(piece.logVapour));
    for (std::size_t k = 0; k < piece.logK.size(); ++k) phases.logK[k] = at(piece.logK[k]);
    return phases;
}

void IsobarTable::stretchesOf(std::size_t cell, Property property, const Lanes& within, const Lanes& value,
                              StretchOfLane& to) const {
    to.fill(stretchCount);
    const Ends& ends = endsOf(cells_[cell]);
    if (!ends.isUsable) return;
    Lanes liquid;
    Lanes vapour;
    inVectorUnit([&]() MARVELLO_INLINED {
        ends.at(liquidFunction(property), within, liquid);
        ends.at(liquidFunction(property) + 1, within, vapour);
    });
    for (std::size_t lane = 0; lane < laneCount; ++lane) {
        const double direction = directionOf(property, value[lane], liquid[lane], vapour[lane]);
        const double end = direction > 0 ? vapour[lane] : liquid[lane];
        for (std::size_t i = 0; i < stretchCount; ++i) {
            if (stretches[i].direction != direction) continue;
            const OnePhasePiece& piece = pieceOf(cells_[cell], i);
            if (!piece.isUsable) break;
            const double beyond = property == Property::temperature
                                      ? direction * (value[lane] - end) - stretches[i].far
                                      : direction * (value[lane] - piece.by(property).far.at(within[lane]));
            if (beyond > 0) continue;
            to[lane] = i;
            break;
        }
    }
}

void IsobarTable::onePhaseAt(std::size_t cell, std::size_t stretch, Property property, const Lanes& within,
                             const Lanes& value, Lanes& temperature, Lanes& density) const {
    const Stretch& on = stretches[stretch];
    const Ends& ends = endsOf(cells_[cell]);
    const OnePhasePiece& piece = pieceOf(cells_[cell], stretch);
    inVectorUnit([&]() MARVELLO_INLINED {
        Lanes end;
        ends.at(liquidFunction(Property::temperature) + (on.direction > 0 ? 1 : 0), within, end);
        Lanes place;
        if (property == Property::temperature) {
            temperature = value;
            on.place(end, value, place);
        } else {
            const OnePhasePiece::ByValue& by = piece.by(property);
            Lanes near;
            Lanes far;
            by.near.at(within, near);
            by.far.at(within, far);
            by.place.at((2 * value - near - far) / (far - near), within, place);
            on.temperature(end, place, temperature);
        }
        piece.density.at(place, within, density);
    });
}

}  // namespace marvello::fluids

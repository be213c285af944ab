#include "fluids/PhaseEnvelope.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <string>

#include "fluids/Nearest.h"
#include "fluids/PropertyError.h"

namespace marvello::fluids {
namespace {

/// The functions of the curve; ln K of the components follow.
enum Function : std::size_t { logTemperature, logPressure, logDensity, firstLogK };
static_assert(firstLogK + maxComponents <= Expansion::maxFunctions);

constexpr double criticalGap = 0.08;  // of u: nearer to the critical point no state is solved
constexpr double sharpness = 1e-11;   // of the polynomials
constexpr double minWidth = 0.03;     // of a cell, in u
constexpr double maxEnd = 0.75;       // of the reducing temperature: a curve that ends above is refused
constexpr double warmerBegin = 1.06;  // over the last one, where a fit did not hold

[[noreturn]] void refuse(const std::string& text) { throw PropertyError(Fault::outOfRange, text); }

[[noreturn]] void unknownShape(const Mixture& mixture) {
    throw PropertyError(Fault::notSupported, "The phase boundary of the blend " + mixture.name() +
                                                 " could not be followed; it may split into two liquids.");
}

constexpr Condition feedAlone{Condition::Of::share, 0};

/// How far apart two states are: the largest difference of a logarithm, the temperature's counted ten times.
double distance(const TwoPhases& one, const TwoPhases& two) {
    double largest = std::max(10 * std::abs(std::log(one.temperature / two.temperature)),
                              std::abs(std::log(one.firstDensity / two.firstDensity)));
    for (std::size_t i = 0; i < maxComponents; ++i)
        largest = std::max(largest, std::abs(one.logK[i] - two.logK[i]));
    return largest;
}

}  // namespace

PhaseEnvelope::PhaseEnvelope(const Phase& phase, Equilibrium& equilibrium, double temperatureMin)
    : componentCount_(equilibrium.mixture().size()) {
    temperatureMin_ = temperatureMin;
    Tracing tracing{equilibrium, {}};
    const TwoPhases guess = firstBubblePoint(phase, equilibrium.mixture());
    tracing.add(equilibrium.solve(guess, {feedAlone, {Condition::Of::temperature, guess.temperature}}));
    for (const double direction : {-1.0, 1.0}) {
        const double coldest = tracing.walk(direction, temperatureMin);
        temperatureMin_ = std::max(temperatureMin_, coldest);
    }
    // Where the liquid would split in two at the cold end, the curve ends above that.
    while (!fit(tracing)) {
        temperatureMin_ *= warmerBegin;
        if (temperatureMin_ > maxEnd * phase.reducing().temperature) unknownShape(equilibrium.mixture());
    }
    findLandmarks(equilibrium.mixture());
}

/// At a low pressure, where the vapour is nearly ideal: its partial pressures are the liquid's fugacities.
TwoPhases PhaseEnvelope::firstBubblePoint(const Phase& phase, const Mixture& mixture) const {
    constexpr double nearlyIdeal = 0.62;  // of the reducing temperature: the pressure is low there
    constexpr double aboveColdEnd = 1.02;
    const double temperature =
        std::max(nearlyIdeal * phase.reducing().temperature, aboveColdEnd * temperatureMin_);
    const double density =  // under hardly any pressure
        phase.at(temperature).liquidDensity(0, Isotherm::denseLiquid * phase.reducing().density);
    TwoPhases point;
    point.temperature = temperature;
    point.firstDensity = density;
    PerComponent amounts{};
    const std::size_t count = mixture.size();
    for (std::size_t i = 0; i < count; ++i) amounts[i] = density * phase.fractions()[i];
    FugacityState liquid;
    Fugacity(mixture).evaluate(temperature, {amounts.data(), count}, false, liquid);
    for (std::size_t i = 0; i < count; ++i) point.secondDensity += std::exp(liquid.potential[i]);
    for (std::size_t i = 0; i < count; ++i) {
        point.logK[i] = liquid.potential[i] - std::log(point.secondDensity * phase.fractions()[i]);
    }
    return point;
}

/// Adds a state that was found.
void PhaseEnvelope::Tracing::add(const std::optional<TwoPhases>& state) {
    if (!state) unknownShape(equilibrium.mixture());
    known[std::log(state->secondDensity / state->firstDensity)] = *state;
}

/// What the known states say of another place.
TwoPhases PhaseEnvelope::Tracing::guessAt(double u) const {
    TwoPhases guess;
    double logTemperature = 0;
    double logDensity = 0;
    overNearest(known, u, [&](const TwoPhases& state, double weight) {
        logTemperature += weight * std::log(state.temperature);
        logDensity += weight * std::log(state.firstDensity);
        for (std::size_t i = 0; i < maxComponents; ++i) guess.logK[i] += weight * state.logK[i];
    });
    guess.temperature = std::exp(logTemperature);
    guess.firstDensity = std::exp(logDensity);
    guess.secondDensity = guess.firstDensity * std::exp(u);
    return guess;
}

std::optional<TwoPhases> PhaseEnvelope::Tracing::solveFrom(const TwoPhases& guess, double u) {
    return equilibrium.solve(guess, {feedAlone, {Condition::Of::densityRatio, u}});
}

/// Steps along the curve until it is colder than `temperatureMin`, or no further state is found. Returns the
/// coldest temperature reached.
double PhaseEnvelope::Tracing::walk(double direction, double temperatureMin) {
    constexpr double longest = 0.3;
    // How far a state may lie from its guess: at first, and once the curve has a shape.
    constexpr double firstMiss = 0.3;
    constexpr double usualMiss = 0.03;
    constexpr double shortest = 2e-3;
    const auto last = [&] { return direction < 0 ? *known.begin() : *known.rbegin(); };
    // Of several solutions the one that goes on from what is known.
    const auto take = [&](double u) {
        const TwoPhases guess = guessAt(u);
        const std::optional<TwoPhases> found = solveFrom(guess, u);
        const bool goesOn = found && distance(guess, *found) < (known.size() < 4 ? firstMiss : usualMiss);
        if (goesOn) known[u] = *found;
        return goesOn;
    };
    for (double step = longest / 4; step > shortest;) {
        const auto [u, state] = last();
        if (state.temperature < temperatureMin && u * direction > 0) break;
        const double next = u + direction * step;
        const bool isCrossing = std::abs(next) < criticalGap;
        if (take(isCrossing ? direction * criticalGap : next)) {
            step = std::min(1.5 * step, longest);
        } else {
            step /= 2;
            // The way over the critical point cannot be made shorter, but better foretold.
            if (isCrossing) take(u - direction * step);
        }
    }
    const auto [u, state] = last();
    if (!(u * direction > 0)) unknownShape(equilibrium.mixture());
    return state.temperature;
}

/// Puts the end of the curve at a temperature within what is known.
void PhaseEnvelope::Tracing::endAt(double temperature, double direction) {
    const auto end = [&] { return direction < 0 ? known.begin() : std::prev(known.end()); };
    const auto inner = [&] { return direction < 0 ? std::next(known.begin()) : std::prev(known.end(), 2); };
    while (known.size() > 5 && inner()->second.temperature <= temperature) known.erase(end());
    if (!(end()->second.temperature < temperature)) return;
    const double part = std::log(temperature / inner()->second.temperature) /
                        std::log(end()->second.temperature / inner()->second.temperature);
    const TwoPhases guess = guessAt(inner()->first + part * (end()->first - inner()->first));
    const auto found = equilibrium.solve(guess, {feedAlone, {Condition::Of::temperature, temperature}});
    add(found);
    while (end()->second.temperature < temperature * (1 - 1e-9)) known.erase(end());
}

/// Fits the polynomials from the coldest bubble point to the coldest dew point. Returns false if they do not
/// hold.
bool PhaseEnvelope::fit(Tracing& tracing) {
    constexpr double centre = 0.3;
    constexpr double maxError = 1e-4;
    constexpr double maxMiss = 0.01;
    for (const double direction : {-1.0, 1.0}) tracing.endAt(temperatureMin_, direction);
    const auto sample = [&](double u, std::span<double> values) {
        const TwoPhases guess = tracing.guessAt(u);
        const std::optional<TwoPhases> found = tracing.solveFrom(guess, u);
        if (!found || distance(guess, *found) > maxMiss) return false;
        values[logTemperature] = std::log(found->temperature);
        values[logPressure] = std::log(found->pressure);
        values[logDensity] = std::log(found->firstDensity);
        for (std::size_t i = 0; i < componentCount_; ++i) values[firstLogK + i] = found->logK[i];
        return true;
    };
    std::vector<double> borders;
    const double begin = tracing.known.begin()->first;
    const double end = tracing.known.rbegin()->first;
    // Whole cells of about one unit, the critical point in the middle of one of its own.
    const auto divide = [&borders](double from, double to) {
        const double parts = std::ceil(std::abs(to - from));
        for (double k = 0; k < parts; ++k) borders.push_back(from + (to - from) * k / parts);
    };
    divide(begin, -centre);
    borders.push_back(-centre);
    divide(centre, end);
    borders.push_back(end);
    try {
        curve_ = Expansion({borders, firstLogK + componentCount_, sharpness, minWidth}, sample);
    } catch (const PropertyError&) {
        return false;
    }
    return curve_.error() < maxError;
}

/// The critical point and the extremes, and that temperature and pressure rise up to them and fall beyond.
void PhaseEnvelope::findLandmarks(const Mixture& mixture) {
    const auto extreme = [&](std::size_t function) {
        const std::optional<double> found = curve_.extremum(function, curve_.begin(), curve_.end());
        if (!found) unknownShape(mixture);
        constexpr int parts = 400;
        for (int k = 0; k < parts; ++k) {
            const double u = curve_.begin() + (curve_.end() - curve_.begin()) * (k + 0.5) / parts;
            if (std::abs(u - *found) > 0.05 && (curve_.withSlope(function, u).slope > 0) != (u < *found)) {
                unknownShape(mixture);
            }
        }
        return *found;
    };
    uAtMaxTemperature_ = extreme(logTemperature);
    uAtMaxPressure_ = extreme(logPressure);
    temperatureMax_ = std::exp(curve_.at(logTemperature, uAtMaxTemperature_));
    pressureMax_ = std::exp(curve_.at(logPressure, uAtMaxPressure_));
    bubblePressureMin_ = std::exp(curve_.at(logPressure, curve_.begin()));
    dewPressureMin_ = std::exp(curve_.at(logPressure, curve_.end()));
    const SaturationPoint point = pointAt(0);
    critical_ = {point.temperature, point.pressure, point.liquidDensity};
}

SaturationPoint PhaseEnvelope::pointAt(double u) const {
    std::array<double, Expansion::maxFunctions> values;
    curve_.all(curve_.placeOf(u), values);
    SaturationPoint point;
    point.temperature = std::exp(values[logTemperature]);
    point.pressure = std::exp(values[logPressure]);
    const double feed = std::exp(values[logDensity]);
    const double incipient = feed * std::exp(u);
    point.liquidDensity = std::max(feed, incipient);
    point.vapourDensity = std::min(feed, incipient);
    const double sign = u < 0 ? 1 : -1;  // beyond the critical point the incipient phase is the liquid
    for (std::size_t i = 0; i < componentCount_; ++i) point.logK[i] = sign * values[firstLogK + i];
    return point;
}

PhaseBoundary::End PhaseEnvelope::endAt(double u) const {
    const SaturationPoint point = pointAt(u);
    return {point, u < 0 ? point.liquidDensity : point.vapourDensity};
}

SaturationPoint PhaseEnvelope::ofSide(double u, Side side, const char* what) const {
    if (side == Side::bubble ? u > 1e-6 : u < -1e-6) {
        refuse(std::string("At this ") + what + " beside the critical point, " +
               inText(critical_.temperature) + " K and " + inText(critical_.pressure) + " kPa, there is no " +
               (side == Side::bubble ? "bubble" : "dew") + " point.");
    }
    return pointAt(u);
}

SaturationPoint PhaseEnvelope::atTemperature(double temperature, Side side) const {
    if (temperature > temperatureMax_) {
        refuse("There are no two phases above " + inText(temperatureMax_) + " K.");
    }
    if (temperature < temperatureMin_) {
        refuse("The temperature lies below the lowest of the blend, " + inText(temperatureMin_) + " K.");
    }
    SaturationPoint point = ofSide(placeAtTemperature(temperature, side), side, "temperature");
    point.temperature = temperature;
    return point;
}

SaturationPoint PhaseEnvelope::atPressure(double pressure, Side side) const {
    if (pressure > pressureMax_) {
        refuse("There are no two phases above " + inText(pressureMax_) + " kPa.");
    }
    if (pressure < pressureMin(side) * (1 - 1e-12)) {
        refuse("The pressure lies below that of saturation at the lowest temperature of the blend.");
    }
    SaturationPoint point = ofSide(placeAtPressure(pressure, side), side, "pressure");
    point.pressure = pressure;
    return point;
}

double PhaseEnvelope::placeAtTemperature(double temperature, Side side) const {
    return side == Side::bubble
               ? curve_.inverse(logTemperature, std::log(temperature), curve_.begin(), uAtMaxTemperature_)
               : curve_.inverse(logTemperature, std::log(temperature), uAtMaxTemperature_, curve_.end());
}

double PhaseEnvelope::placeAtPressure(double pressure, Side side) const {
    return side == Side::bubble
               ? curve_.inverse(logPressure, std::log(pressure), curve_.begin(), uAtMaxPressure_)
               : curve_.inverse(logPressure, std::log(pressure), uAtMaxPressure_, curve_.end());
}

PhaseBoundary::Cut PhaseEnvelope::cutAtTemperature(double temperature) const {
    const auto at = [&](Side side) {
        End end = endAt(placeAtTemperature(temperature, side));
        end.point.temperature = temperature;
        return end;
    };
    return {at(Side::bubble), at(Side::dew)};
}

PhaseBoundary::Cut PhaseEnvelope::cutAtPressure(double pressure) const {
    return {endAtPressure(pressure, Side::bubble), endAtPressure(pressure, Side::dew)};
}

PhaseBoundary::End PhaseEnvelope::vapourEndAtPressure(double pressure) const {
    return endAtPressure(pressure, Side::dew);
}

PhaseBoundary::End PhaseEnvelope::endAtPressure(double pressure, Side side) const {
    End end = endAt(placeAtPressure(pressure, side));
    end.point.pressure = pressure;
    return end;
}

double PhaseEnvelope::liquidDensityFloor(double temperature) const {
    return std::exp(curve_.at(logDensity, placeAtTemperature(temperature, Side::bubble))) * (1 - 1e-5);
}

}  // namespace marvello::fluids

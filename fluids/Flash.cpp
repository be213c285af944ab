#include "fluids/Flash.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "fluids/RootSearch.h"

namespace marvello::fluids {
namespace {

constexpr double onTheLine = 1e-9;     // relative distance from the saturation pressure that counts as none
constexpr double minPressure = 1e-12;  // kPa, keeps the densities far from the smallest doubles

[[noreturn]] void refuse(const std::string& text) { throw PropertyError(Fault::outOfRange, text); }

/// The end of a line through the two-phase region as two phases, liquid first.
TwoPhases phasesAt(const PhaseBoundary::End& end) {
    const SaturationPoint& point = end.point;
    return {point.temperature,   point.pressure,      end.density == point.liquidDensity ? 0.0 : 1.0,
            point.liquidDensity, point.vapourDensity, point.logK};
}

/// Between two states, share and ln K linear in `part` as the logarithms of the others are.
TwoPhases between(const TwoPhases& from, const TwoPhases& to, double part) {
    const auto linear = [part](double a, double b) { return a + part * (b - a); };
    const auto geometric = [part](double a, double b) { return a * std::pow(b / a, part); };
    TwoPhases state{geometric(from.temperature, to.temperature),
                    geometric(from.pressure, to.pressure),
                    linear(from.share, to.share),
                    geometric(from.firstDensity, to.firstDensity),
                    geometric(from.secondDensity, to.secondDensity),
                    {}};
    for (std::size_t i = 0; i < maxComponents; ++i) state.logK[i] = linear(from.logK[i], to.logK[i]);
    return state;
}

/// Whether a state can lie on the line between two others. The equations have more loops than the one between
/// liquid and vapour, and so solutions that are no phases.
bool liesBetween(const TwoPhases& state, const TwoPhases& from, const TwoPhases& to) {
    constexpr double rounding = 1e-6;
    constexpr double bend = 0.1;  // of the densities, which need not change in one direction
    const auto within = [&](double TwoPhases::* part, double slack) {
        const auto [low, high] = std::minmax(from.*part, to.*part);
        return state.*part >= low * (1 - slack) && state.*part <= high * (1 + slack);
    };
    return state.firstDensity > state.secondDensity && state.share > -rounding &&
           state.share < 1 + rounding && within(&TwoPhases::temperature, rounding) &&
           within(&TwoPhases::pressure, rounding) && within(&TwoPhases::firstDensity, bend) &&
           within(&TwoPhases::secondDensity, bend);
}

}  // namespace

Flash::Flash(std::shared_ptr<const FluidModel> fluid) : fluid_(std::move(fluid)) {
    if (fluid_->isBlend())
        equilibrium_ = std::make_unique<Equilibrium>(fluid_->mixture(), phase().fractions());
}

void Flash::checkTemperature(double temperature) const {
    const FluidLimits& limits = fluid_->limits();
    if (!(temperature >= limits.temperatureMin && temperature <= limits.temperatureMax)) {
        refuse("The temperature " + inText(temperature) + " K lies outside the range of " + fluid_->name() +
               ", " + inText(limits.temperatureMin) + " to " + inText(limits.temperatureMax) + " K.");
    }
}

void Flash::checkPressure(double pressure) const {
    if (!(pressure >= minPressure && pressure <= fluid_->limits().pressureMax)) {
        refuse("The pressure " + inText(pressure) + " kPa lies outside the range of " + fluid_->name() +
               ", above 0 to " + inText(fluid_->limits().pressureMax) + " kPa.");
    }
}

Flash::Bracket Flash::densities(double temperature, double vapourCeiling) const {
    if (vapourCeiling > 0) return {0, vapourCeiling};
    const bool mayBoil = temperature < boundary().temperatureMax();
    return {mayBoil ? boundary().liquidDensityFloor(temperature) : 0, fluid_->limits().densityMax};
}

/// The state at a pressure, its density searched from `guess`.
PhaseState Flash::stateAtPressure(Isotherm& isotherm, double pressure, const Bracket& bracket,
                                  double guess) const {
    const double wanted = pressure / (phase().gasConstant() * isotherm.temperature());
    return isotherm.state(findIncreasingRoot(bracket.low, bracket.high, guess, [&](double density) {
        const ReducedPressure here = isotherm.reducedPressure(density);
        return Slope{here.value - wanted, here.byDensity};
    }));
}

double Flash::qualityName(double temperature, double pressure, double density) const {
    const FluidPoint& critical = boundary().critical();
    if (temperature >= critical.temperature) {
        return pressure >= critical.pressure ? supercriticalQuality : vapourQuality;
    }
    return density > critical.density ? liquidQuality : vapourQuality;
}

FluidState Flash::single(const PhaseState& state, double quality) const {
    FluidState found;
    found.temperature = state.temperature;
    found.pressure = state.pressure;
    found.density = found.liquidDensity = found.vapourDensity = state.density;
    found.quality = quality;
    found.energy = state.energy + shift_.enthalpy;
    found.enthalpy = state.enthalpy + shift_.enthalpy;
    found.entropy = state.entropy + shift_.entropy;
    found.cv = state.cv;
    found.cp = state.cp;
    found.soundSpeed = state.soundSpeed;
    return found;
}

/// Of a pure fluid, from its saturated phases alone.
FluidState Flash::twoPhase(const SaturationPoint& point, double quality) const {
    Isotherm isotherm = phase().at(point.temperature);
    const PhaseState liquid = isotherm.state(point.liquidDensity);
    const PhaseState vapour = isotherm.state(point.vapourDensity);
    return twoPhaseState(
        {point.temperature, point.pressure, quality, point.liquidDensity, point.vapourDensity, {}},
        {liquid.enthalpy + quality * (vapour.enthalpy - liquid.enthalpy),
         liquid.entropy + quality * (vapour.entropy - liquid.entropy)});
}

FluidState Flash::twoPhase(const TwoPhaseSearch& search) {
    TwoPhases phases = solveTwoPhase(search);
    for (const Condition& known : {search.fixed, search.wanted}) {
        if (known.of == Condition::Of::pressure) phases.pressure = known.value;
    }
    return twoPhaseState(phases, equilibrium_->enthalpyEntropy(phases));
}

FluidState Flash::twoPhaseState(const TwoPhases& phases, const Equilibrium::EnthalpyEntropy& values) const {
    FluidState found;
    found.temperature = phases.temperature;
    found.pressure = phases.pressure;
    found.density = 1 / ((1 - phases.share) / phases.firstDensity + phases.share / phases.secondDensity);
    found.liquidDensity = phases.firstDensity;
    found.vapourDensity = phases.secondDensity;
    found.quality = phases.share;
    found.enthalpy = values.enthalpy + shift_.enthalpy;
    found.entropy = values.entropy + shift_.entropy;
    found.energy = found.enthalpy - phases.pressure / found.density;
    found.cv = found.cp = found.soundSpeed = undefined;
    found.logK = phases.logK;
    return found;
}

/// Newton's method from between both known states; where it strays, small steps from one of them.
TwoPhases Flash::solveTwoPhase(const TwoPhaseSearch& search) {
    constexpr double atCritical = 3e-5;
    const double lever =
        std::clamp((search.wanted.value - search.valueFrom) / (search.valueTo - search.valueFrom), 0.0, 1.0);
    const TwoPhases guess = between(search.from, search.to, lever);
    if (const auto found = solveStable(guess, search.wanted.value, search)) return *found;
    if (const auto found = continueFrom(search.from, search.valueFrom, search)) return *found;
    if (const auto found = continueFrom(search.to, search.valueTo, search)) return *found;
    // There the phases are one but for rounding, and both ends but for less than that.
    if (std::abs(guess.temperature / boundary().critical().temperature - 1) < atCritical) return guess;
    throw PropertyError(Fault::noConvergence, "The two phases of " + fluid_->name() + " near " +
                                                  inText(guess.temperature) + " K and " +
                                                  inText(guess.pressure) + " kPa were not found.");
}

/// The state where the wanted property has `value`, or none where it is no state between the ends.
std::optional<TwoPhases> Flash::solveStable(const TwoPhases& guess, double value,
                                            const TwoPhaseSearch& search) {
    const auto found = equilibrium_->solve(guess, {search.fixed, {search.wanted.of, value}});
    if (!found || !liesBetween(*found, search.from, search.to) || !equilibrium_->isStable())
        return std::nullopt;
    return found;
}

/// From a state where the wanted property has `value` to where it is as wanted, in steps short enough for
/// Newton's method.
std::optional<TwoPhases> Flash::continueFrom(TwoPhases state, double value, const TwoPhaseSearch& search) {
    constexpr double shortest = 1e-4;
    double part = 0;
    for (double step = 0.25; part < 1 && step > shortest;) {
        const double next = std::min(1.0, part + step);
        const auto found = solveStable(state, value + next * (search.wanted.value - value), search);
        if (found) {
            state = *found;
            part = next;
        } else {
            step /= 2;
        }
    }
    if (part < 1) return std::nullopt;
    return state;
}

/// Two phases at the lowest temperature, at a pressure between the dew and bubble pressure there.
TwoPhases Flash::coldestAt(double pressure) {
    const double temperature = boundary().temperatureMin();
    const PhaseBoundary::Cut cut = boundary().cutAtTemperature(temperature);
    return solveTwoPhase({{Condition::Of::temperature, temperature},
                          {Condition::Of::pressure, pressure},
                          phasesAt(cut.liquid),
                          phasesAt(cut.vapour),
                          cut.liquid.point.pressure,
                          cut.vapour.point.pressure});
}

PhaseState Flash::stateAt(const PhaseBoundary::End& end) const {
    return phase().at(end.point.temperature).state(end.density);
}

FluidState Flash::atTemperaturePressure(double temperature, double pressure) {
    checkTemperature(temperature);
    checkPressure(pressure);
    if (const auto isobar = fluid_->isobars().at(pressure)) {
        const auto guess = isobar->onePhaseAt(Property::temperature, temperature);
        const auto found = guess ? onePhaseNear(*guess, pressure) : std::nullopt;
        if (found) return *found;
    }
    const double gasDensity = pressure / (phase().gasConstant() * temperature);
    double ceiling = 0;
    double guess = gasDensity;
    if (temperature < boundary().temperatureMax()) {
        const PhaseBoundary::Cut cut = boundary().cutAtTemperature(temperature);
        const SaturationPoint& dew = cut.vapour.point;
        const SaturationPoint& bubble = cut.liquid.point;
        if (std::abs(pressure - dew.pressure) <= onTheLine * dew.pressure) {
            FluidState found = single(stateAt(cut.vapour), 1);
            found.liquidDensity = dew.liquidDensity;
            found.pressure = pressure;
            found.logK = dew.logK;
            return found;
        }
        if (pressure < dew.pressure) {
            // The compressibility factor falls about linearly from 1 to that of the saturated vapour.
            const double saturated =
                dew.pressure / (phase().gasConstant() * temperature * cut.vapour.density);
            guess = gasDensity / (1 + (saturated - 1) * pressure / dew.pressure);
            ceiling = cut.vapour.density * (1 + 1e-5);
        } else if (pressure < bubble.pressure * (1 - onTheLine)) {
            return twoPhase({{Condition::Of::temperature, temperature},
                             {Condition::Of::pressure, pressure},
                             phasesAt(cut.liquid),
                             phasesAt(cut.vapour),
                             bubble.pressure,
                             dew.pressure});
        } else {
            guess = cut.liquid.density;
        }
    }
    Isotherm isotherm = phase().at(temperature);
    PhaseState state = stateAtPressure(isotherm, pressure, densities(temperature, ceiling), guess);
    state.pressure = pressure;
    return single(state, qualityName(temperature, pressure, state.density));
}

double Flash::valueOf(const PhaseState& state, Property property) {
    return property == Property::enthalpy ? state.enthalpy : state.entropy;
}

Condition::Of Flash::conditionOf(Property property) {
    return property == Property::enthalpy ? Condition::Of::enthalpy : Condition::Of::entropy;
}

FluidState Flash::atPressureEnthalpy(double pressure, double enthalpy) {
    return atPressureAnd(pressure, Property::enthalpy, enthalpy - shift_.enthalpy);
}

FluidState Flash::atPressureEntropy(double pressure, double entropy) {
    return atPressureAnd(pressure, Property::entropy, entropy - shift_.entropy);
}

/// `wanted` is on the equation's own zero.
FluidState Flash::atPressureAnd(double pressure, Property property, double wanted) {
    checkPressure(pressure);
    constexpr double firstGuess = 1.2;    // of the critical temperature
    constexpr double vapourMargin = 1.1;  // over the density of the ideal gas, below the dew pressure
    const double hottest = fluid_->limits().temperatureMax;
    const double coldest = fluid_->limits().temperatureMin;
    if (const auto isobar = fluid_->isobars().at(pressure)) {
        if (const auto found = fromTable(*isobar, pressure, property, wanted)) return *found;
    }
    const double gasDensity = pressure / phase().gasConstant();  // times 1/T
    const double guess = firstGuess * boundary().critical().temperature;
    if (pressure >= boundary().pressureMax())
        return searchIsobar(pressure, property, wanted, {coldest, hottest, guess, gasDensity / guess, 0});
    if (pressure < boundary().pressureMin(Side::dew)) {
        return searchIsobar(
            pressure, property, wanted,
            {coldest, hottest, guess, gasDensity / guess, vapourMargin * gasDensity / coldest});
    }
    if (pressure < boundary().pressureMin(Side::bubble))
        return aboveColdEnd(boundary().vapourEndAtPressure(pressure), property, wanted);
    return betweenEnds(boundary().cutAtPressure(pressure), property, wanted);
}

/// On an isobar that meets both ends of the two-phase region, in it or next to it.
FluidState Flash::betweenEnds(const PhaseBoundary::Cut& cut, Property property, double wanted) {
    const PhaseState vapour = stateAt(cut.vapour);
    const double ofVapour = valueOf(vapour, property);
    if (wanted > ofVapour) return nextToEnd(cut.vapour, vapour, property, wanted);
    const PhaseState liquid = stateAt(cut.liquid);
    const double ofLiquid = valueOf(liquid, property);
    if (wanted < ofLiquid) return nextToEnd(cut.liquid, liquid, property, wanted);
    if (!equilibrium_) return twoPhase(cut.vapour.point, (wanted - ofLiquid) / (ofVapour - ofLiquid));
    return twoPhase({{Condition::Of::pressure, cut.vapour.point.pressure},
                     {conditionOf(property), wanted},
                     phasesAt(cut.liquid),
                     phasesAt(cut.vapour),
                     ofLiquid,
                     ofVapour});
}

/// On an isobar of a blend that is still in the two-phase region at the lowest temperature.
FluidState Flash::aboveColdEnd(const PhaseBoundary::End& end, Property property, double wanted) {
    const PhaseState vapour = stateAt(end);
    const double ofVapour = valueOf(vapour, property);
    if (wanted > ofVapour) return nextToEnd(end, vapour, property, wanted);
    const TwoPhases cold = coldestAt(end.point.pressure);
    const Equilibrium::EnthalpyEntropy values = equilibrium_->enthalpyEntropy(cold);
    const double atCold = property == Property::enthalpy ? values.enthalpy : values.entropy;
    if (wanted < atCold) refuse("The state lies below the temperature range of " + fluid_->name() + ".");
    return twoPhase({{Condition::Of::pressure, end.point.pressure},
                     {conditionOf(property), wanted},
                     cold,
                     phasesAt(end),
                     atCold,
                     ofVapour});
}

/// From an end of the two-phase region, where the state is `edge`, along the isobar away from it.
FluidState Flash::nextToEnd(const PhaseBoundary::End& end, PhaseState edge, Property property,
                            double wanted) {
    const double pressure = end.point.pressure;
    const double temperature = end.point.temperature;
    const double difference =
        (wanted - valueOf(edge, property)) * (property == Property::enthalpy ? 1 : temperature);
    // Less than rounding from the end, where near the critical point the density would be anything.
    if (std::abs(difference) <= 1e-12 * edge.cp * temperature) {
        edge.pressure = pressure;
        return single(edge, qualityName(temperature, pressure, edge.density));
    }
    IsobarRange range;
    range.guess = temperature + difference / edge.cp;
    range.density =
        edge.density - edge.pressureByTemperature / edge.pressureByDensity * (range.guess - temperature);
    const bool isVapour = difference > 0;
    range.low = isVapour ? temperature : fluid_->limits().temperatureMin;
    range.high = isVapour ? fluid_->limits().temperatureMax : temperature;
    range.vapourCeiling = isVapour ? edge.density * (1 + 1e-5) : 0;
    return searchIsobar(pressure, property, wanted, range);
}

/// Newton's step of temperature and density towards a state on an isobar.
Flash::IsobarStep Flash::stepOnIsobar(const PhaseState& state, double pressure, Property property,
                                      double wanted) {
    // dh = cp dT + (1 - T a)/rho dp and ds = cp/T dT - a/rho dp, with the expansion a at constant pressure.
    const double expansion = state.pressureByTemperature / (state.density * state.pressureByDensity);
    const bool isEnthalpy = property == Property::enthalpy;
    const double byTemperature = isEnthalpy ? state.cp : state.cp / state.temperature;
    const double byPressure =
        ((isEnthalpy ? 1 : 0) - (isEnthalpy ? state.temperature : 1) * expansion) / state.density;
    const double missing = pressure - state.pressure;
    IsobarStep step;
    step.temperature = (wanted - valueOf(state, property) - byPressure * missing) / byTemperature;
    step.density = (missing - state.pressureByTemperature * step.temperature) / state.pressureByDensity;
    step.size =
        std::max(std::abs(step.temperature) / state.temperature, std::abs(step.density) / state.density);
    return step;
}

/// Newton's method on temperature and density at once; from a good guess four or five evaluations. None where
/// a step leaves the range or the phase.
std::optional<PhaseState> Flash::newtonOnIsobar(double pressure, Property property, double wanted,
                                                const IsobarRange& range) {
    constexpr int steps = 8;
    constexpr double converged = 1e-8;  // what is left after a step is of the order of its square
    double temperature = range.guess;
    double density = range.density;
    double lastStep = 1;
    for (int i = 0; i < steps; ++i) {
        if (!(temperature >= range.low && temperature <= range.high)) return std::nullopt;
        const Bracket bracket = densities(temperature, range.vapourCeiling);
        if (!(density > bracket.low && density < bracket.high)) return std::nullopt;
        const PhaseState state = phase().at(temperature).state(density);
        if (lastStep <= converged) return state;
        if (!(state.pressureByDensity > 0)) return std::nullopt;
        const IsobarStep step = stepOnIsobar(state, pressure, property, wanted);
        temperature += step.temperature;
        density += step.density;
        lastStep = step.size;
    }
    return std::nullopt;
}

/// From where the table has the state; none where it has none, or no good one.
std::optional<FluidState> Flash::fromTable(const IsobarTable::Isobar& isobar, double pressure,
                                           Property property, double wanted) {
    if (const auto guess = isobar.onePhaseAt(property, wanted))
        return onePhaseNear(*guess, pressure, property, wanted);
    const auto place = isobar.placeBetweenEnds(property, wanted);
    if (!place) return std::nullopt;
    if (equilibrium_) return twoPhasesNear(isobar, pressure, property, wanted);
    if (!isobar.hasSharpEnds()) return std::nullopt;
    const IsobarEnds& ends = isobar.ends();
    return twoPhaseState(
        {ends.vapourTemperature, pressure, *place, ends.liquidDensity, ends.vapourDensity, {}},
        {ends.liquidEnthalpy + *place * (ends.vapourEnthalpy - ends.liquidEnthalpy),
         ends.liquidEntropy + *place * (ends.vapourEntropy - ends.liquidEntropy)});
}

std::optional<FluidState> Flash::onePhaseNear(const IsobarTable::OnePhase& guess, double pressure,
                                              Property property, double wanted) const {
    constexpr int steps = 3;
    constexpr double astray = 1e-3;
    constexpr double converged = 1e-11;  // one more step is made, without an evaluation
    double temperature = guess.temperature;
    double density = guess.density;
    for (int i = 0; i < steps; ++i) {
        PhaseState state = phase().at(temperature).state(density);
        const IsobarStep step = stepOnIsobar(state, pressure, property, wanted);
        if (!(state.pressureByDensity > 0 && step.size < astray)) return std::nullopt;
        temperature += step.temperature;
        density += step.density;
        if (step.size > converged) continue;
        // dh = T ds + dp/rho
        const double enthalpyByPressure = (pressure - state.pressure) / state.density;
        if (property == Property::enthalpy) {
            state.entropy += (wanted - state.enthalpy - enthalpyByPressure) / state.temperature;
            state.enthalpy = wanted;
        } else {
            state.enthalpy += (wanted - state.entropy) * state.temperature + enthalpyByPressure;
            state.entropy = wanted;
        }
        state.temperature = temperature;
        state.density = density;
        state.pressure = pressure;
        state.energy = state.enthalpy - pressure / density;
        return single(state, qualityName(temperature, pressure, density));
    }
    return std::nullopt;
}

/// At the temperature of the guess.
std::optional<FluidState> Flash::onePhaseNear(const IsobarTable::OnePhase& guess, double pressure) const {
    constexpr double astray = 1e-3;
    constexpr double converged = 2e-14;
    Isotherm isotherm = phase().at(guess.temperature);
    const double reduced = pressure / (phase().gasConstant() * guess.temperature);
    const ReducedPressure first = isotherm.reducedPressure(guess.density);
    const double firstStep = (reduced - first.value) / first.byDensity;
    if (!(first.byDensity > 0 && std::abs(firstStep) < astray * guess.density)) return std::nullopt;
    PhaseState state = isotherm.state(guess.density + firstStep);
    double step = (pressure - state.pressure) / state.pressureByDensity;
    if (!(std::abs(step) <= converged * state.density)) {
        state = isotherm.state(state.density + step);
        step = (pressure - state.pressure) / state.pressureByDensity;
        if (!(std::abs(step) <= converged * state.density)) return std::nullopt;
    }
    state.density += step;
    state.pressure = pressure;
    return single(state, qualityName(state.temperature, pressure, state.density));
}

std::optional<FluidState> Flash::twoPhasesNear(const IsobarTable::Isobar& isobar, double pressure,
                                               Property property, double wanted) {
    constexpr double astray = 1e-3;
    const auto guess = isobar.twoPhasesAt(property, wanted);
    if (!guess) return std::nullopt;
    const auto found = equilibrium_->solve(
        *guess, {Condition{Condition::Of::pressure, pressure}, Condition{conditionOf(property), wanted}});
    if (!found || !(found->share > 0 && found->share < 1) || !equilibrium_->isStable() ||
        !(std::abs(found->share - guess->share) < astray &&
          std::abs(found->temperature / guess->temperature - 1) < astray))
        return std::nullopt;
    TwoPhases phases = *found;
    phases.pressure = pressure;
    return twoPhaseState(phases, equilibrium_->heat());
}

/// Where sliding fails: Newton's method on the temperature, with the density solved for at each step.
FluidState Flash::searchIsobar(double pressure, Property property, double wanted, const IsobarRange& range) {
    if (auto found = newtonOnIsobar(pressure, property, wanted, range)) {
        found->pressure = pressure;
        return single(*found, qualityName(found->temperature, pressure, found->density));
    }
    PhaseState state;
    state.temperature = std::clamp(range.guess, range.low, range.high);
    state.density = range.density;
    double densityByTemperature = 0;
    const auto moveTo = [&](double temperature) {
        const double guess = state.density + densityByTemperature * (temperature - state.temperature);
        Isotherm isotherm = phase().at(temperature);
        state = stateAtPressure(isotherm, pressure, densities(temperature, range.vapourCeiling), guess);
        densityByTemperature = -state.pressureByTemperature / state.pressureByDensity;
        return property == Property::enthalpy ? Slope{state.enthalpy - wanted, state.cp}
                                              : Slope{state.entropy - wanted, state.cp / temperature};
    };
    moveTo(findIncreasingRoot(range.low, range.high, range.guess, moveTo));
    const double miss = property == Property::enthalpy ? (state.enthalpy - wanted) / state.temperature
                                                       : state.entropy - wanted;
    if (std::abs(miss) > 1e-6 * (state.cp + std::abs(state.entropy))) {
        refuse("The state lies outside the temperature range of " + fluid_->name() + ".");
    }
    state.pressure = pressure;
    return single(state, qualityName(state.temperature, pressure, state.density));
}

FluidState Flash::atTemperatureEntropy(double temperature, double entropy) {
    checkTemperature(temperature);
    const double wanted = entropy - shift_.entropy;
    const double gas = phase().gasConstant();
    const double minDensity = minPressure / (gas * temperature);
    Isotherm isotherm = phase().at(temperature);
    if (temperature >= boundary().temperatureMax()) {
        const double density = boundary().critical().density;
        const double guess =
            density * std::exp(std::clamp((isotherm.state(density).entropy - wanted) / gas, -60.0, 2.0));
        return searchIsotherm(isotherm, wanted, minDensity, fluid_->limits().densityMax, guess);
    }
    const PhaseBoundary::Cut cut = boundary().cutAtTemperature(temperature);
    const double ofLiquid = stateAt(cut.liquid).entropy;
    const double ofVapour = stateAt(cut.vapour).entropy;
    if (wanted >= ofLiquid && wanted <= ofVapour) {
        if (!equilibrium_) {
            return twoPhase(cut.vapour.point, (wanted - ofLiquid) / (ofVapour - ofLiquid));
        }
        return twoPhase({{Condition::Of::temperature, temperature},
                         {Condition::Of::entropy, wanted},
                         phasesAt(cut.liquid),
                         phasesAt(cut.vapour),
                         ofLiquid,
                         ofVapour});
    }
    if (wanted < ofLiquid) {
        return searchIsotherm(isotherm, wanted, boundary().liquidDensityFloor(temperature),
                              fluid_->limits().densityMax, cut.liquid.density);
    }
    const double guess = cut.vapour.density * std::exp(std::max((ofVapour - wanted) / gas, -600.0));
    return searchIsotherm(isotherm, wanted, minDensity, cut.vapour.density * (1 + 1e-5), guess);
}

/// Over the logarithm of the density, in which the entropy of a gas is a straight line.
FluidState Flash::searchIsotherm(Isotherm& isotherm, double wanted, double low, double high, double guess) {
    const double temperature = isotherm.temperature();
    const auto move = [&](double logDensity) {
        const PhaseState state = isotherm.state(std::exp(logDensity));
        return Slope{wanted - state.entropy, state.pressureByTemperature / state.density};
    };
    const double logDensity = findIncreasingRoot(std::log(low), std::log(high), std::log(guess), move, 1);
    const PhaseState state = isotherm.state(std::exp(logDensity));
    if (std::abs(state.entropy - wanted) > 1e-6 * (state.cv + std::abs(wanted))) {
        refuse("No state of " + fluid_->name() + " at " + inText(temperature) + " K has this entropy.");
    }
    checkPressure(state.pressure);
    return single(state, qualityName(temperature, state.pressure, state.density));
}

FluidState Flash::laneState(const PhaseLanes& states, std::size_t lane) const {
    PhaseState state;
    state.temperature = states.temperature[lane];
    state.density = states.density[lane];
    state.pressure = states.pressure[lane];
    state.enthalpy = states.enthalpy[lane];
    state.entropy = states.entropy[lane];
    state.energy = state.enthalpy - state.pressure / state.density;
    state.cv = states.cv[lane];
    state.cp = states.cp[lane];
    state.soundSpeed = states.soundSpeed[lane];
    return single(state, qualityName(state.temperature, state.pressure, state.density));
}

}  // namespace marvello::fluids

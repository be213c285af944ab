#include "fluids/Flash.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <utility>

#include "fluids/RootSearch.h"

namespace marvello::fluids {
namespace {

constexpr std::array<double, 1> pure{1.0};
constexpr double onTheLine = 1e-9;       // relative distance from the saturation pressure that counts as none
constexpr double pressureLeast = 1e-12;  // kPa, keeps the densities far from the smallest doubles

[[noreturn]] void refuse(const std::string& text) { throw PropertyError(Fault::outOfRange, text); }

}  // namespace

Flash::Flash(Mixture mixture)
    : mixture_(std::move(mixture)), phase_(mixture_, pure), line_(phase_, mixture_.components().front()) {
    densityMax_ = greatestDensity();
}

void Flash::setReference(ReferenceState reference) {
    constexpr double zero = 273.15;
    enthalpyShift_ = 0;
    entropyShift_ = 0;
    const SaturationPoint point =
        reference == ReferenceState::nbp
            ? line_.atPressure(101.325)
            : line_.atTemperature(reference == ReferenceState::iir ? zero : zero - 40);
    phase_.setTemperature(point.temperature);
    const PhaseState liquid = phase_.state(point.liquidDensity);
    const double mass =
        reference == ReferenceState::iir ? phase_.molarMass() : 0;  // kJ/kg times g/mol is J/mol
    enthalpyShift_ = 200 * mass - liquid.enthalpy;
    entropyShift_ = mass - liquid.entropy;
}

void Flash::checkTemperature(double temperature) const {
    const PureFluid& fluid = mixture_.components().front();
    if (!(temperature >= fluid.temperatureMin && temperature <= fluid.temperatureMax)) {
        refuse("The temperature " + std::to_string(temperature) + " K lies outside the range of " +
               fluid.name + ", " + std::to_string(fluid.temperatureMin) + " to " +
               std::to_string(fluid.temperatureMax) + " K.");
    }
}

void Flash::checkPressure(double pressure) const {
    const PureFluid& fluid = mixture_.components().front();
    if (!(pressure >= pressureLeast && pressure <= fluid.pressureMax)) {
        refuse("The pressure " + std::to_string(pressure) + " kPa lies outside the range of " + fluid.name +
               ", above 0 to " + std::to_string(fluid.pressureMax) + " kPa.");
    }
}

/// The density at the lowest temperature and highest pressure, with a little room.
double Flash::greatestDensity() {
    const PureFluid& fluid = mixture_.components().front();
    phase_.setTemperature(fluid.temperatureMin);
    const double wanted = fluid.pressureMax / (phase_.gasConstant() * fluid.temperatureMin);
    const double low = line_.liquidDensityFloor(fluid.temperatureMin);
    double high = low;
    for (int i = 0; i < 40 && phase_.reducedPressure(high).value < wanted; ++i) high *= 1.05;
    return high * 1.01;
}

Flash::Bracket Flash::densities(double temperature, double vapourCeiling) const {
    if (vapourCeiling > 0) return {0, vapourCeiling};
    const bool subcritical = temperature < line_.critical().temperature;
    return {subcritical ? line_.liquidDensityFloor(temperature) : 0, densityMax_};
}

/// At the temperature that the phase is set to.
double Flash::densityAt(double pressure, const Bracket& bracket, double guess) {
    const double wanted = pressure / (phase_.gasConstant() * phase_.temperature());
    return findIncreasingRoot(bracket.low, bracket.high, guess, [&](double density) {
        const ReducedPressure here = phase_.reducedPressure(density);
        return Slope{here.value - wanted, here.byDensity};
    });
}

double Flash::qualityName(double temperature, double pressure, double density) const {
    const FluidPoint& critical = line_.critical();
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
    found.energy = state.energy + enthalpyShift_;
    found.enthalpy = state.enthalpy + enthalpyShift_;
    found.entropy = state.entropy + entropyShift_;
    found.cv = state.cv;
    found.cp = state.cp;
    found.soundSpeed = state.soundSpeed;
    return found;
}

FluidState Flash::twoPhase(const SaturationPoint& point, double quality) {
    phase_.setTemperature(point.temperature);
    const PhaseState liquid = phase_.state(point.liquidDensity);
    const PhaseState vapour = phase_.state(point.vapourDensity);
    const auto mixed = [quality](double ofLiquid, double ofVapour) {
        return ofLiquid + quality * (ofVapour - ofLiquid);
    };
    FluidState found;
    found.temperature = point.temperature;
    found.pressure = point.pressure;
    found.density = 1 / mixed(1 / point.liquidDensity, 1 / point.vapourDensity);
    found.liquidDensity = point.liquidDensity;
    found.vapourDensity = point.vapourDensity;
    found.quality = quality;
    found.enthalpy = mixed(liquid.enthalpy, vapour.enthalpy) + enthalpyShift_;
    found.entropy = mixed(liquid.entropy, vapour.entropy) + entropyShift_;
    found.energy = found.enthalpy - point.pressure / found.density;
    found.cv = found.cp = found.soundSpeed = undefined;
    return found;
}

FluidState Flash::atTemperaturePressure(double temperature, double pressure) {
    checkTemperature(temperature);
    checkPressure(pressure);
    const double gasDensity = pressure / (phase_.gasConstant() * temperature);
    double ceiling = 0;
    double guess = gasDensity;
    if (temperature < line_.critical().temperature) {
        const SaturationPoint point = line_.atTemperature(temperature);
        phase_.setTemperature(temperature);
        if (std::abs(pressure - point.pressure) <= onTheLine * point.pressure) {
            FluidState found = single(phase_.state(point.vapourDensity), 1);
            found.liquidDensity = point.liquidDensity;
            found.pressure = pressure;
            return found;
        }
        const bool vapour = pressure < point.pressure;
        if (vapour) {
            // The compressibility factor falls about linearly from 1 to that of the saturated vapour.
            const double saturated =
                point.pressure / (phase_.gasConstant() * temperature * point.vapourDensity);
            guess = gasDensity / (1 + (saturated - 1) * pressure / point.pressure);
            ceiling = point.vapourDensity * (1 + 1e-5);
        } else {
            guess = point.liquidDensity;
        }
    }
    phase_.setTemperature(temperature);
    PhaseState state = phase_.state(densityAt(pressure, densities(temperature, ceiling), guess));
    state.pressure = pressure;
    return single(state, qualityName(temperature, pressure, state.density));
}

FluidState Flash::atPressureEnthalpy(double pressure, double enthalpy) {
    return atPressureHeat(pressure, Heat::enthalpy, enthalpy - enthalpyShift_);
}

FluidState Flash::atPressureEntropy(double pressure, double entropy) {
    return atPressureHeat(pressure, Heat::entropy, entropy - entropyShift_);
}

/// `wanted` is on the equation's own zero.
FluidState Flash::atPressureHeat(double pressure, Heat heat, double wanted) {
    checkPressure(pressure);
    const PureFluid& fluid = mixture_.components().front();
    if (pressure >= line_.critical().pressure || pressure <= line_.pressureMin()) {
        const bool vapour = pressure <= line_.pressureMin();
        const double guess = 1.2 * line_.critical().temperature;
        return searchIsobar(
            pressure, heat, wanted,
            {fluid.temperatureMin, fluid.temperatureMax, guess, pressure / (phase_.gasConstant() * guess),
             vapour ? 1.1 * pressure / (phase_.gasConstant() * fluid.temperatureMin) : 0});
    }
    const SaturationPoint point = line_.atPressure(pressure);
    phase_.setTemperature(point.temperature);
    const PhaseState liquid = phase_.state(point.liquidDensity);
    const PhaseState vapour = phase_.state(point.vapourDensity);
    const auto of = [heat](const PhaseState& state) {
        return heat == Heat::enthalpy ? state.enthalpy : state.entropy;
    };
    if (wanted >= of(liquid) && wanted <= of(vapour)) {
        return twoPhase(point, (wanted - of(liquid)) / (of(vapour) - of(liquid)));
    }
    const bool isVapour = wanted > of(vapour);
    const PhaseState& edge = isVapour ? vapour : liquid;
    const double unit = heat == Heat::enthalpy ? 1 : point.temperature;
    IsobarRange range{fluid.temperatureMin, point.temperature, 0, edge.density, 0};
    if (isVapour)
        range = {point.temperature, fluid.temperatureMax, 0, edge.density, edge.density * (1 + 1e-5)};
    range.guess = point.temperature + (wanted - of(edge)) * unit / edge.cp;
    range.density -= edge.pressureByTemperature / edge.pressureByDensity * (range.guess - point.temperature);
    return searchIsobar(pressure, heat, wanted, range);
}

/// Newton's method on the temperature, with the density solved for at each step.
FluidState Flash::searchIsobar(double pressure, Heat heat, double wanted, const IsobarRange& range) {
    PhaseState state;
    state.temperature = std::clamp(range.guess, range.low, range.high);
    state.density = range.density;
    double densityByTemperature = 0;
    const auto moveTo = [&](double temperature) {
        const double guess = state.density + densityByTemperature * (temperature - state.temperature);
        phase_.setTemperature(temperature);
        state = phase_.state(densityAt(pressure, densities(temperature, range.vapourCeiling), guess));
        densityByTemperature = -state.pressureByTemperature / state.pressureByDensity;
        return heat == Heat::enthalpy ? Slope{state.enthalpy - wanted, state.cp}
                                      : Slope{state.entropy - wanted, state.cp / temperature};
    };
    moveTo(findIncreasingRoot(range.low, range.high, range.guess, moveTo));
    const double miss =
        heat == Heat::enthalpy ? (state.enthalpy - wanted) / state.temperature : state.entropy - wanted;
    if (std::abs(miss) > 1e-6 * (state.cp + std::abs(state.entropy))) {
        refuse("The state lies outside the temperature range of " + mixture_.components().front().name + ".");
    }
    state.pressure = pressure;
    return single(state, qualityName(state.temperature, pressure, state.density));
}

FluidState Flash::atTemperatureEntropy(double temperature, double entropy) {
    checkTemperature(temperature);
    const double wanted = entropy - entropyShift_;
    const double gas = phase_.gasConstant();
    const double least = pressureLeast / (gas * temperature);
    if (temperature >= line_.critical().temperature) {
        phase_.setTemperature(temperature);
        const double density = line_.critical().density;
        const double guess =
            density * std::exp(std::clamp((phase_.state(density).entropy - wanted) / gas, -60.0, 2.0));
        return searchIsotherm(temperature, wanted, least, densityMax_, guess);
    }
    const SaturationPoint point = line_.atTemperature(temperature);
    phase_.setTemperature(temperature);
    const double ofLiquid = phase_.state(point.liquidDensity).entropy;
    const double ofVapour = phase_.state(point.vapourDensity).entropy;
    if (wanted >= ofLiquid && wanted <= ofVapour) {
        return twoPhase(point, (wanted - ofLiquid) / (ofVapour - ofLiquid));
    }
    if (wanted < ofLiquid) {
        return searchIsotherm(temperature, wanted, line_.liquidDensityFloor(temperature), densityMax_,
                              point.liquidDensity);
    }
    const double guess = point.vapourDensity * std::exp(std::max((ofVapour - wanted) / gas, -600.0));
    return searchIsotherm(temperature, wanted, least, point.vapourDensity * (1 + 1e-5), guess);
}

/// Over the logarithm of the density, in which the entropy of a gas is a straight line.
FluidState Flash::searchIsotherm(double temperature, double wanted, double low, double high, double guess) {
    const auto move = [&](double logDensity) {
        const PhaseState state = phase_.state(std::exp(logDensity));
        return Slope{wanted - state.entropy, state.pressureByTemperature / state.density};
    };
    const double logDensity = findIncreasingRoot(std::log(low), std::log(high), std::log(guess), move, 1);
    const PhaseState state = phase_.state(std::exp(logDensity));
    if (std::abs(state.entropy - wanted) > 1e-6 * (state.cv + std::abs(wanted))) {
        refuse("No state of " + mixture_.components().front().name + " at " + std::to_string(temperature) +
               " K has this entropy.");
    }
    checkPressure(state.pressure);
    return single(state, qualityName(temperature, state.pressure, state.density));
}

}  // namespace marvello::fluids

#include "fluids/SaturationLine.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <utility>

#include "fluids/Nearest.h"
#include "fluids/RootSearch.h"

namespace marvello::fluids {
namespace {

enum Function : std::size_t { logPressure, logDensity, functionCount };

[[noreturn]] void refuse(const std::string& text) { throw PropertyError(Fault::outOfRange, text); }

struct Pair {
    double liquid = 0;
    double vapour = 0;
    double pressure = 0;  // kPa
};

/// Newton's method on both densities at a temperature. The two conditions are
/// solved for the change of either pressure separately, since at low temperature the liquid's pressure is all
/// rounding while the vapour's stays exact.
std::optional<Pair> solve(const Phase& phase, double temperature, double liquid, double vapour) {
    constexpr int steps = 40;
    constexpr double largestStep = 0.3;  // of a density
    const Isotherm isotherm = phase.at(temperature);
    const double scale = phase.gasConstant() * temperature;
    double lastStep = 1;
    for (int i = 0; i < steps; ++i) {
        const ReducedPressure inLiquid = isotherm.reducedPressure(liquid);
        const ReducedPressure inVapour = isotherm.reducedPressure(vapour);
        if (!(inLiquid.byDensity > 0 && inVapour.byDensity > 0 && liquid > vapour)) return std::nullopt;
        const double pressures = inLiquid.value - inVapour.value;
        const double potentials = inLiquid.potential - inVapour.potential;
        const double gap = liquid - vapour;
        const double liquidStep = (vapour * potentials - pressures) / (gap * inLiquid.byDensity);
        const double vapourStep = (liquid * potentials - pressures) / (gap * inVapour.byDensity);
        const double size = std::max(std::abs(liquidStep), std::abs(vapourStep));
        const double damping = size > largestStep ? largestStep / size : 1;
        const double pressure = scale * (inVapour.value + inVapour.byDensity * damping * vapourStep * vapour);
        liquid *= 1 + damping * liquidStep;
        vapour *= 1 + damping * vapourStep;
        // The second case is rounding noise, which grows towards the critical point.
        if (size < 1e-9 || (i > 3 && size < 1e-4 && size > 0.5 * lastStep)) {
            return Pair{liquid, vapour, pressure};
        }
        lastStep = size;
    }
    return std::nullopt;
}

}  // namespace

SaturationLine::SaturationLine(const Phase& phase, const PureFluid& fluid) {
    temperatureMin_ = fluid.temperatureMin;
    findCritical(phase, fluid.critical, fluid.name);
    temperatureMax_ = critical_.temperature;
    pressureMax_ = critical_.pressure;
    makeLine(phase, fluid);
}

/// Newton's step towards the point where dp/drho and its slope vanish, with the derivatives by differences:
/// an error of theirs slows the approach and does not move the point.
SaturationLine::CriticalStep SaturationLine::stepToCritical(const Phase& phase, double temperature,
                                                            double density) const {
    const auto stiffness = [&phase](double t, double rho) {
        return phase.at(t).reducedPressure(rho).byDensity;
    };
    const double dr = 1e-3 * density;
    const double dt = 1e-5 * temperature;
    const double here = stiffness(temperature, density);
    const double left = stiffness(temperature, density - dr);
    const double right = stiffness(temperature, density + dr);
    const double slope = (right - left) / (2 * dr);
    const double curve = (right - 2 * here + left) / (dr * dr);
    const double byTemperature =
        (stiffness(temperature + dt, density) - stiffness(temperature - dt, density)) / (2 * dt);
    const double warmSlope =
        (stiffness(temperature + dt, density + dr) - stiffness(temperature + dt, density - dr)) / (2 * dr);
    const double cross = (warmSlope - slope) / dt;
    const double determinant = slope * cross - byTemperature * curve;
    if (!(std::abs(determinant) > 1e-12)) return {temperature, density};
    return {(curve * here - slope * slope) / determinant,
            (byTemperature * slope - cross * here) / determinant};
}

/// The published critical point is rounded, and the equation's own lies next to it.
void SaturationLine::findCritical(const Phase& phase, const FluidPoint& published, const std::string& name) {
    // Critical densities are hard to measure.
    constexpr double margin = 0.02;
    constexpr double densityMargin = 0.1;
    double temperature = published.temperature;
    double density = published.density;
    for (int i = 0; i < 30; ++i) {
        const CriticalStep step = stepToCritical(phase, temperature, density);
        temperature += step.temperature;
        density += step.density;
        const bool near = std::abs(temperature / published.temperature - 1) < margin &&
                          std::abs(density / published.density - 1) < densityMargin;
        if (!near) break;
        if (std::abs(step.temperature) < 1e-12 * temperature && std::abs(step.density) < 1e-8 * density) {
            const double pressure =
                phase.at(temperature).reducedPressure(density).value * phase.gasConstant() * temperature;
            if (!(std::abs(pressure / published.pressure - 1) < margin)) break;
            critical_ = {temperature, pressure, density};
            return;
        }
    }
    throw PropertyError(Fault::fluidFile,
                        "The equation of " + name + " has no critical point near the one its file states.");
}

/// Walks from the middle, where a rough guess is good enough, to both ends; the fit takes its guesses from
/// there.
void SaturationLine::makeLine(const Phase& phase, const PureFluid& fluid) {
    thetaMax_ = theta(temperatureMin_);
    std::map<double, Densities> solved;  // over theta
    const auto solveAt = [&](double place, const Densities& guess) {
        const std::optional<Pair> found = solve(phase, temperatureAt(place), guess.liquid, guess.vapour);
        if (!found) {
            throw PropertyError(Fault::fluidFile, "The equation of " + fluid.name + " has no saturation at " +
                                                      inText(temperatureAt(place)) + " K.");
        }
        return *found;
    };
    const auto keepAt = [&](double place, const Densities& guess) {
        const Pair found = solveAt(place, guess);
        solved[place] = {found.liquid, found.vapour};
    };
    const auto guessAt = [&](double place) {
        double liquid = 0;
        double vapour = 0;
        overNearest(solved, place, [&](const Densities& known, double weight) {
            liquid += weight * std::log(known.liquid);
            vapour += weight * std::log(known.vapour);
        });
        return Densities{std::exp(liquid), std::exp(vapour)};
    };
    const auto meanAt = [&](double place, const Densities& guess) {
        const Isotherm isotherm = phase.at(temperatureAt(place));
        const double pressure =
            phase.gasConstant() * isotherm.temperature() *
            (isotherm.reducedPressure(guess.liquid).value + isotherm.reducedPressure(guess.vapour).value) / 2;
        return Pair{guess.liquid, guess.vapour, pressure};
    };
    // At 0.7 of the critical temperature, where the acentric factor is defined and the first guess holds.
    const double middle = std::min(std::sqrt(0.3), 0.9 * thetaMax_);
    constexpr double step = 0.01;
    constexpr double nearest = 5e-4;
    keepAt(middle, firstGuess(phase, fluid, temperatureAt(middle)));
    keepAt(middle - 0.3 * step, solved.begin()->second);
    for (double place = middle + step; place < thetaMax_; place += step) keepAt(place, guessAt(place));
    for (double place = middle - step; place > step; place -= step) keepAt(place, guessAt(place));
    solved[0] = {critical_.density, critical_.density};
    for (double place = 0.8 * step; place > nearest; place *= 0.8) keepAt(place, guessAt(place));

    const auto sample = [&](double place, std::span<double> values) {
        const double distance = std::abs(place);
        const Densities guess = guessAt(distance);
        // Nearer still, rounding drowns the difference of the phases.
        const Pair found = distance > nearest ? solveAt(distance, guess) : meanAt(distance, guess);
        values[logPressure] = std::log(found.pressure);
        values[logDensity] = std::log(place < 0 ? found.vapour : found.liquid);
        return true;
    };
    line_ = Expansion({{-thetaMax_, thetaMax_}, functionCount, 1e-12, 4e-3}, sample);
    bubblePressureMin_ = dewPressureMin_ = pointAt(thetaMax_).pressure;
    checkPressureRises(fluid.name);
}

/// A mistyped coefficient may leave a curve that turns back or comes to pressures below 0.
void SaturationLine::checkPressureRises(const std::string& name) const {
    constexpr int parts = 400;
    for (int k = 1; k <= parts; ++k) {
        const double place = thetaMax_ * k / parts;
        if (!(line_.withSlope(logPressure, place).slope < 0)) {
            throw PropertyError(Fault::fluidFile, "The equation of " + name + " has a vapour pressure at " +
                                                      inText(temperatureAt(place)) +
                                                      " K that does not rise with the temperature.");
        }
    }
}

/// Vapour pressure by Wilson's rule from the acentric factor, ideal vapour, and the liquid at that pressure.
SaturationLine::Densities SaturationLine::firstGuess(const Phase& phase, const PureFluid& fluid,
                                                     double temperature) const {
    constexpr double wilson = 5.373;  // Wilson, 65th National Meeting of AIChE, 1969
    const double pressure = critical_.pressure * std::exp(wilson * (1 + fluid.acentricFactor) *
                                                          (1 - critical_.temperature / temperature));
    const double wanted = pressure / (phase.gasConstant() * temperature);
    return {phase.at(temperature).liquidDensity(wanted, Isotherm::denseLiquid * critical_.density), wanted};
}

double SaturationLine::theta(double temperature) const {
    return std::sqrt(std::max(0.0, 1 - temperature / critical_.temperature));
}

double SaturationLine::temperatureAt(double theta) const {
    return critical_.temperature * (1 - theta * theta);
}

SaturationPoint SaturationLine::pointAt(double theta) const {
    std::array<double, functionCount> ofLiquid{};
    line_.all(line_.placeOf(theta), ofLiquid);
    SaturationPoint point;
    point.temperature = temperatureAt(theta);
    point.pressure = std::exp(ofLiquid[logPressure]);
    point.liquidDensity = std::exp(ofLiquid[logDensity]);
    point.vapourDensity = std::exp(line_.at(logDensity, -theta));
    return point;
}

SaturationPoint SaturationLine::atTemperature(double temperature) const {
    if (temperature > critical_.temperature) {
        refuse("There is no saturation above the critical temperature " + inText(critical_.temperature) +
               " K.");
    }
    if (temperature < temperatureMin_) {
        refuse("The temperature lies below the lowest of the equation, " + inText(temperatureMin_) + " K.");
    }
    SaturationPoint point = pointAt(theta(temperature));
    point.temperature = temperature;
    return point;
}

SaturationPoint SaturationLine::atPressure(double pressure) const {
    if (pressure > critical_.pressure) {
        refuse("There is no saturation above the critical pressure " + inText(critical_.pressure) + " kPa.");
    }
    // A little room, so that the pressure answered for the lowest temperature is taken back.
    if (pressure < bubblePressureMin_ * (1 - 1e-12)) {
        refuse("The pressure lies below that of saturation at the lowest temperature of the equation.");
    }
    SaturationPoint point = pointAt(line_.inverse(logPressure, std::log(pressure), 0, thetaMax_));
    point.pressure = pressure;
    return point;
}

PhaseBoundary::Cut SaturationLine::cutAtTemperature(double temperature) const {
    const SaturationPoint point = atTemperature(temperature);
    return {End{point, point.liquidDensity}, End{point, point.vapourDensity}};
}

PhaseBoundary::Cut SaturationLine::cutAtPressure(double pressure) const {
    const SaturationPoint point = atPressure(pressure);
    return {End{point, point.liquidDensity}, End{point, point.vapourDensity}};
}

PhaseBoundary::End SaturationLine::vapourEndAtPressure(double pressure) const {
    const SaturationPoint point = atPressure(pressure);
    return {point, point.vapourDensity};
}

double SaturationLine::liquidDensityFloor(double temperature) const {
    return std::exp(line_.at(logDensity, theta(temperature))) * (1 - 1e-5);
}

}  // namespace marvello::fluids

#include "fluids/SaturationLine.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "fluids/RootSearch.h"

namespace marvello::fluids {
namespace {

constexpr std::size_t cells = 160;
/// Nearer to the critical temperature than this share, rounding drowns the difference of the phases and the
/// table alone answers.
constexpr double criticalNeighbourhood = 2e-7;

double cubic(double from, double fromSlope, double to, double toSlope, double step, double s) {
    const double rest = 1 - s;
    return from * (1 + 2 * s) * rest * rest + to * (3 - 2 * s) * s * s +
           step * s * rest * (fromSlope * rest - toSlope * s);
}

[[noreturn]] void refuse(const std::string& text) { throw PropertyError(Fault::outOfRange, text); }

}  // namespace

SaturationLine::SaturationLine(Phase& phase, const PureFluid& fluid)
    : phase_(phase), temperatureMin_(fluid.temperatureMin) {
    findCritical(fluid.critical, fluid.name);
    makeTable(fluid);
}

/// Newton's step towards the point where dp/drho and its slope vanish, with the derivatives by differences:
/// an error of theirs slows the approach and does not move the point.
SaturationLine::CriticalStep SaturationLine::stepToCritical(double temperature, double density) {
    const auto stiffness = [this](double t, double rho) {
        phase_.setTemperature(t);
        return phase_.reducedPressure(rho).byDensity;
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

/// The published critical point is rounded, and the equation's own lies beside it.
void SaturationLine::findCritical(const FluidPoint& published, const std::string& name) {
    double temperature = published.temperature;
    double density = published.density;
    for (int i = 0; i < 30; ++i) {
        const CriticalStep step = stepToCritical(temperature, density);
        temperature += step.temperature;
        density += step.density;
        const bool near = std::abs(temperature / published.temperature - 1) < 0.02 &&
                          std::abs(density / published.density - 1) < 0.1;
        if (!near) break;
        if (std::abs(step.temperature) < 1e-12 * temperature && std::abs(step.density) < 1e-8 * density) {
            phase_.setTemperature(temperature);
            const double pressure =
                phase_.reducedPressure(density).value * phase_.gasConstant() * temperature;
            if (!(std::abs(pressure / published.pressure - 1) < 0.02)) break;
            critical_ = {temperature, pressure, density};
            return;
        }
    }
    throw PropertyError(Fault::fluidFile,
                        "The equation of " + name + " has no critical point near the one its file states.");
}

/// Starts in the middle of the line, where a rough guess is good enough, and walks to both ends.
void SaturationLine::makeTable(const PureFluid& fluid) {
    step_ = std::sqrt(1 - temperatureMin_ / critical_.temperature) / static_cast<double>(cells);
    nodes_.resize(cells + 1);
    const auto middle =
        static_cast<std::size_t>(std::min(std::sqrt(0.3) / step_, static_cast<double>(cells - 1)));
    const auto solveNode = [&](std::size_t i, const SaturationPoint& guess) {
        const std::optional<SaturationPoint> found = solve(guess);
        if (!found) {
            throw PropertyError(Fault::fluidFile, "The equation of " + fluid.name + " has no saturation at " +
                                                      inText(guess.temperature) + " K.");
        }
        nodes_[i] = nodeAt(*found);
    };
    // From a solved node to a neighbour along the slopes, which are good to the square of the step.
    const auto ahead = [&](std::size_t known, std::size_t wanted) {
        const double distance = step_ * (wanted > known ? 1 : -1);
        const Node& node = nodes_[known];
        return SaturationPoint{temperatureAt(step_ * static_cast<double>(wanted)),
                               std::exp(node.value.pressure + distance * node.slope.pressure),
                               std::exp(node.value.liquid + distance * node.slope.liquid),
                               std::exp(node.value.vapour + distance * node.slope.vapour)};
    };
    solveNode(middle, firstPoint(fluid, temperatureAt(step_ * static_cast<double>(middle))));
    for (std::size_t i = middle + 1; i <= cells; ++i) solveNode(i, ahead(i - 1, i));
    for (std::size_t i = middle; i-- > 1;) solveNode(i, ahead(i + 1, i));

    const Node& next = nodes_[1];
    const double density = std::log(critical_.density);
    nodes_[0].value = {std::log(critical_.pressure), density, density};
    nodes_[0].slope = {0, 2 * (next.value.liquid - density) / step_ - next.slope.liquid,
                       2 * (next.value.vapour - density) / step_ - next.slope.vapour};
}

/// Vapour pressure by Wilson's rule from the acentric factor, ideal vapour, and the liquid at that pressure.
SaturationPoint SaturationLine::firstPoint(const PureFluid& fluid, double temperature) {
    SaturationPoint point;
    point.temperature = temperature;
    point.pressure = critical_.pressure *
                     std::exp(5.373 * (1 + fluid.acentricFactor) * (1 - critical_.temperature / temperature));
    const double wanted = point.pressure / (phase_.gasConstant() * temperature);
    point.vapourDensity = wanted;
    phase_.setTemperature(temperature);
    double density = 3.5 * critical_.density;
    for (int i = 0; i < 50; ++i) {
        const ReducedPressure here = phase_.reducedPressure(density);
        const double change = here.byDensity > 0 ? (wanted - here.value) / here.byDensity : 0.02 * density;
        density = std::clamp(density + change, 0.9 * density, 1.1 * density);
        if (std::abs(change) < 1e-9 * density) break;
    }
    point.liquidDensity = density;
    return point;
}

SaturationLine::Node SaturationLine::nodeAt(const SaturationPoint& point) {
    const double slope = clapeyron(point);
    const auto densitySlope = [&](double density) {
        const PhaseState state = phase_.state(density);
        return (slope - state.pressureByTemperature) / state.pressureByDensity / density;
    };
    const double byTheta = -2 * critical_.temperature * theta(point.temperature);
    return {{std::log(point.pressure), std::log(point.liquidDensity), std::log(point.vapourDensity)},
            {byTheta * slope / point.pressure, byTheta * densitySlope(point.liquidDensity),
             byTheta * densitySlope(point.vapourDensity)}};
}

/// dp/dT along the line.
double SaturationLine::clapeyron(const SaturationPoint& point) {
    phase_.setTemperature(point.temperature);
    const double entropy =
        phase_.state(point.vapourDensity).entropy - phase_.state(point.liquidDensity).entropy;
    return entropy / (1 / point.vapourDensity - 1 / point.liquidDensity);
}

double SaturationLine::theta(double temperature) const {
    return std::sqrt(std::max(0.0, 1 - temperature / critical_.temperature));
}

double SaturationLine::temperatureAt(double theta) const {
    return critical_.temperature * (1 - theta * theta);
}

SaturationLine::Place SaturationLine::placeOf(double theta) const {
    const double place = theta / step_;
    const double cell = std::clamp(std::floor(place), 0.0, static_cast<double>(cells - 1));
    return {static_cast<std::size_t>(cell), place - cell};
}

SaturationPoint SaturationLine::guessAt(double theta) const {
    const Place place = placeOf(theta);
    const Node& from = nodes_[place.cell];
    const Node& to = nodes_[place.cell + 1];
    const auto interpolated = [&](double Logarithms::* part) {
        return std::exp(
            cubic(from.value.*part, from.slope.*part, to.value.*part, to.slope.*part, step_, place.within));
    };
    return {temperatureAt(theta), interpolated(&Logarithms::pressure), interpolated(&Logarithms::liquid),
            interpolated(&Logarithms::vapour)};
}

/// Newton's method on both densities. The two conditions are solved for the change of either pressure
/// separately, since at low temperature the liquid's pressure is all rounding while the vapour's stays exact.
std::optional<SaturationPoint> SaturationLine::solve(SaturationPoint guess) {
    constexpr int steps = 40;
    phase_.setTemperature(guess.temperature);
    const double scale = phase_.gasConstant() * guess.temperature;
    double liquid = guess.liquidDensity;
    double vapour = guess.vapourDensity;
    double lastStep = 1;
    for (int i = 0; i < steps; ++i) {
        const ReducedPressure inLiquid = phase_.reducedPressure(liquid);
        const ReducedPressure inVapour = phase_.reducedPressure(vapour);
        if (!(inLiquid.byDensity > 0 && inVapour.byDensity > 0 && liquid > vapour)) return std::nullopt;
        const double pressures = inLiquid.value - inVapour.value;
        const double potentials = inLiquid.potential - inVapour.potential;
        const double gap = liquid - vapour;
        const double liquidStep = (vapour * potentials - pressures) / (gap * inLiquid.byDensity);
        const double vapourStep = (liquid * potentials - pressures) / (gap * inVapour.byDensity);
        const double size = std::max(std::abs(liquidStep), std::abs(vapourStep));
        const double damping = size > 0.3 ? 0.3 / size : 1;
        guess.pressure = scale * (inVapour.value + inVapour.byDensity * damping * vapourStep * vapour);
        liquid *= 1 + damping * liquidStep;
        vapour *= 1 + damping * vapourStep;
        // The second case is rounding noise, which grows towards the critical point.
        if (size < 1e-9 || (i > 3 && size < 1e-4 && size > 0.5 * lastStep)) {
            guess.liquidDensity = liquid;
            guess.vapourDensity = vapour;
            return guess;
        }
        lastStep = size;
    }
    return std::nullopt;
}

SaturationPoint SaturationLine::atTemperature(double temperature) {
    if (temperature > critical_.temperature) {
        refuse("There is no saturation above the critical temperature " + inText(critical_.temperature) +
               " K.");
    }
    if (temperature < temperatureMin_) {
        refuse("The temperature lies below the lowest of the equation, " + inText(temperatureMin_) + " K.");
    }
    SaturationPoint guess = guessAt(theta(temperature));
    guess.temperature = temperature;
    if (temperature > critical_.temperature * (1 - criticalNeighbourhood)) return guess;
    if (const std::optional<SaturationPoint> found = solve(guess)) return *found;
    throw PropertyError(Fault::noConvergence,
                        "The saturation at " + inText(temperature) + " K was not found.");
}

double SaturationLine::pressureMin() const { return std::exp(nodes_.back().value.pressure); }

/// The inverse of the table's pressure; falls with theta.
double SaturationLine::thetaAtPressure(double logPressure) const {
    const auto above =
        std::upper_bound(nodes_.begin() + 1, nodes_.end() - 1, logPressure,
                         [](double wanted, const Node& node) { return wanted > node.value.pressure; });
    const auto cell = static_cast<std::size_t>(above - nodes_.begin()) - 1;
    const Node& from = nodes_[cell];
    const Node& to = nodes_[cell + 1];
    double s = (logPressure - from.value.pressure) / (to.value.pressure - from.value.pressure);
    if (cell == 0) s = std::sqrt(std::clamp(s, 0.0, 1.0));  // here the pressure is a parabola
    for (int i = 0; i < 4; ++i) {
        const double here =
            cubic(from.value.pressure, from.slope.pressure, to.value.pressure, to.slope.pressure, step_, s);
        const double slope =
            6 * s * (1 - s) * (to.value.pressure - from.value.pressure) +
            step_ * ((1 - s) * (1 - 3 * s) * from.slope.pressure + s * (3 * s - 2) * to.slope.pressure);
        if (!(slope < 0)) break;
        s = std::clamp(s - (here - logPressure) / slope, 0.0, 1.0);
    }
    return step_ * (static_cast<double>(cell) + s);
}

SaturationPoint SaturationLine::atPressure(double pressure) {
    if (pressure > critical_.pressure) {
        refuse("There is no saturation above the critical pressure " + inText(critical_.pressure) + " kPa.");
    }
    // A little room, so that the pressure answered for the lowest temperature is taken back.
    if (pressure < pressureMin() * (1 - 1e-12)) {
        refuse("The pressure lies below that of saturation at the lowest temperature of the equation.");
    }
    SaturationPoint point = guessAt(thetaAtPressure(std::log(pressure)));
    for (int i = 0; i < 20 && point.temperature < critical_.temperature * (1 - criticalNeighbourhood); ++i) {
        const std::optional<SaturationPoint> found = solve(point);
        if (!found) break;
        // Newton's method on ln p over T; the densities are carried along as the table has it.
        const double change = std::log(pressure / found->pressure) * found->pressure / clapeyron(*found);
        point.temperature = std::clamp(found->temperature + change, temperatureMin_, critical_.temperature);
        const SaturationPoint from = guessAt(theta(found->temperature));
        const SaturationPoint to = guessAt(theta(point.temperature));
        point.liquidDensity = found->liquidDensity * (to.liquidDensity / from.liquidDensity);
        point.vapourDensity = found->vapourDensity * (to.vapourDensity / from.vapourDensity);
        if (std::abs(change) < 1e-7 * point.temperature) break;
    }
    point.pressure = pressure;
    return point;
}

double SaturationLine::liquidDensityFloor(double temperature) const {
    return guessAt(theta(temperature)).liquidDensity * (1 - 1e-5);
}

}  // namespace marvello::fluids

#include "fluids/PhaseLanes.h"

#include <cmath>

namespace marvello::fluids {
namespace {

/// Newton's steps of the last size are made without an evaluation; a first one of more than `astray` shows
/// that the guess belongs elsewhere.
constexpr int steps = 3;
constexpr double converged = 1e-11;
constexpr double convergedAtTemperature = 2e-14;
constexpr double astray = LaneTerms::near;

[[gnu::always_inline]] inline void absolute(const Lanes& x, Lanes& to) { to = x < 0 ? -x : x; }

[[gnu::always_inline]] inline void squareRoot(Lanes& x) {
    for (int lane = 0; lane < laneCount; ++lane) x[lane] = std::sqrt(x[lane]);
}

[[gnu::always_inline]] inline bool any(const LaneBits& bits) {
    return (bits[0] | bits[1] | bits[2] | bits[3]) != 0;
}

/// Takes `from` where the bits are set.
[[gnu::always_inline]] inline void take(const LaneBits& where, const PhaseLanes& from, PhaseLanes& to) {
    for (Lanes PhaseLanes::* number :
         {&PhaseLanes::temperature, &PhaseLanes::density, &PhaseLanes::pressure, &PhaseLanes::enthalpy,
          &PhaseLanes::entropy, &PhaseLanes::cv, &PhaseLanes::cp, &PhaseLanes::soundSpeed})
        to.*number = where ? from.*number : to.*number;
}

}  // namespace

PhaseLaneSearch::PhaseLaneSearch(const Phase& phase) : phase_(&phase) {
    // Each component is taken at its own reducing point, and weighted with its own gas constant.
    const std::vector<PureFluid>& components = phase.mixture().components();
    for (std::size_t i = 0; i < components.size(); ++i) {
        const double fraction = phase.fractions()[i];
        if (fraction <= 0) continue;
        const PureFluid& fluid = components[i];
        const double share = fraction * fluid.gasConstant / phase.gasConstant();
        const double reducing = fluid.reducing.temperature;
        constant_ += share * (fluid.ideal.constant + fluid.ideal.logarithm * std::log(reducing) +
                              std::log(fraction / fluid.reducing.density));
        linear_ += share * fluid.ideal.linear * reducing;
        logarithm_ += share * fluid.ideal.logarithm;
        for (const IdealPower& term : fluid.ideal.powers)
            powers_.push_back({share * term.n, std::log(reducing), term.t});
        for (const EinsteinTerm& term : fluid.ideal.einstein)
            einstein_.push_back({share * term.n, term.theta * reducing});
    }
}

/// As IdealPart::at().
[[gnu::always_inline]] inline void PhaseLaneSearch::ideal(const Lanes& temperature, Lanes& value,
                                                          Lanes& first, Lanes& second) const {
    Lanes logTemperature = temperature;
    logarithm(logTemperature);
    const Lanes linear = linear_ / temperature;
    value = constant_ + linear - logarithm_ * logTemperature;
    first = linear + logarithm_;
    second = Lanes{} - logarithm_;
    for (const Power& term : powers_) {
        Lanes f = term.exponent * (term.logTemperature - logTemperature);
        exponential(f);
        f *= term.factor;
        value += f;
        first += term.exponent * f;
        second += term.exponent * (term.exponent - 1) * f;
    }
    for (const Einstein& term : einstein_) {
        const Lanes exponent = term.temperature / temperature;
        Lanes decay = -exponent;
        exponential(decay);
        Lanes rest = 1 - decay;
        const Lanes occupation = decay / rest;
        const Lanes slope = term.factor * exponent * occupation;
        logarithm(rest);
        value += term.factor * rest;
        first += slope;
        second -= slope * exponent * (1 + occupation);
    }
}

/// As Isotherm::state().
[[gnu::always_inline]] inline void PhaseLaneSearch::evaluate(const Lanes& temperature, const Lanes& density,
                                                             LaneEvaluation evaluation, LaneTerms& last,
                                                             PhaseLanes& to) const {
    const FluidPoint& reducing = phase_->reducing();
    const double gas = phase_->gasConstant();
    LaneDerivatives residual;
    phase_->residual().lanesAt(reducing.temperature / temperature, density / reducing.density, evaluation,
                               last, residual);
    Lanes value;
    Lanes first;
    Lanes second;
    ideal(temperature, value, first, second);
    Lanes logDensity = density;
    logarithm(logDensity);
    const Lanes compressibility = 1 + residual.d;
    const Lanes stiffness = 1 + 2 * residual.d + residual.dd;
    const Lanes expansion = 1 + residual.d - residual.dt;
    const Lanes energy = first + residual.t;
    const Lanes cv = -(second + residual.tt);
    const Lanes square = expansion * expansion;
    Lanes speed = stiffness + square / cv;
    speed = (speed > 0 ? speed : Lanes{}) * (1000 * gas / phase_->molarMass()) * temperature;
    squareRoot(speed);
    to.temperature = temperature;
    to.density = density;
    to.pressure = gas * density * temperature * compressibility;
    to.enthalpy = gas * temperature * (energy + compressibility);
    to.entropy = gas * (energy - value - phase_->densityShare() * logDensity - residual.value);
    to.cv = gas * cv;
    to.cp = gas * (cv + square / stiffness);
    to.soundSpeed = speed;
    to.pressureByDensity = gas * temperature * stiffness;
    to.pressureByTemperature = gas * density * expansion;
}

/// As Flash::stepOnIsobar().
[[gnu::always_inline]] inline void PhaseLaneSearch::stepOnIsobar(const PhaseLanes& state, const Task& task,
                                                                 bool isEnthalpy, Lanes& temperatureStep,
                                                                 Lanes& densityStep) const {
    const Lanes expansion = state.pressureByTemperature / (state.density * state.pressureByDensity);
    const Lanes missing = task.pressure - state.pressure;
    const Lanes other = missing / state.density;
    if (isEnthalpy) {
        temperatureStep =
            (task.wanted - state.enthalpy - (1 - state.temperature * expansion) * other) / state.cp;
    } else {
        temperatureStep = (task.wanted - state.entropy + expansion * other) * state.temperature / state.cp;
    }
    densityStep = (missing - state.pressureByTemperature * temperatureStep) / state.pressureByDensity;
}

[[gnu::always_inline]] inline void PhaseLaneSearch::searchIsobar(Task& task, bool isEnthalpy,
                                                                 PhaseLanes& states, LaneBits& found) const {
    found = LaneBits{};
    LaneBits searching = ~found;
    LaneTerms last;
    for (int i = 0; i < steps && any(searching); ++i) {
        PhaseLanes state;
        evaluate(task.temperature, task.density, i > 0 ? LaneEvaluation::near : LaneEvaluation::all, last,
                 state);
        Lanes temperatureStep;
        Lanes densityStep;
        stepOnIsobar(state, task, isEnthalpy, temperatureStep, densityStep);
        Lanes ofTemperature;
        Lanes ofDensity;
        absolute(temperatureStep / state.temperature, ofTemperature);
        absolute(densityStep / state.density, ofDensity);
        searching &= (state.pressureByDensity > 0) & (ofTemperature < astray) & (ofDensity < astray);
        const LaneBits now = searching & (ofTemperature <= converged) & (ofDensity <= converged);
        // dh = T ds + dp/rho
        const Lanes enthalpyByPressure = (task.pressure - state.pressure) / state.density;
        if (isEnthalpy) {
            state.entropy += (task.wanted - state.enthalpy - enthalpyByPressure) / state.temperature;
            state.enthalpy = task.wanted;
        } else {
            state.enthalpy += (task.wanted - state.entropy) * state.temperature + enthalpyByPressure;
            state.entropy = task.wanted;
        }
        state.temperature += temperatureStep;
        state.density += densityStep;
        state.pressure = task.pressure;
        take(now, state, states);
        found |= now;
        searching &= ~now;
        // Lanes that are done or lost stay where they are.
        task.temperature = searching ? state.temperature : task.temperature;
        task.density = searching ? state.density : task.density;
    }
}

[[gnu::always_inline]] inline void PhaseLaneSearch::searchIsotherm(Task& task, PhaseLanes& states,
                                                                   LaneBits& found) const {
    const FluidPoint& reducing = phase_->reducing();
    const Lanes scale = phase_->gasConstant() * task.temperature;
    LaneTerms last;
    LaneDerivatives residual;
    phase_->residual().lanesAt(reducing.temperature / task.temperature, task.density / reducing.density,
                               LaneEvaluation::pressure, last, residual);
    const Lanes byDensity = 1 + 2 * residual.d + residual.dd;
    Lanes step = (task.pressure / scale - task.density * (1 + residual.d)) / byDensity;
    Lanes size;
    absolute(step / task.density, size);
    found = LaneBits{};
    LaneBits searching = (byDensity > 0) & (size < astray);
    for (int i = 1; i < steps && any(searching); ++i) {
        task.density = searching ? task.density + step : task.density;
        PhaseLanes state;
        evaluate(task.temperature, task.density, LaneEvaluation::near, last, state);
        step = (task.pressure - state.pressure) / state.pressureByDensity;
        absolute(step / state.density, size);
        const LaneBits now = searching & (size <= convergedAtTemperature);
        state.density += step;
        state.pressure = task.pressure;
        take(now, state, states);
        found |= now;
        searching &= ~now;
    }
}

void PhaseLaneSearch::find(Property property, const Task& task, PhaseLanes& states, LaneBits& found) const {
    Task moved = task;
    inVectorUnit([&]() MARVELLO_INLINED {
        if (property == Property::temperature) {
            searchIsotherm(moved, states, found);
        } else {
            searchIsobar(moved, property == Property::enthalpy, states, found);
        }
    });
}

}  // namespace marvello::fluids

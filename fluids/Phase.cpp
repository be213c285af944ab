#include "fluids/Phase.h"

#include <algorithm>
#include <cmath>

namespace marvello::fluids {

Phase::Phase(const Mixture& mixture, std::span<const double> moleFractions)
    : mixture_(&mixture),
      fractions_(moleFractions.begin(), moleFractions.end()),
      residual_(mixture.residualAt(moleFractions)),
      reducing_(mixture.reducing(moleFractions)),
      molarMass_(mixture.molarMass(moleFractions)) {
    for (std::size_t i = 0; i < fractions_.size(); ++i) {
        densityShare_ += fractions_[i] * mixture.components()[i].gasConstant / mixture.gasConstant();
    }
}

/// Each component is taken at its own reducing point, and weighted with its own gas constant.
TauDerivatives Phase::idealAt(double temperature) const {
    TauDerivatives sum;
    for (std::size_t i = 0; i < fractions_.size(); ++i) {
        if (fractions_[i] <= 0) continue;
        const PureFluid& fluid = mixture_->components()[i];
        const double share = fractions_[i] * fluid.gasConstant / mixture_->gasConstant();
        const TauDerivatives own = fluid.ideal.at(fluid.reducing.temperature / temperature);
        sum.value += share * (own.value + std::log(fractions_[i] / fluid.reducing.density));
        sum.first += share * own.first;
        sum.second += share * own.second;
    }
    return sum;
}

Isotherm::Isotherm(const Phase& phase, double temperature)
    : phase_(&phase), temperature_(temperature), tau_(phase.reducing_.temperature / temperature) {}

ReducedPressure Isotherm::reducedPressure(double density) const {
    const ResidualDerivatives residual = phase_->residual_.at(tau_, density / phase_->reducing_.density);
    return {density * (1 + residual.d), 1 + 2 * residual.d + residual.dd,
            std::log(density) + residual.value + residual.d};
}

PhaseState Isotherm::state(double density) {
    if (!ideal_) ideal_ = phase_->idealAt(temperature_);
    const ResidualDerivatives residual = phase_->residual_.at(tau_, density / phase_->reducing_.density);
    const double gas = phase_->gasConstant();
    const double compressibility = 1 + residual.d;
    const double stiffness = 1 + 2 * residual.d + residual.dd;
    const double expansion = 1 + residual.d - residual.dt;
    const double energy = ideal_->first + residual.t;
    const double cv = -(ideal_->second + residual.tt);

    PhaseState found;
    found.temperature = temperature_;
    found.density = density;
    found.pressure = density * gas * temperature_ * compressibility;
    found.energy = gas * temperature_ * energy;
    found.enthalpy = gas * temperature_ * (energy + compressibility);
    found.entropy =
        gas * (energy - ideal_->value - phase_->densityShare_ * std::log(density) - residual.value);
    found.cv = gas * cv;
    found.cp = gas * (cv + expansion * expansion / stiffness);
    const double square = stiffness + expansion * expansion / cv;
    // 1000: from kg/mol to g/mol. Inside the dome the square can be negative; no such state is reported.
    found.soundSpeed = std::sqrt(std::max(square, 0.0) * 1000 * gas * temperature_ / phase_->molarMass_);
    found.pressureByDensity = gas * temperature_ * stiffness;
    found.pressureByTemperature = density * gas * expansion;
    return found;
}

double Isotherm::liquidDensity(double reducedPressure, double dense) const {
    constexpr int steps = 100;
    constexpr double outward = 0.02;  // of the density, where the pressure falls with it
    constexpr double largestStep = 0.1;
    double density = dense;
    for (int i = 0; i < steps; ++i) {
        const ReducedPressure here = this->reducedPressure(density);
        const double change =
            here.byDensity > 0 ? (reducedPressure - here.value) / here.byDensity : outward * density;
        density = std::clamp(density + change, (1 - largestStep) * density, (1 + largestStep) * density);
        if (std::abs(change) < 1e-9 * density) break;
    }
    return density;
}

}  // namespace marvello::fluids

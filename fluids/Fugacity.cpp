#include "fluids/Fugacity.h"

#include <algorithm>
#include <cmath>

namespace marvello::fluids {
namespace {

/// The part of a derivative by mole fraction that remains when the fractions are to add up to 1: rho d/d
/// rho_i acts on a function of the composition as F_i - sum x_k F_k.
void project(std::size_t count, const PerComponent& x, PerComponent& byFraction) {
    double mean = 0;
    for (std::size_t k = 0; k < count; ++k) mean += x[k] * byFraction[k];
    for (std::size_t k = 0; k < count; ++k) byFraction[k] -= mean;
}

/// The same for second derivatives: `second` becomes rho d/d rho_j of the projected `first`, which is given
/// as it was before projection.
void projectTwice(std::size_t count, const PerComponent& x, const PerComponent& first, PerPair& second) {
    PerComponent rows{};
    double firstMean = 0;
    double mean = 0;
    for (std::size_t j = 0; j < count; ++j) {
        for (std::size_t k = 0; k < count; ++k) rows[j] += x[k] * second[k][j];
        firstMean += x[j] * first[j];
        mean += x[j] * rows[j];
    }
    for (std::size_t i = 0; i < count; ++i) {
        for (std::size_t j = 0; j < count; ++j)
            second[i][j] += firstMean + mean - first[j] - rows[i] - rows[j];
    }
}

}  // namespace

/// The residual part of the mixture as a sum over components and departures, with its derivatives by mole
/// fraction.
void Fugacity::sumBlocks(double tau, double delta) {
    const std::size_t count = mixture_->size();
    all_ = {};
    const auto add = [this](const ResidualDerivatives& block, double weight) {
        all_.value += weight * block.value;
        all_.d += weight * block.d;
        all_.dd += weight * block.dd;
        all_.t += weight * block.t;
        all_.tt += weight * block.tt;
        all_.dt += weight * block.dt;
    };
    for (std::size_t i = 0; i < count; ++i) {
        const ResidualDerivatives own = mixture_->residual(i).at(tau, delta);
        add(own, x_[i]);
        alpha_[i] = own.value;
        alphaD_[i] = own.d;
        alphaT_[i] = own.t;
        std::fill_n(alphaTwice_[i].begin(), count, 0.0);
    }
    for (const Mixture::Departure& pair : mixture_->departures()) {
        const std::size_t i = pair.first;
        const std::size_t j = pair.second;
        const ResidualDerivatives departure = pair.residual.at(tau, delta);
        add(departure, pair.factor * x_[i] * x_[j]);
        alpha_[i] += pair.factor * x_[j] * departure.value;
        alpha_[j] += pair.factor * x_[i] * departure.value;
        alphaD_[i] += pair.factor * x_[j] * departure.d;
        alphaD_[j] += pair.factor * x_[i] * departure.d;
        alphaT_[i] += pair.factor * x_[j] * departure.t;
        alphaT_[j] += pair.factor * x_[i] * departure.t;
        alphaTwice_[i][j] = alphaTwice_[j][i] = pair.factor * departure.value;
    }
}

/// The residual potential is psi_i = d(rho alpha)/d rho_i at constant T, with tau = Tr(x)/T and delta = rho
/// v_r(x):
///
///   psi_i = alpha + delta alpha_delta v_i + tau alpha_tau t_i + D_i alpha
///
/// where D_i = rho d/d rho_i acts on composition, v_i = 1 + D_i ln v_r and t_i = D_i ln Tr. Its derivatives
/// follow from rho d/d rho_j: delta changes by delta v_j, tau by tau t_j, and the composition by D_j.
void Fugacity::evaluate(double temperature, std::span<const double> amounts, bool withHeat,
                        FugacityState& to) {
    const std::size_t count = mixture_->size();
    double density = 0;
    for (std::size_t i = 0; i < count; ++i) density += amounts[i];
    for (std::size_t i = 0; i < count; ++i) x_[i] = amounts[i] / density;
    mixture_->reducingTemperature(x_, temperature_);
    mixture_->reducingVolume(x_, volume_);
    const double tau = temperature_.value / temperature;
    const double delta = density * volume_.value;
    sumBlocks(tau, delta);

    projectTwice(count, x_, alpha_, alphaTwice_);
    projectTwice(count, x_, temperature_.first, temperature_.second);
    projectTwice(count, x_, volume_.first, volume_.second);
    for (PerComponent* first : {&alpha_, &alphaD_, &alphaT_, &temperature_.first, &volume_.first})
        project(count, x_, *first);
    PerComponent t{};
    PerComponent v{};
    for (std::size_t i = 0; i < count; ++i) {
        t[i] = temperature_.first[i] / temperature_.value;
        v[i] = 1 + volume_.first[i] / volume_.value;
    }

    const auto& [a, d, dd, heat, tt, dt] = all_;
    to.density = density;
    to.pressure = density * (1 + d);
    to.pressureByHeat = -density * dt;
    for (std::size_t j = 0; j < count; ++j) {
        // rho d/d rho_j of alpha, of delta alpha_delta and of tau alpha_tau
        const double da = d * v[j] + heat * t[j] + alpha_[j];
        const double dad = (d + dd) * v[j] + dt * t[j] + alphaD_[j];
        const double dat = dt * v[j] + (heat + tt) * t[j] + alphaT_[j];
        to.potential[j] = std::log(amounts[j]) + a + da;
        to.potentialByHeat[j] = -(heat + dat);
        to.pressureByAmount[j] = 1 + d + dad;
        heatByAmount_[j] = heat + dat;
        for (std::size_t i = 0; i < count; ++i) {
            const double dti = temperature_.second[i][j] / temperature_.value - t[i] * t[j];
            const double dvi = volume_.second[i][j] / volume_.value - (v[i] - 1) * (v[j] - 1);
            const double dcomposition = alphaD_[i] * v[j] + alphaT_[i] * t[j] + alphaTwice_[i][j];
            to.potentialByAmount[i][j] =
                (da + dad * v[i] + d * dvi + dat * t[i] + heat * dti + dcomposition) / density;
        }
        to.potentialByAmount[j][j] += 1 / amounts[j];
    }
    if (withHeat) addHeat(temperature, amounts, to);
}

/// Each component's ideal part is taken at its own reducing point and weighted with its own gas constant.
void Fugacity::addHeat(double temperature, std::span<const double> amounts, FugacityState& to) const {
    const std::size_t count = mixture_->size();
    double energy = to.density * all_.t;
    double entropy = to.density * (all_.t - all_.value);
    to.enthalpyByHeat = -to.density * all_.tt;
    for (std::size_t j = 0; j < count; ++j) {
        const PureFluid& fluid = mixture_->components()[j];
        const double share = fluid.gasConstant / mixture_->gasConstant();
        const TauDerivatives ideal = fluid.ideal.at(fluid.reducing.temperature / temperature);
        const double ownEntropy = ideal.first - ideal.value - std::log(amounts[j] / fluid.reducing.density);
        energy += amounts[j] * share * ideal.first;
        entropy += amounts[j] * share * ownEntropy;
        to.enthalpyByHeat -= amounts[j] * share * ideal.second;
        // d(rho alpha)/d rho_j is the residual potential.
        const double psi = to.potential[j] - std::log(amounts[j]);
        to.enthalpyByAmount[j] = share * ideal.first + heatByAmount_[j] + to.pressureByAmount[j];
        to.entropyByAmount[j] = share * (ownEntropy - 1) + heatByAmount_[j] - psi;
    }
    to.entropyByHeat = to.enthalpyByHeat;
    to.enthalpyByHeat += to.pressure + to.pressureByHeat;
    to.enthalpy = (energy + to.pressure) / to.density;
    to.entropy = entropy / to.density;
}

}  // namespace marvello::fluids

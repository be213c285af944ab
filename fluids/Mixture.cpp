#include "fluids/Mixture.h"

#include <cmath>
#include <utility>

namespace marvello::fluids {
namespace {

std::vector<std::vector<ResidualTerm>> blocksOf(const std::vector<PureFluid>& components,
                                                const std::vector<PairInteraction>& pairs) {
    std::vector<std::vector<ResidualTerm>> blocks;
    for (const PureFluid& fluid : components) blocks.push_back(fluid.residual);
    for (const PairInteraction& pair : pairs) blocks.push_back(pair.departure);
    return blocks;
}

/// What a pair adds to a reducing function.
double pairShare(double xi, double xj, double beta, double gamma, double value) {
    const double weight = beta * beta * xi + xj;
    return weight > 0 ? 2 * xi * xj * beta * gamma * (xi + xj) / weight * value : 0;
}

}  // namespace

Mixture::Mixture(std::vector<PureFluid> components, std::vector<PairInteraction> pairs, double gasConstant)
    : components_(std::move(components)),
      pairs_(std::move(pairs)),
      gasConstant_(gasConstant),
      residual_(blocksOf(components_, pairs_)) {}

double Mixture::molarMass(std::span<const double> x) const {
    double mass = 0;
    for (std::size_t i = 0; i < components_.size(); ++i) mass += x[i] * components_[i].molarMass;
    return mass;
}

FluidPoint Mixture::reducing(std::span<const double> x) const {
    double temperature = 0;
    double volume = 0;
    for (std::size_t i = 0; i < components_.size(); ++i) {
        const FluidPoint& own = components_[i].reducing;
        temperature += x[i] * x[i] * own.temperature;
        volume += x[i] * x[i] / own.density;
    }
    for (const PairInteraction& pair : pairs_) {
        const FluidPoint& one = components_[pair.first].reducing;
        const FluidPoint& two = components_[pair.second].reducing;
        const double xi = x[pair.first];
        const double xj = x[pair.second];
        const double edge = (1 / std::cbrt(one.density) + 1 / std::cbrt(two.density)) / 2;
        temperature +=
            pairShare(xi, xj, pair.betaT, pair.gammaT, std::sqrt(one.temperature * two.temperature));
        volume += pairShare(xi, xj, pair.betaV, pair.gammaV, edge * edge * edge);
    }
    return {temperature, 0, 1 / volume};
}

void Mixture::setWeights(std::span<const double> x, std::span<double> weights) const {
    std::size_t block = 0;
    for (; block < components_.size(); ++block) weights[block] = x[block];
    for (const PairInteraction& pair : pairs_)
        weights[block++] = x[pair.first] * x[pair.second] * pair.factor;
}

}  // namespace marvello::fluids

#include "fluids/Mixture.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace marvello::fluids {

Mixture::Mixture(std::vector<PureFluid> components, std::vector<PairInteraction> pairs, double gasConstant)
    : components_(std::move(components)), pairs_(std::move(pairs)), gasConstant_(gasConstant) {
    for (const PureFluid& fluid : components_) residuals_.emplace_back(fluid.residual);
    for (const PairInteraction& pair : pairs_) {
        const FluidPoint& one = components_[pair.first].reducing;
        const FluidPoint& two = components_[pair.second].reducing;
        const double edge = (1 / std::cbrt(one.density) + 1 / std::cbrt(two.density)) / 2;
        const double temperature = std::sqrt(one.temperature * two.temperature);
        shares_.push_back({pair.first,
                           pair.second,
                           {2 * pair.betaT * pair.gammaT * temperature, pair.betaT * pair.betaT},
                           {2 * pair.betaV * pair.gammaV * edge * edge * edge, pair.betaV * pair.betaV}});
        if (pair.factor == 0 || pair.departure.empty()) continue;
        departures_.push_back({pair.first, pair.second, pair.factor, Residual(pair.departure)});
    }
}

Mixture Mixture::reduced(std::span<const std::size_t> kept) const {
    std::vector<PureFluid> components;
    std::vector<PairInteraction> pairs;
    for (const std::size_t i : kept) components.push_back(components_[i]);
    for (PairInteraction pair : pairs_) {
        const auto first = std::find(kept.begin(), kept.end(), pair.first);
        const auto second = std::find(kept.begin(), kept.end(), pair.second);
        if (first == kept.end() || second == kept.end()) continue;
        pair.first = static_cast<std::size_t>(first - kept.begin());
        pair.second = static_cast<std::size_t>(second - kept.begin());
        pairs.push_back(std::move(pair));
    }
    const double gasConstant = components.size() == 1 ? components.front().gasConstant : gasConstant_;
    return {std::move(components), std::move(pairs), gasConstant};
}

Residual Mixture::residualAt(std::span<const double> x) const {
    std::vector<ResidualTerm> terms;
    const auto add = [&terms](const std::vector<ResidualTerm>& block, double weight) {
        for (ResidualTerm term : block) {
            term.n *= weight;
            terms.push_back(term);
        }
    };
    for (std::size_t i = 0; i < size(); ++i) add(components_[i].residual, x[i]);
    for (const PairInteraction& pair : pairs_) {
        add(pair.departure, x[pair.first] * x[pair.second] * pair.factor);
    }
    return Residual(terms);
}

double Mixture::molarMass(std::span<const double> x) const {
    double mass = 0;
    for (std::size_t i = 0; i < size(); ++i) mass += x[i] * components_[i].molarMass;
    return mass;
}

/// Y = sum x_i^2 Y_i + sum over pairs of w x_i x_j (x_i + x_j)/(b^2 x_i + x_j).
template <class Own, class Share>
void Mixture::fillReducing(std::span<const double> x, Own own, Share share, ReducingFunction& to) const {
    to.value = 0;
    for (std::size_t i = 0; i < size(); ++i) {
        const double value = own(components_[i]);
        to.value += x[i] * x[i] * value;
        to.first[i] = 2 * x[i] * value;
        std::fill_n(to.second[i].begin(), size(), 0.0);
        to.second[i][i] = 2 * value;
    }
    for (const PairShares& pair : shares_) {
        const std::size_t i = pair.first;
        const std::size_t j = pair.second;
        const auto [weight, square] = share(pair);
        const double below = square * x[i] + x[j];
        if (!(below > 0)) continue;
        const double f = x[i] * x[j] * (x[i] + x[j]) / below;
        const double fi = (x[j] * (2 * x[i] + x[j]) - f * square) / below;
        const double fj = (x[i] * (x[i] + 2 * x[j]) - f) / below;
        const double fij = (2 * (x[i] + x[j]) - fi - fj * square) / below;
        to.value += weight * f;
        to.first[i] += weight * fi;
        to.first[j] += weight * fj;
        to.second[i][i] += weight * (2 * x[j] - 2 * fi * square) / below;
        to.second[j][j] += weight * (2 * x[i] - 2 * fj) / below;
        to.second[i][j] += weight * fij;
        to.second[j][i] += weight * fij;
    }
}

void Mixture::reducingTemperature(std::span<const double> x, ReducingFunction& to) const {
    fillReducing(
        x, [](const PureFluid& fluid) { return fluid.reducing.temperature; },
        [](const PairShares& pair) { return pair.temperature; }, to);
}

void Mixture::reducingVolume(std::span<const double> x, ReducingFunction& to) const {
    fillReducing(
        x, [](const PureFluid& fluid) { return 1 / fluid.reducing.density; },
        [](const PairShares& pair) { return pair.volume; }, to);
}

FluidPoint Mixture::reducing(std::span<const double> x) const {
    if (size() == 1)
        return {components_.front().reducing.temperature, 0, components_.front().reducing.density};
    ReducingFunction temperature;
    ReducingFunction volume;
    reducingTemperature(x, temperature);
    reducingVolume(x, volume);
    return {temperature.value, 0, 1 / volume.value};
}

std::string Mixture::name() const {
    std::string joined;
    for (const PureFluid& fluid : components_) joined += (joined.empty() ? "" : "/") + fluid.name;
    return joined;
}

}  // namespace marvello::fluids

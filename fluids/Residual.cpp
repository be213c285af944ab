#include "fluids/Residual.h"

#include <algorithm>
#include <cmath>

#include "fluids/PropertyError.h"

namespace marvello::fluids {
namespace {

using Blocks = std::vector<std::vector<ResidualTerm>>;

bool isAny(const ResidualTerm&) { return true; }
bool isExponential(const ResidualTerm& term) { return term.kind == TermKind::exponential; }

std::vector<double> collect(const Blocks& blocks, bool (*wanted)(const ResidualTerm&),
                            double ResidualTerm::* exponent) {
    std::vector<double> found;
    for (const auto& block : blocks) {
        for (const ResidualTerm& term : block) {
            if (wanted(term)) found.push_back(term.*exponent);
        }
    }
    return found;
}

}  // namespace

Residual::Residual(const Blocks& blocks)
    : tauPowers_(collect(blocks, isAny, &ResidualTerm::t)),
      deltaPowers_(collect(blocks, isAny, &ResidualTerm::d)),
      decayPowers_(collect(blocks, isExponential, &ResidualTerm::l)) {
    for (std::vector<ResidualTerm> block : blocks) {
        std::sort(block.begin(), block.end(),
                  [](const auto& left, const auto& right) { return left.kind < right.kind; });
        const auto count = [&](TermKind kind) {
            return static_cast<std::size_t>(std::count_if(
                block.begin(), block.end(), [kind](const ResidualTerm& term) { return term.kind == kind; }));
        };
        const std::size_t begin = terms_.size();
        const std::size_t powerEnd = begin + count(TermKind::power);
        blocks_.push_back({begin, powerEnd, powerEnd + count(TermKind::exponential), begin + block.size()});
        for (const ResidualTerm& term : block) {
            if (term.kind > TermKind::gaussian)
                throw PropertyError(Fault::notSupported, "A term's form is not computed yet.");
            terms_.push_back({term, tauPowers_.indexOf(term.t), deltaPowers_.indexOf(term.d),
                              decayPowers_.indexOf(term.l)});
        }
    }
}

Residual::Workspace Residual::makeWorkspace() const {
    Workspace made;
    made.tauPowers.resize(tauPowers_.size());
    made.deltaPowers.resize(deltaPowers_.size());
    made.decayPowers.resize(decayPowers_.size());
    made.decays.resize(decayPowers_.size());
    made.factors.resize(terms_.size());
    return made;
}

void Residual::setTau(double tau, Workspace& workspace) const {
    tauPowers_.fill(tau, workspace.tauPowers);
    for (std::size_t i = 0; i < terms_.size(); ++i) {
        const ResidualTerm& form = terms_[i].form;
        double factor = form.n * workspace.tauPowers[terms_[i].tauPower];
        double first = form.t;
        double second = form.t * (form.t - 1);
        if (form.kind == TermKind::gaussian) {
            const double distance = tau - form.gamma;
            factor *= std::exp(-form.beta * distance * distance);
            first -= 2 * form.beta * tau * distance;
            second = first * first - form.t - 2 * form.beta * tau * tau;
        }
        workspace.factors[i] = {factor, first, second};
    }
}

void Residual::setDelta(double delta, Workspace& workspace) const {
    deltaPowers_.fill(delta, workspace.deltaPowers);
    decayPowers_.fill(delta, workspace.decayPowers);
    for (std::size_t i = 0; i < workspace.decays.size(); ++i) {
        workspace.decays[i] = std::exp(-workspace.decayPowers[i]);
    }
}

/// Calls add(index, value, d, dd) for each term: its value and the logarithmic derivatives by delta.
template <class Add>
void Residual::visit(const Block& block, double delta, const Workspace& workspace, Add add) const {
    const auto base = [&](std::size_t i) {
        return workspace.factors[i].value * workspace.deltaPowers[terms_[i].deltaPower];
    };
    std::size_t i = block.begin;
    for (; i < block.powerEnd; ++i) {
        const double d = terms_[i].form.d;
        add(i, base(i), d, d * (d - 1));
    }
    for (; i < block.exponentialEnd; ++i) {
        const ResidualTerm& form = terms_[i].form;
        const double decay = form.l * workspace.decayPowers[terms_[i].decayPower];
        const double d = form.d - decay;
        add(i, base(i) * workspace.decays[terms_[i].decayPower], d, d * (d - 1) - form.l * decay);
    }
    for (; i < block.end; ++i) {
        const ResidualTerm& form = terms_[i].form;
        const double distance = delta - form.epsilon;
        const double d = form.d - 2 * form.eta * delta * distance;
        add(i, base(i) * std::exp(-form.eta * distance * distance), d,
            d * d - form.d - 2 * form.eta * delta * delta);
    }
}

ResidualDerivatives Residual::byDensity(double delta, std::span<const double> weights,
                                        Workspace& workspace) const {
    setDelta(delta, workspace);
    ResidualDerivatives sum;
    for (std::size_t b = 0; b < blocks_.size(); ++b) {
        double value = 0;
        double first = 0;
        double second = 0;
        visit(blocks_[b], delta, workspace, [&](std::size_t, double term, double d, double dd) {
            value += term;
            first += term * d;
            second += term * dd;
        });
        sum.value += weights[b] * value;
        sum.d += weights[b] * first;
        sum.dd += weights[b] * second;
    }
    return sum;
}

ResidualDerivatives Residual::all(double delta, std::span<const double> weights, Workspace& workspace) const {
    setDelta(delta, workspace);
    ResidualDerivatives sum;
    for (std::size_t b = 0; b < blocks_.size(); ++b) {
        visit(blocks_[b], delta, workspace, [&](std::size_t i, double term, double d, double dd) {
            const double value = weights[b] * term;
            const TauFactor& tau = workspace.factors[i];
            sum.value += value;
            sum.d += value * d;
            sum.dd += value * dd;
            sum.t += value * tau.first;
            sum.tt += value * tau.second;
            sum.dt += value * d * tau.first;
        });
    }
    return sum;
}

}  // namespace marvello::fluids

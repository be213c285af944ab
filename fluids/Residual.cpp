#include "fluids/Residual.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "fluids/SpecialTerms.h"
#include "fluids/VectorMath.h"

namespace marvello::fluids {
namespace {

/// The sums over all terms f of f, D f, (D^2 + D') f, T f, (T^2 + T') f, D T f, where D = delta f_delta / f,
/// T = tau f_tau / f and D' = delta dD/d delta, T' likewise.
struct Sums {
    Lanes f{}, d{}, dd{}, t{}, tt{}, dt{};
};

/// delta^l; the exponents of decays are small whole numbers in nearly all equations.
double decayPower(double delta, double l) {
    if (l == 0) return 0;
    if (l == 1) return delta;
    if (l == 2) return delta * delta;
    if (l == 3) return delta * delta * delta;
    return std::pow(delta, l);
}

/// Vectors needed for so many terms.
std::size_t wholeVectors(std::size_t terms) { return (terms + laneCount - 1) / laneCount * laneCount; }

std::vector<ResidualTerm> select(const std::vector<ResidualTerm>& terms, bool (*wanted)(TermKind)) {
    std::vector<ResidualTerm> found;
    std::copy_if(terms.begin(), terms.end(), std::back_inserter(found),
                 [wanted](const ResidualTerm& term) { return wanted(term.kind) && term.n != 0; });
    return found;
}

/// A decay exp(-v^power) of one variable v at its present value.
struct Decay {
    double exponent;  ///< v^power
    double first;     ///< v d/dv of it
    double second;    ///< (v d/dv)^2 of it
};

[[gnu::always_inline]] inline Decay decayOf(double power, double exponent) {
    return {exponent, power * exponent, power * power * exponent};
}

[[gnu::always_inline]] inline void addPowers(const double* n, const double* t, const double* d, double logTau,
                                             double logDelta, const Decay& inTau, const Decay& inDelta,
                                             Sums& sums) {
    Lanes factor, tauPower, deltaPower;
    load(n, factor);
    load(t, tauPower);
    load(d, deltaPower);
    Lanes f = tauPower * logTau + deltaPower * logDelta - (inTau.exponent + inDelta.exponent);
    exponential(f);
    f *= factor;
    const Lanes byTau = tauPower - inTau.first;
    const Lanes byDelta = deltaPower - inDelta.first;
    const Lanes fd = f * byDelta;
    const Lanes ft = f * byTau;
    sums.f += f;
    sums.d += fd;
    sums.dd += fd * byDelta - f * inDelta.second;
    sums.t += ft;
    sums.tt += ft * byTau - f * inTau.second;
    sums.dt += ft * byDelta;
}

}  // namespace

Residual::Residual(const std::vector<ResidualTerm>& terms) {
    addPowerTerms(select(terms, [](TermKind kind) {
        return kind == TermKind::power || kind == TermKind::exponential ||
               kind == TermKind::doubleExponential;
    }));
    addGaussianTerms(select(terms, [](TermKind kind) { return kind == TermKind::gaussian; }));
    special_ = select(
        terms, [](TermKind kind) { return kind == TermKind::associating || kind == TermKind::nonanalytic; });
}

void Residual::addPowerTerms(std::vector<ResidualTerm> terms) {
    const auto decays = [](const ResidualTerm& term) {
        return std::pair(term.kind == TermKind::power ? 0.0 : term.l,
                         term.kind == TermKind::doubleExponential ? term.m : 0.0);
    };
    std::sort(terms.begin(), terms.end(),
              [&](const auto& left, const auto& right) { return decays(left) < decays(right); });
    const auto close = [this] {
        const std::size_t size = wholeVectors(powers_.n.size());
        for (auto* column : {&powers_.n, &powers_.t, &powers_.d}) column->resize(size);
        if (!groups_.empty()) groups_.back().end = size;
    };
    for (const ResidualTerm& term : terms) {
        const auto [l, m] = decays(term);
        if (groups_.empty() || groups_.back().l != l || groups_.back().m != m) {
            close();
            groups_.push_back({l, m, 0});
        }
        powers_.n.push_back(term.n);
        powers_.t.push_back(term.t);
        powers_.d.push_back(term.d);
    }
    close();
}

void Residual::addGaussianTerms(const std::vector<ResidualTerm>& terms) {
    GaussianColumns& to = gaussians_;
    for (const ResidualTerm& term : terms) {
        to.n.push_back(term.n);
        to.t.push_back(term.t);
        to.d.push_back(term.d);
        to.eta.push_back(term.eta);
        to.epsilon.push_back(term.epsilon);
        to.beta.push_back(term.beta);
        to.gamma.push_back(term.gamma);
    }
    for (auto* column : {&to.n, &to.t, &to.d, &to.eta, &to.epsilon, &to.beta, &to.gamma})
        column->resize(wholeVectors(terms.size()));
}

[[gnu::always_inline]] inline ResidualDerivatives Residual::evaluate(double tau, double delta) const {
    const double logTau = std::log(tau);
    const double logDelta = std::log(delta);
    Sums sums;
    std::size_t i = 0;
    for (const DecayGroup& group : groups_) {
        const Decay inDelta = decayOf(group.l, decayPower(delta, group.l));
        const Decay inTau = decayOf(group.m, group.m == 0 ? 0 : std::exp(group.m * logTau));
        for (; i < group.end; i += laneCount) {
            addPowers(&powers_.n[i], &powers_.t[i], &powers_.d[i], logTau, logDelta, inTau, inDelta, sums);
        }
    }
    for (i = 0; i < gaussians_.n.size(); i += laneCount) {
        Lanes n, t, d, eta, epsilon, beta, gamma;
        load(&gaussians_.n[i], n);
        load(&gaussians_.t[i], t);
        load(&gaussians_.d[i], d);
        load(&gaussians_.eta[i], eta);
        load(&gaussians_.epsilon[i], epsilon);
        load(&gaussians_.beta[i], beta);
        load(&gaussians_.gamma[i], gamma);
        const Lanes deltaGap = delta - epsilon;
        const Lanes tauGap = tau - gamma;
        Lanes f = t * logTau + d * logDelta - eta * deltaGap * deltaGap - beta * tauGap * tauGap;
        exponential(f);
        f *= n;
        const Lanes byDelta = d - 2 * eta * delta * deltaGap;
        const Lanes byTau = t - 2 * beta * tau * tauGap;
        sums.f += f;
        sums.d += f * byDelta;
        sums.dd += f * (byDelta * byDelta - 2 * eta * delta * (deltaGap + delta));
        sums.t += f * byTau;
        sums.tt += f * (byTau * byTau - 2 * beta * tau * (tauGap + tau));
        sums.dt += f * byDelta * byTau;
    }
    ResidualDerivatives total;
    total.value = sumOf(sums.f);
    total.d = sumOf(sums.d);
    total.dd = sumOf(sums.dd) - total.d;  // delta^2 f'' = (D^2 + D' - D) f
    total.t = sumOf(sums.t);
    total.tt = sumOf(sums.tt) - total.t;
    total.dt = sumOf(sums.dt);
    return total;
}

MARVELLO_WIDE ResidualDerivatives Residual::evaluateWide(double tau, double delta) const {
    return evaluate(tau, delta);
}

ResidualDerivatives Residual::at(double tau, double delta) const {
    ResidualDerivatives total = hasWideLanes() ? evaluateWide(tau, delta) : evaluate(tau, delta);
    for (const ResidualTerm& term : special_) addSpecialTerm(term, tau, delta, total);
    return total;
}

}  // namespace marvello::fluids

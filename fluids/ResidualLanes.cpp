#include <algorithm>
#include <cmath>

#include "fluids/Residual.h"
#include "fluids/SpecialTerms.h"

namespace marvello::fluids {

bool Residual::fitsLanes() const {
    constexpr double mostT = 100;
    constexpr double mostD = 20;
    const auto fits = [](const auto& columns) {
        return std::ranges::all_of(columns.t, [](double t) { return std::abs(t) <= mostT; }) &&
               std::ranges::all_of(columns.d, [](double d) { return std::abs(d) <= mostD; });
    };
    return powers_.n.size() + gaussians_.n.size() <= LaneTerms::most && fits(powers_) && fits(gaussians_);
}

namespace {

/// The exponent of a decay in each lane.
[[gnu::always_inline]] inline void powerOf(const Lanes& x, double exponent, Lanes& to) {
    if (exponent == 0) {
        to = Lanes{};
    } else if (exponent == 1) {
        to = x;
    } else if (exponent == 2) {
        to = x * x;
    } else if (exponent == 3) {
        to = x * x * x;
    } else {
        to = x;
        logarithm(to);
        to *= exponent;
        exponential(to);
    }
}

/// Keeps a term within the range of exponentials, together with Residual::fitsLanes().
[[gnu::always_inline]] inline void limit(Lanes& decay) {
    constexpr double most = 300;
    decay = decay > most ? Lanes{} + most : decay;
}

/// The factors n tau^t delta^d e^-decay of one term after another.
template <bool isNear>
class LaneFactor {
  public:
    [[gnu::always_inline]] LaneFactor(const Lanes& tau, const Lanes& delta, LaneTerms& last)
        : next_(last.terms.data()) {
        if (isNear) {
            smallLogarithm(tau, last.tau, logTau_);
            smallLogarithm(delta, last.delta, logDelta_);
        } else {
            logTau_ = tau;
            logarithm(logTau_);
            logDelta_ = delta;
            logarithm(logDelta_);
        }
    }

    /// Where the last evaluation is near, `decay` is what has changed of it.
    [[gnu::always_inline]] void next(double n, double t, double d, const Lanes& decay, Lanes& f) {
        f = t * logTau_ + d * logDelta_ - decay;
        if (isNear) {
            f = *next_ * (1 + f * (1 + f * (1.0 / 2 + f * (1.0 / 6 + f * (1.0 / 24)))));
        } else {
            exponentialWithinRange(f);
            f *= n;
        }
        *next_++ = f;
    }

  private:
    /// ln(x/y) where both are nearly the same.
    [[gnu::always_inline]] static void smallLogarithm(const Lanes& x, const Lanes& y, Lanes& to) {
        const Lanes r = (x - y) / y;
        to = r * (1 - r * (1.0 / 2 - r * (1.0 / 3)));
    }

    Lanes logTau_, logDelta_;  ///< changes since the last evaluation where that is near
    Lanes* next_;
};

/// Adds a term f: T f, (T^2 + T') f and so on, as in Sums.
[[gnu::always_inline]] inline void addTerm(const Lanes& f, const Lanes& byTau, const Lanes& byTauTwice,
                                           const Lanes& byDelta, const Lanes& byDeltaTwice,
                                           LaneDerivatives& sums) {
    sums.value += f;
    sums.d += f * byDelta;
    sums.dd += f * byDeltaTwice;
    sums.t += f * byTau;
    sums.tt += f * byTauTwice;
    sums.dt += f * byTau * byDelta;
}

}  // namespace

/// Each lane is another tau and delta, where evaluate() has another term. Next to the places of the last
/// evaluation, a term is what it was there times e^x with a small x.
template <LaneEvaluation evaluation>
[[gnu::always_inline]] inline void Residual::evaluateLanes(const Lanes& tau, const Lanes& delta,
                                                           LaneTerms& last, LaneDerivatives& total) const {
    constexpr bool isNear = evaluation == LaneEvaluation::near;
    constexpr bool byTemperature = evaluation != LaneEvaluation::pressure;
    LaneFactor<isNear> factor(tau, delta, last);
    LaneDerivatives sums;  // apart from `total`, so that they stay in registers
    std::size_t i = 0;
    for (const DecayGroup& group : groups_) {
        Lanes inDelta;
        Lanes inTau;
        powerOf(delta, group.l, inDelta);
        powerOf(tau, group.m, inTau);
        Lanes decay = inTau + inDelta;
        if (isNear) {
            Lanes before;
            powerOf(last.delta, group.l, before);
            decay -= before;
            powerOf(last.tau, group.m, before);
            decay -= before;
        } else {
            limit(decay);
        }
        LaneDerivatives ofGroup;  // with the exponents alone, d for D and t for T
        for (; i < group.end; ++i) {
            if (powers_.n[i] == 0) continue;  // what fills a vector up
            Lanes f;
            const double t = powers_.t[i];
            const double d = powers_.d[i];
            factor.next(powers_.n[i], t, d, decay, f);
            const Lanes fd = f * d;
            ofGroup.value += f;
            ofGroup.d += fd;
            ofGroup.dd += fd * d;
            if (!byTemperature) continue;
            const Lanes ft = f * t;
            ofGroup.t += ft;
            ofGroup.tt += ft * t;
            ofGroup.dt += ft * d;
        }
        // D is d less the decay's, and D' the decay's alone; T likewise.
        const Lanes a = group.l * inDelta;
        const Lanes b = group.m * inTau;
        sums.value += ofGroup.value;
        sums.d += ofGroup.d - a * ofGroup.value;
        sums.dd += ofGroup.dd - 2 * a * ofGroup.d + a * (a - group.l) * ofGroup.value;
        sums.t += ofGroup.t - b * ofGroup.value;
        sums.tt += ofGroup.tt - 2 * b * ofGroup.t + b * (b - group.m) * ofGroup.value;
        sums.dt += ofGroup.dt - a * ofGroup.t - b * ofGroup.d + a * b * ofGroup.value;
    }
    for (i = 0; i < gaussians_.n.size(); ++i) {
        const GaussianColumns& of = gaussians_;
        if (of.n[i] == 0) continue;
        const Lanes deltaGap = delta - of.epsilon[i];
        const Lanes tauGap = tau - of.gamma[i];
        Lanes decay = of.eta[i] * deltaGap * deltaGap + of.beta[i] * tauGap * tauGap;
        if (isNear) {
            const Lanes deltaBefore = last.delta - of.epsilon[i];
            const Lanes tauBefore = last.tau - of.gamma[i];
            decay -= of.eta[i] * deltaBefore * deltaBefore + of.beta[i] * tauBefore * tauBefore;
        } else {
            limit(decay);
        }
        Lanes f;
        factor.next(of.n[i], of.t[i], of.d[i], decay, f);
        const Lanes deltaSlope = 2 * of.eta[i] * delta;
        const Lanes tauSlope = 2 * of.beta[i] * tau;
        const Lanes byDelta = of.d[i] - deltaSlope * deltaGap;
        const Lanes byTau = of.t[i] - tauSlope * tauGap;
        addTerm(f, byTau, byTau * byTau - tauSlope * (tauGap + tau), byDelta,
                byDelta * byDelta - deltaSlope * (deltaGap + delta), sums);
    }
    sums.dd -= sums.d;
    sums.tt -= sums.t;
    total = sums;
    last.tau = tau;
    last.delta = delta;
}

void Residual::lanesAt(const Lanes& tau, const Lanes& delta, LaneEvaluation evaluation, LaneTerms& last,
                       LaneDerivatives& total) const {
    inVectorUnit([&]() MARVELLO_INLINED {
        switch (evaluation) {
            case LaneEvaluation::pressure:
                evaluateLanes<LaneEvaluation::pressure>(tau, delta, last, total);
                break;
            case LaneEvaluation::all:
                evaluateLanes<LaneEvaluation::all>(tau, delta, last, total);
                break;
            case LaneEvaluation::near:
                evaluateLanes<LaneEvaluation::near>(tau, delta, last, total);
        }
    });
    if (special_.empty()) return;
    for (int lane = 0; lane < laneCount; ++lane) {
        ResidualDerivatives sum;
        for (const ResidualTerm& term : special_) addSpecialTerm(term, tau[lane], delta[lane], sum);
        total.value[lane] += sum.value;
        total.d[lane] += sum.d;
        total.dd[lane] += sum.dd;
        total.t[lane] += sum.t;
        total.tt[lane] += sum.tt;
        total.dt[lane] += sum.dt;
    }
}

}  // namespace marvello::fluids

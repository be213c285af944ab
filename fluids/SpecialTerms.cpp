#include "fluids/SpecialTerms.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace marvello::fluids {
namespace {

/// A function divided into its derivatives: v f'/f and v^2 f''/f for f of one variable v.
struct Logarithmic {
    double first = 0;
    double second = 0;
};

/// Adds a term that is a function of tau times a function of delta.
void addProduct(double value, const Logarithmic& tau, const Logarithmic& delta, ResidualDerivatives& sum) {
    sum.value += value;
    sum.d += value * delta.first;
    sum.dd += value * delta.second;
    sum.t += value * tau.first;
    sum.tt += value * tau.second;
    sum.dt += value * tau.first * delta.first;
}

void addAssociating(const ResidualTerm& term, double tau, double delta, ResidualDerivatives& sum) {
    // The bracket g = 1/(b + beta (tau - gamma)^2) has g' = -2 beta (tau - gamma) g^2 and
    // g'' = 2 beta g^2 (4 beta (tau - gamma)^2 g - 1).
    const double tauDistance = tau - term.gamma;
    const double spread = term.beta * tauDistance * tauDistance;
    const double bracket = 1 / (term.b + spread);
    const double slope = 2 * term.beta * bracket * bracket;
    const double byTau = term.t - slope * tau * tauDistance;
    const double tauSecond = byTau * byTau - term.t + tau * tau * slope * (4 * spread * bracket - 1);

    const double deltaDistance = delta - term.epsilon;
    const double byDelta = term.d + 2 * term.eta * delta * deltaDistance;
    const double deltaSecond = byDelta * byDelta - term.d + 2 * term.eta * delta * delta;

    const double exponent = term.t * std::log(tau) + term.d * std::log(delta) + bracket +
                            term.eta * deltaDistance * deltaDistance;
    addProduct(term.n * std::exp(exponent), {byTau, tauSecond}, {byDelta, deltaSecond}, sum);
}

/// Delta of the nonanalytic term with its derivatives, plain ones here.
struct CriticalDistance {
    double value = 0;
    double d = 0;
    double dd = 0;
    double t = 0;
    double dt = 0;  ///< the second derivative by tau is 2
};

/// Written with x^(1/(2 beta) - 1) and x^(a - 1), in which nothing divides by delta - 1. `value` is kept from
/// 0 by what it is one rounding of tau off the critical point: a negative power is taken of it.
CriticalDistance criticalDistance(const ResidualTerm& term, double tau, double offset) {
    constexpr double rounding = std::numeric_limits<double>::epsilon();
    const double x = offset * offset;
    const double logX = std::log(std::max(x, std::numeric_limits<double>::min()));
    const double power = 1 / (2 * term.beta);
    const double curve = term.A * std::exp((power - 1) * logX);
    const double wall = term.B * std::exp((term.a - 1) * logX);
    const double theta = 1 - tau + curve * x;
    const double byDelta = 2 * power * curve * offset;  // of theta

    CriticalDistance found;
    found.value = std::max(theta * theta + wall * x, rounding * rounding);
    found.d = 2 * theta * byDelta + 2 * term.a * wall * offset;
    found.dd = 2 * byDelta * byDelta + 4 * theta * power * (2 * power - 1) * curve +
               2 * term.a * (2 * term.a - 1) * wall;
    found.t = -2 * theta;
    found.dt = -2 * byDelta;
    return found;
}

void addNonanalytic(const ResidualTerm& term, double tau, double delta, ResidualDerivatives& sum) {
    const double offset = delta - 1;
    const double tauOffset = tau - 1;
    const double damping = term.C * offset * offset + term.D * tauOffset * tauOffset;
    // Far from the critical point the term is smaller than 1e-20 of any other.
    if (damping > 60) return;

    // The power Delta^b is Delta^(b - 1) times f; `scale` is what all derivatives share.
    const CriticalDistance distance = criticalDistance(term, tau, offset);
    const double scale = term.n * std::exp((term.b - 1) * std::log(distance.value) - damping);
    const double bend = term.b * (term.b - 1) / distance.value;
    const double f = distance.value;
    const double fd = term.b * distance.d;
    const double fdd = term.b * distance.dd + bend * distance.d * distance.d;
    const double ft = term.b * distance.t;
    const double ftt = term.b * 2 + bend * distance.t * distance.t;
    const double fdt = term.b * distance.dt + bend * distance.d * distance.t;

    // The derivatives of delta exp(-C (delta - 1)^2) and of exp(-D (tau - 1)^2), without the exponential.
    const double slope = -2 * term.C * offset;
    const double gd = 1 + delta * slope;
    const double gdd = 2 * slope + delta * (slope * slope - 2 * term.C);
    const double ht = -2 * term.D * tauOffset;
    const double htt = ht * ht - 2 * term.D;

    sum.value += scale * delta * f;
    sum.d += scale * delta * (gd * f + delta * fd);
    sum.dd += scale * delta * delta * (gdd * f + 2 * gd * fd + delta * fdd);
    sum.t += scale * tau * delta * (ft + ht * f);
    sum.tt += scale * tau * tau * delta * (ftt + 2 * ht * ft + htt * f);
    sum.dt += scale * tau * delta * (gd * (ft + ht * f) + delta * (fdt + ht * fd));
}

}  // namespace

void addSpecialTerm(const ResidualTerm& term, double tau, double delta, ResidualDerivatives& sum) {
    switch (term.kind) {
        case TermKind::associating:
            addAssociating(term, tau, delta, sum);
            break;
        case TermKind::nonanalytic:
            addNonanalytic(term, tau, delta, sum);
            break;
        case TermKind::power:
        case TermKind::exponential:
        case TermKind::doubleExponential:
        case TermKind::gaussian:
            break;
    }
}

}  // namespace marvello::fluids

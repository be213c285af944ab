// The residual terms: their derivatives against differences of the forms as published, and the neighbourhood
// of the critical point, where one of them is singular.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cfenv>
#include <cmath>
#include <limits>
#include <set>
#include <string>
#include <vector>

#include "fluids/FluidFile.h"
#include "fluids/JsonField.h"
#include "fluids/Residual.h"

namespace marvello::test {
namespace {

using fluids::Residual;
using fluids::ResidualDerivatives;
using fluids::ResidualTerm;
using fluids::TermKind;
using Real = long double;

/// The terms of shipped fluids in all the forms there are, those for the critical region apart.
std::vector<ResidualTerm> termsOf(const std::vector<std::string>& files, bool critical) {
    std::vector<ResidualTerm> found;
    for (const std::string& file : files) {
        for (const ResidualTerm& term :
             fluids::readFluidFile(fluids::readFluidText(MARVELLO_SOURCE_FOLDER "/fluids/files/" + file))
                 .residual) {
            if ((term.kind == TermKind::nonanalytic) == critical) found.push_back(term);
        }
    }
    return found;
}
const std::vector<ResidualTerm> smoothTerms =
    termsOf({"R134A.FLD", "PROPANE.FLD", "R125.FLD", "AMMONIA.FLD"}, false);
const std::vector<ResidualTerm> criticalTerms = termsOf({"CO2.FLD"}, true);

/// The term as it is published.
Real published(const ResidualTerm& term, Real tau, Real delta) {
    const auto power = [&] { return term.n * std::pow(delta, Real(term.d)) * std::pow(tau, Real(term.t)); };
    if (term.kind == TermKind::power) return power();
    if (term.kind == TermKind::exponential) return power() * std::exp(-std::pow(delta, Real(term.l)));
    if (term.kind == TermKind::gaussian) {
        return power() * std::exp(-term.eta * (delta - term.epsilon) * (delta - term.epsilon) -
                                  term.beta * (tau - term.gamma) * (tau - term.gamma));
    }
    if (term.kind == TermKind::doubleExponential) {
        return power() * std::exp(-std::pow(delta, Real(term.l)) - std::pow(tau, Real(term.m)));
    }
    if (term.kind == TermKind::associating) {
        return power() * std::exp(1 / (term.b + term.beta * (tau - term.gamma) * (tau - term.gamma)) +
                                  term.eta * (delta - term.epsilon) * (delta - term.epsilon));
    }
    const Real x = (delta - 1) * (delta - 1);
    const Real theta = 1 - tau + term.A * std::pow(x, 1 / (2 * Real(term.beta)));
    const Real distance = theta * theta + term.B * std::pow(x, Real(term.a));
    return term.n * std::pow(distance, Real(term.b)) * delta *
           std::exp(-term.C * x - term.D * (tau - 1) * (tau - 1));
}

ResidualDerivatives computed(const ResidualTerm& term, double tau, double delta) {
    return Residual({term}).at(tau, delta);
}

/// A central difference over h, h/2, h/4 and h/8, extrapolated to h = 0: its error is of the order h^8.
template <class Difference>
Real extrapolated(Difference difference, Real h) {
    std::array<Real, 4> row{};
    for (Real& entry : row) {
        entry = difference(h);
        h /= 2;
    }
    Real factor = 4;
    for (std::size_t level = 1; level < row.size(); ++level, factor *= 4) {
        for (std::size_t i = 0; i + level < row.size(); ++i)
            row[i] = (factor * row[i + 1] - row[i]) / (factor - 1);
    }
    return row[0];
}

/// All of ResidualDerivatives from differences of the published form, with steps of `share` of the distance
/// to the nearest singularity.
ResidualDerivatives differences(const ResidualTerm& term, double tau, double delta, Real tauStep,
                                Real deltaStep) {
    const auto at = [&](Real i, Real j) { return published(term, tau + i, delta + j); };
    const Real middle = at(0, 0);
    const auto first = [&](auto f, Real h) {
        return extrapolated([&](Real s) { return (f(s) - f(-s)) / (2 * s); }, h);
    };
    const auto second = [&](auto f, Real h) {
        return extrapolated([&](Real s) { return (f(s) - 2 * middle + f(-s)) / (s * s); }, h);
    };
    const Real mixed = extrapolated(
        [&](Real s) {
            const Real r = s * deltaStep / tauStep;
            return (at(s, r) - at(s, -r) - at(-s, r) + at(-s, -r)) / (4 * s * r);
        },
        tauStep);
    const Real t = tau;
    const Real d = delta;
    return {static_cast<double>(middle),
            static_cast<double>(d * first([&](Real s) { return at(0, s); }, deltaStep)),
            static_cast<double>(d * d * second([&](Real s) { return at(0, s); }, deltaStep)),
            static_cast<double>(t * first([&](Real s) { return at(s, 0); }, tauStep)),
            static_cast<double>(t * t * second([&](Real s) { return at(s, 0); }, tauStep)),
            static_cast<double>(t * d * mixed)};
}

void expectNear(const ResidualDerivatives& found, const ResidualDerivatives& expected, double tolerance,
                double secondTolerance) {
    EXPECT_NEAR(found.value, expected.value, tolerance);
    EXPECT_NEAR(found.d, expected.d, tolerance);
    EXPECT_NEAR(found.t, expected.t, tolerance);
    EXPECT_NEAR(found.dd, expected.dd, secondTolerance);
    EXPECT_NEAR(found.tt, expected.tt, secondTolerance);
    EXPECT_NEAR(found.dt, expected.dt, secondTolerance);
}

/// The greatest of the derivatives, by which a deviation is measured.
double magnitude(const ResidualDerivatives& of) {
    return std::max({std::abs(of.value), std::abs(of.d), std::abs(of.dd), std::abs(of.t), std::abs(of.tt),
                     std::abs(of.dt)});
}

TEST(ResidualTerms, DerivativesOfTheSmoothForms) {
    std::set<TermKind> kinds;
    for (const ResidualTerm& term : smoothTerms) kinds.insert(term.kind);
    ASSERT_EQ(kinds.size(), 5U);
    for (const ResidualTerm& term : smoothTerms) {
        for (const double tau : {0.55, 0.8, 1.0, 1.2, 1.5, 1.9}) {
            for (const double delta : {1e-6, 0.01, 0.3, 0.9, 1.0, 1.7, 2.6, 3.2}) {
                SCOPED_TRACE(testing::Message() << term.n << " tau " << tau << " delta " << delta);
                const Real tauStep = term.beta > 100 ? 2e-4L : 2e-3L;  // a narrow bell asks for short ones
                const ResidualDerivatives expected = differences(term, tau, delta, tauStep, 0.002L * delta);
                const double unit = std::max(magnitude(expected), 1e-200);  // exponentials end at e^-700
                expectNear(computed(term, tau, delta), expected, 1e-11 * unit, 1e-9 * unit);
            }
        }
    }
}

/// Steps small against the distance to the zeros of Delta, which lies on the scale of |tau - 1| or of the
/// root of B x^a, and to delta = 1, where odd powers of |delta - 1| stand.
TEST(ResidualTerms, DerivativesOfTheNonanalyticForm) {
    ASSERT_EQ(criticalTerms.size(), 3U);
    for (const ResidualTerm& term : criticalTerms) {
        for (const double warmth : {-0.2, -0.03, -1e-3, 2e-4, 0.01, 0.15}) {
            for (const double offset : {-0.9, -0.4, -0.02, -1e-3, 2e-3, 0.05, 0.3, 0.8}) {
                const double tau = 1 + warmth;
                const double delta = 1 + offset;
                SCOPED_TRACE(testing::Message() << term.n << " tau " << tau << " delta " << delta);
                const double distance = std::max(std::abs(warmth), std::pow(std::abs(offset), term.a) / 2);
                const Real tauStep = 0.05L * std::min(distance, 0.02);
                const Real deltaStep = 0.05L * std::min({std::abs(offset), 0.2, delta});
                const ResidualDerivatives expected = differences(term, tau, delta, tauStep, deltaStep);
                const double unit = magnitude(expected);
                ASSERT_GT(unit, 0);
                expectNear(computed(term, tau, delta), expected, 1e-10 * unit, 1e-9 * unit);
            }
        }
    }
}

/// At delta = 1 Delta is (tau - 1)^2, and with s = |tau - 1| the term is n s^(2b) exp(-D s^2). Its
/// derivatives: by s          n (2b s^(2b-1) - 2D s^(2b+1)) exp(-D s^2), twice by s    n (2b (2b-1) s^(2b-2)
/// - 2D (4b+1) s^(2b) + 4 D^2 s^(2b+2)) exp(-D s^2). By delta: Delta and psi have no slope there, so delta
/// alpha_delta is alpha, and of the second derivative only psi's is left: -2C alpha.
TEST(ResidualTerms, OnTheCriticalIsochore) {
    for (const ResidualTerm& term : criticalTerms) {
        for (const double warmth : {-0.1, -1e-2, -1e-4, -1e-9, 1e-12, 1e-6, 3e-3, 0.2}) {
            const double tau = 1 + warmth;
            const double s = std::abs(tau - 1);
            SCOPED_TRACE(testing::Message() << term.n << " tau - 1 " << warmth);
            const double b2 = 2 * term.b;
            const double D = term.D;
            const double share = term.n * std::exp(-D * s * s) * std::pow(s, b2);
            const double first = share * (b2 / s - 2 * D * s) * (tau > 1 ? 1 : -1);
            const double second =
                share * (b2 * (b2 - 1) / (s * s) - 2 * D * (2 * b2 + 1) + 4 * D * D * s * s);
            const ResidualDerivatives found = computed(term, tau, 1);
            EXPECT_NEAR(found.value, share, 1e-13 * std::abs(share));
            EXPECT_NEAR(found.d, share, 1e-13 * std::abs(share));
            EXPECT_NEAR(found.dd, -2 * term.C * share, 1e-12 * std::abs(share));
            EXPECT_NEAR(found.t, tau * first, 1e-12 * std::abs(first));
            EXPECT_NEAR(found.tt, tau * tau * second, 1e-12 * std::abs(second));
            EXPECT_NEAR(found.dt, tau * first, 1e-12 * std::abs(first));
        }
    }
}

/// From both sides every derivative comes to what it is at delta = 1; the slopes are below 10 there.
TEST(ResidualTerms, ContinuousAcrossTheCriticalDensity) {
    for (const ResidualTerm& term : criticalTerms) {
        for (const double warmth : {-0.05, -1e-3, 1e-3, 0.1}) {
            const ResidualDerivatives middle = computed(term, 1 + warmth, 1);
            for (const double offset : {-1e-9, 1e-9}) {
                SCOPED_TRACE(testing::Message() << term.n << " tau - 1 " << warmth << " offset " << offset);
                expectNear(computed(term, 1 + warmth, 1 + offset), middle, 1e-8, 1e-8);
            }
        }
    }
}

/// Nothing but the second derivative by tau is singular at the critical point, and even it is a number there.
TEST(ResidualTerms, FiniteEverywhere) {
    constexpr double rounding = std::numeric_limits<double>::epsilon();
    std::vector<ResidualTerm> all = smoothTerms;
    all.insert(all.end(), criticalTerms.begin(), criticalTerms.end());
    std::feclearexcept(FE_ALL_EXCEPT);
    for (const ResidualTerm& term : all) {
        for (const double tau : {1e-3, 0.3, 0.9, 1 - rounding, 1.0, 1 + rounding, 1 + 1e-8, 1.3, 3.0, 8.0}) {
            for (const double delta :
                 {1e-300, 1e-12, 0.5, 1 - rounding, 1.0, 1 + rounding, 1 - 1e-8, 1 + 1e-5, 4.0, 50.0}) {
                ASSERT_TRUE(std::isfinite(magnitude(computed(term, tau, delta)))) << tau << ' ' << delta;
            }
        }
    }
    EXPECT_EQ(std::fetestexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW), 0);
    for (const ResidualTerm& term : criticalTerms) {
        const ResidualDerivatives top = computed(term, 1, 1);
        for (const double gone : {top.value, top.d, top.dd, top.t, top.dt}) EXPECT_NEAR(gone, 0, 1e-12);
        EXPECT_GT(std::abs(top.tt), std::abs(computed(term, 1 + 1e-12, 1).tt));
    }
}

/// However the terms are laid out, together they are the sum of each alone.
TEST(ResidualTerms, OfAllKindsTogether) {
    std::vector<ResidualTerm> all = smoothTerms;
    all.insert(all.begin() + 3, criticalTerms.begin(), criticalTerms.end());
    for (std::size_t count = 0; count <= all.size(); ++count) {
        const std::vector<ResidualTerm> some(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(count));
        ResidualDerivatives expected;
        for (const ResidualTerm& term : some) {
            const ResidualDerivatives alone = computed(term, 1.07, 0.8);
            expected.value += alone.value;
            expected.d += alone.d;
            expected.dd += alone.dd;
            expected.t += alone.t;
            expected.tt += alone.tt;
            expected.dt += alone.dt;
        }
        SCOPED_TRACE(count);
        expectNear(Residual(some).at(1.07, 0.8), expected, 1e-14, 1e-13);
    }
}

}  // namespace
}  // namespace marvello::test

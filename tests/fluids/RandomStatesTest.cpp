// Random states over the whole range: each is found again from every other pair of its properties.
//
// MARVELLO_RANDOM_STATES=N asks for N states of each refrigerant instead of a few, and prints how near they
// came.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <iostream>
#include <map>
#include <random>
#include <string>

#include "tests/fluids/FluidCalls.h"
#include "tests/fluids/Models.h"

namespace marvello::test {
namespace {

std::size_t statesWanted() {
    const char* told = std::getenv("MARVELLO_RANDOM_STATES");
    return told == nullptr ? 200 : std::stoul(told);
}

class RandomStates : public testing::TestWithParam<Refrigerant> {
  protected:
    void SetUp() override {
        const Answer answer = setUp(GetParam());
        ASSERT_EQ(answer.code, 0) << answer.sentence();
    }
    void TearDown() override {
        EXPECT_EQ(failures_, 0U) << "of " << asked_ << " states";
        if (std::getenv("MARVELLO_RANDOM_STATES") == nullptr) return;
        std::cout << GetParam().name << ": " << asked_ << " states";
        for (const auto& [name, worst] : worst_) std::cout << ", " << name << ' ' << worst;
        std::cout << '\n';
    }

    double uniform(double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random_);
    }
    double logUniform(double low, double high) { return std::exp(uniform(std::log(low), std::log(high))); }

    /// Below the critical temperature: anywhere, or the nearer the more.
    double subcritical() {
        const double critical = model.critical().temperature;
        const double coldest = std::max(model.lowest, GetParam().oneLiquidAbove);
        if (uniform(0, 1) < 0.75) return uniform(coldest, 0.98 * critical);
        return critical * (1 - logUniform(1e-5, 0.02));
    }

    /// A state to look at; what check() and fail() say is about it.
    void begin(double t, double p) {
        ++asked_;
        at(t, p);
    }
    void at(double t, double p) {
        t_ = t;
        p_ = p;
    }
    void check(const char* name, double found, double most) {
        double& worst = worst_[name];
        worst = std::max(worst, found / most);
        if (!(found <= most))
            fail(std::string(name) + ' ' + std::to_string(found / most) + " times too much");
    }
    /// The large coefficients of R22, which nearly cancel, cost it a digit more than others.
    double balanceError(double t) const {
        return std::abs(t / model.critical().temperature - 1) > 1e-3 ? 1e-9 : 5e-9;
    }
    /// Where rounding is magnified.
    bool isCritical(double t) const { return std::abs(t / model.critical().temperature - 1) < 3e-5; }
    /// Blends with R22 that no one uses lose a digit to its large coefficients.
    bool isListed() const {
        return std::ranges::count(refrigerants(), GetParam().name, &Refrigerant::name) > 0;
    }
    double qualityError(double t) const {
        if (isCritical(t)) return 1e-4;
        return isListed() && std::abs(t / model.critical().temperature - 1) > 1e-3 ? 1e-8 : 1e-6;
    }
    bool isFound(const Properties& found) {
        if (found.answer.code != 0) fail(found.answer.sentence());
        return found.answer.code == 0;
    }
    void fail(const std::string& what) {
        if (++failures_ > 5) return;
        std::cout.precision(17);
        ADD_FAILURE() << GetParam().name << std::scientific << ' ' << t_ << " K, " << p_ << " kPa: " << what;
    }

    std::array<Properties, 3> roundTrips(const Properties& state);
    void onePhase(const Properties& state);
    void twoPhases(const Properties& state);

    const Model& model = modelOf(GetParam());

  private:
    std::mt19937_64 random_{20260101};
    std::size_t asked_ = 0;
    std::size_t failures_ = 0;
    double t_ = 0;
    double p_ = 0;
    std::map<std::string, double> worst_;  ///< as a share of what is allowed
};

/// By (p,h), (p,s) and (T,s). What is compared is what the inputs determine well: temperature, enthalpy,
/// entropy and, but for the neighbourhood of the critical point, density. The pressure of a cold liquid is
/// hardly determined by its temperature and entropy.
std::array<Properties, 3> RandomStates::roundTrips(const Properties& state) {
    const double gas = model.mixture.gasConstant();
    const Properties byH = atPH(state.p, state.h);
    const Properties byS = atPS(state.p, state.s);
    const Properties byTS = atTS(state.t, state.s);
    if (!(isFound(byH) && isFound(byS) && isFound(byTS))) return {state, state, state};
    const double critical = std::abs(state.t / model.critical().temperature - 1);
    const double densityError = critical > 1e-3 ? 1e-8 : 1e-5;
    const double temperatureError = critical > 1e-3 ? 1e-7 : 1e-6;
    check("T(p,h)", std::abs(byH.t - state.t), temperatureError);
    check("T(p,s)", std::abs(byS.t - state.t), temperatureError);
    check("s(p,h)", std::abs(byH.s - state.s) / gas, 1e-9);
    check("h(p,s)", std::abs(byS.h - state.h) / (gas * state.t), 1e-9);
    check("h(T,s)", std::abs(byTS.h - state.h) / (gas * state.t), 1e-7);
    check("D(p,h)", deviation(byH.D, state.D), densityError);
    check("D(p,s)", deviation(byS.D, state.D), densityError);
    check("D(T,s)", deviation(byTS.D, state.D), densityError);
    if (state.D < model.critical().density) check("p(T,s)", deviation(byTS.p, state.p), 1e-7);
    return {byH, byS, byTS};
}

/// The density gives back the pressure, or of a dense phase the pressure the density.
void RandomStates::onePhase(const Properties& state) {
    if (!(state.q == -998 || state.q >= 998)) fail("quality " + std::to_string(state.q));
    const fluids::FugacityState phase = phaseAt(model, state.t, state.D, state.x);
    double stiffness = 0;
    for (std::size_t i = 0; i < model.z.size(); ++i)
        stiffness += phase.pressureByAmount[i] * state.D * state.x[i];
    const double reduced = state.p / (model.mixture.gasConstant() * state.t);
    check("p(T,D)", std::abs(phase.pressure - reduced) / std::max(reduced, stiffness), 1e-11);
    if (stiffness <= 0) fail("a state that is not stable");
}

void RandomStates::twoPhases(const Properties& state) {
    if (!(state.Dl > state.Dv)) fail("a liquid that is thinner than the vapour");
    check("balance of phases", imbalance(model, state.t, state.p, state), balanceError(state.t));
    check("volumes", deviation(1 / state.D, (1 - state.q) / state.Dl + state.q / state.Dv), 1e-12);
    for (std::size_t i = 0; i < model.z.size(); ++i)
        check("moles", std::abs((1 - state.q) * state.x[i] + state.q * state.y[i] - model.z[i]), 1e-13);
}

TEST_P(RandomStates, OfTemperatureAndPressure) {
    for (std::size_t i = 0; i < statesWanted() / 2; ++i) {
        const bool usual = i % 2 == 0;
        const double t = uniform(model.lowest, usual ? 450 : model.highest);
        const double p = logUniform(usual ? 1 : 1e-6, usual ? 6000 : model.pressureMax);
        begin(t, p);
        const Properties state = atTP(t, p);
        if (!isFound(state)) continue;
        if (state.q >= 0 && state.q < 1) {
            twoPhases(state);
        } else if (state.q != 1) {
            onePhase(state);
        }
        roundTrips(state);
    }
}

TEST_P(RandomStates, OnTheSaturationLine) {
    for (std::size_t i = 0; i < statesWanted(); ++i) {
        const double t = i < 2 ? model.lowest + 1e-9 : subcritical();
        const std::int32_t side = i % 2 == 0 ? 1 : 2;
        begin(t, 0);
        const Properties line = saturationAtT(t, side);
        if (!isFound(line)) continue;
        at(t, line.p);
        if (!(line.Dl > line.Dv)) fail("a liquid that is thinner than the vapour");
        check("balance of phases", imbalance(model, t, line.p, line), balanceError(t));
        check("composition", distance(side == 1 ? line.x : line.y, fractionsInUse()), 1e-15);
        // Above the critical pressure a blend may have two bubble points of one pressure.
        if (line.p >= model.critical().pressure) continue;
        const Properties back = saturationAtP(line.p, side);
        if (isFound(back)) check("T(p)", std::abs(back.t - t), isCritical(t) ? 1e-8 : 1e-9);
    }
}

/// Anywhere in the dome, or hardly any of one phase.
TEST_P(RandomStates, InTwoPhases) {
    for (std::size_t i = 0; i < statesWanted() / 4; ++i) {
        const double t = subcritical();
        const double part = i % 3 == 0 && isListed() ? (i % 2 == 0 ? 1e-5 : 1 - 1e-5) : uniform(0, 1);
        const Properties dew = saturationAtT(t, 2);
        const Properties bubble = saturationAtT(t, 1);
        begin(t, dew.p);
        if (!(isFound(dew) && isFound(bubble))) continue;
        Properties state;
        if (bubble.p > dew.p * (1 + 1e-3)) {
            const double p = dew.p + part * (bubble.p - dew.p);
            at(t, p);
            state = atTP(t, p);
        } else {
            const Properties end = saturationAtP(dew.p, 1);
            if (!isFound(end)) continue;
            const double span = enthalpyAt(model, t, dew.Dv) - enthalpyAt(model, end.t, end.Dl);
            state = atPH(dew.p, atTP(t, dew.p).h - part * span);
        }
        if (!isFound(state)) continue;
        twoPhases(state);
        for (const Properties& same : roundTrips(state)) {
            twoPhases(same);
            check("quality", std::abs(same.q - state.q), qualityError(t));
            check("p", deviation(same.p, state.p), 1e-8);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Fluids, RandomStates, testing::ValuesIn(refrigerants()), testName);

/// Blends of no list: of wide and narrow glide, with and without R22.
INSTANTIATE_TEST_SUITE_P(
    Unlisted, RandomStates,
    testing::Values(Refrigerant{"R134a_R152a", {"R134A.FLD", "R152A.FLD"}, {0.1259, 0.8741}},
                    Refrigerant{"R143a_R1234zeE", {"R143A.FLD", "R1234ZEE.FLD"}, {0.0422, 0.9578}},
                    Refrigerant{"R22_R32", {"R22.FLD", "R32.FLD"}, {0.6, 0.4}},
                    Refrigerant{"R22_R1234zeE", {"R22.FLD", "R1234ZEE.FLD"}, {0.7276, 0.2724}},
                    Refrigerant{"R744_R22", {"CO2.FLD", "R22.FLD"}, {0.4071, 0.5929}},
                    Refrigerant{"R32_R600a", {"R32.FLD", "ISOBUTAN.FLD"}, {0.7166, 0.2834}},
                    Refrigerant{"R744_R1234yf", {"CO2.FLD", "R1234YF.FLD"}, {0.7532, 0.2468}},
                    Refrigerant{"R143a_R744_R290",
                                {"R143A.FLD", "CO2.FLD", "PROPANE.FLD"},
                                {0.4088, 0.0647, 0.5265},
                                200},
                    Refrigerant{"R32_R1234zeE_R1270_R290",
                                {"R32.FLD", "R1234ZEE.FLD", "PROPYLEN.FLD", "PROPANE.FLD"},
                                {0.3552, 0.3358, 0.0805, 0.2285},
                                225}),
    testName);

}  // namespace
}  // namespace marvello::test

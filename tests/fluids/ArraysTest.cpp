// Array calls against single ones: the same numbers to rounding, in whatever order the states come.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "tests/fluids/FluidCalls.h"
#include "tests/fluids/Models.h"

namespace marvello::test {
namespace {

using Numbers = std::vector<double>;

/// Liquid, two phases, vapour, supercritical, and what is refused, all mixed.
struct States {
    Numbers t, p, h, s;

    void add(const RefpropState& state) {
        t.push_back(state.t);
        p.push_back(state.p);
        h.push_back(state.h);
        s.push_back(state.s);
    }
};

class Arrays : public testing::TestWithParam<Refrigerant> {
  protected:
    Arrays() {
        EXPECT_EQ(session.setUp(GetParam().files, GetParam().massFractions).code, 0);
        const Model& model = modelOf(GetParam());
        const double critical = model.critical().temperature;
        std::mt19937 random(19);
        const auto between = [&](double low, double high) {
            return std::uniform_real_distribution<double>(low, high)(random);
        };
        for (int i = 0; i < 1003; ++i) {
            const double p = model.critical().pressure * std::exp(between(-7, 0.6));
            const double t = between(std::max(0.5 * critical, model.lowest - 10), model.highest + 10);
            states.add(session.atTP(t, p, {.t = t, .p = p}));
            const RefpropState bubble = session.saturationAtP(p, 1);
            const RefpropState dew = session.saturationAtP(p, 2);
            if (i % 3 != 0 || bubble.answer.code != 0 || dew.answer.code != 0) continue;
            RefpropState mixed = session.atTP(bubble.t - 0.01, p, {.t = bubble.t, .p = p});
            const RefpropState vapour = session.atTP(dew.t + 0.01, p);
            const double part = between(-0.001, 1.001);
            mixed.h += part * (vapour.h - mixed.h);
            mixed.s += part * (vapour.s - mixed.s);
            states.add(mixed);
        }
        const double none = std::numeric_limits<double>::quiet_NaN();
        for (const double wrong : {none, 1 / std::numeric_limits<double>::min(), -1.0, 0.0}) {
            states.add({.t = 300, .p = wrong, .h = 2e4, .s = 100});
            states.add({.t = wrong, .p = 100, .h = wrong * 1e9, .s = wrong * 1e9});
        }
    }

    /// Of what both call numbers of the state; h and s have a zero that is anywhere.
    void expectSame(const RefpropStates& all, std::size_t i, const RefpropState& single) const {
        ASSERT_EQ(all.code[i], single.answer.code) << i << ' ' << single.answer.sentence();
        // The terms of R22 are large and of both signs, so that its cold liquid has more rounding.
        const double tolerance = GetParam().name == "R22" ? 1e-11 : 1e-12;
        const std::array<std::array<double, 3>, 12> numbers{{{all.t[i], single.t, 0},
                                                             {all.p[i], single.p, 0},
                                                             {all.D[i], single.D, 0},
                                                             {all.Dl[i], single.Dl, 0},
                                                             {all.Dv[i], single.Dv, 0},
                                                             {all.q[i], single.q, 0},
                                                             {all.e[i], single.e, 1000},
                                                             {all.h[i], single.h, 1000},
                                                             {all.s[i], single.s, 10},
                                                             {all.cv[i], single.cv, 0},
                                                             {all.cp[i], single.cp, 0},
                                                             {all.w[i], single.w, 0}}};
        for (const auto& [found, known, least] : numbers) {
            if (!std::isfinite(known)) continue;  // an input repeated
            EXPECT_LE(std::abs(found - known), tolerance * std::max(std::abs(known), least))
                << all.t[i] << " K, " << all.p[i] << " kPa";
        }
    }

    RefpropSession session{linkedRefprop()};
    States states;
};

TEST_P(Arrays, AreSingleCalls) {
    RefpropStates found;
    session.statesAtTP(states.t, states.p, found);
    for (std::size_t i = 0; i < states.t.size(); ++i)
        expectSame(found, i, session.atTP(states.t[i], states.p[i], {.t = states.t[i], .p = states.p[i]}));
    session.statesAtPH(states.p, states.h, found);
    for (std::size_t i = 0; i < states.t.size(); ++i)
        expectSame(found, i, session.atPH(states.p[i], states.h[i], {.p = states.p[i], .h = states.h[i]}));
    session.statesAtPS(states.p, states.s, found);
    for (std::size_t i = 0; i < states.t.size(); ++i)
        expectSame(found, i, session.atPS(states.p[i], states.s[i], {.p = states.p[i], .s = states.s[i]}));
}

/// To the last byte: which states share a vector must not show.
TEST_P(Arrays, DoNotDependOnTheirNeighbours) {
    RefpropStates all;
    session.statesAtPH(states.p, states.h, all);
    RefpropStates some;
    for (const std::size_t count : {1U, 3U, 6U}) {
        for (std::size_t from = 0; from + count < 200; from += count) {
            session.statesAtPH(std::span(states.p).subspan(from, count),
                               std::span(states.h).subspan(from, count), some);
            for (std::size_t i = 0; i < count; ++i) {
                ASSERT_EQ(some.D[i], all.D[from + i]);
                ASSERT_EQ(some.cp[i], all.cp[from + i]);
                ASSERT_EQ(some.code[i], all.code[from + i]);
            }
        }
    }
    session.statesAtPH({}, {}, some);
    EXPECT_TRUE(some.D.empty());
}

INSTANTIATE_TEST_SUITE_P(Fluids, Arrays, testing::ValuesIn(refrigerants()),
                         [](const auto& instance) { return testName(instance); });

TEST(ArrayCalls, GiveCompositionsAndNeedASetUp) {
    const FluidHandleFunctions& table = *FLUIDHANDLESdll();
    FluidHandle* handle = table.open();
    RefpropSession session(linkedRefprop());
    const Refrigerant& r407c = refrigerant("R407C");
    ASSERT_EQ(session.setUp(r407c.files, r407c.massFractions).code, 0);
    const Fractions z = session.fractions();
    std::array<double, 2> t{250, 320};
    std::array<double, 2> p{1000, 1000};
    std::array<std::array<double, 2>, 12> numbers{};
    std::array<double, 40> x{};
    std::array<double, 40> y{};
    std::array<std::int32_t, 2> code{};
    const FluidStateArrays to{numbers[0].data(), numbers[1].data(), numbers[2].data(),  numbers[3].data(),
                              numbers[4].data(), numbers[5].data(), numbers[6].data(),  numbers[7].data(),
                              numbers[8].data(), numbers[9].data(), numbers[10].data(), numbers[11].data(),
                              x.data(),          y.data(),          code.data()};
    table.statesAtTP(handle, 2, t.data(), p.data(), z.data(), &to);
    for (const std::size_t i : {0U, 1U}) {
        EXPECT_EQ(code[i], 1);
        EXPECT_EQ(numbers[2][i], undefined);
    }
    std::string files;
    for (const std::string& file : r407c.files) files += MARVELLO_APP_FOLDER "/Fluids/" + file + "|";
    const std::string mixture = MARVELLO_APP_FOLDER "/Fluids/hmx.bnc";
    const std::int32_t count = 3;
    std::string error(255, ' ');
    table.SETUPdll(handle, &count, files.data(), mixture.data(), "DEF", code.data(), error.data(),
                   static_cast<std::int32_t>(files.size()), static_cast<std::int32_t>(mixture.size()), 3,
                   255);
    ASSERT_EQ(code[0], 0) << error;
    table.statesAtTP(handle, 2, t.data(), p.data(), z.data(), &to);
    for (std::size_t k = 0; k < 3; ++k) {
        EXPECT_NEAR(x[k], z[k], 1e-15);
        EXPECT_NEAR(y[20 + k], z[k], 1e-15);
    }
    EXPECT_EQ(x[3], 0);
    EXPECT_EQ(numbers[5][0], -998);
    EXPECT_EQ(numbers[5][1], 998);
    table.close(handle);
}

/// So many terms that they are no longer kept from one evaluation to the next.
TEST(ArrayCalls, OfAMixtureOfTwenty) {
    RefpropSession many(linkedRefprop());
    RefpropSession one(linkedRefprop());
    ASSERT_EQ(many.setUp(std::vector<std::string>(20, "R134A.FLD"), Numbers(20, 0.05)).sentence(), "");
    ASSERT_EQ(one.setUp({"R134A.FLD"}, {1}).code, 0);
    const Numbers t{260, 290, 320, 350, 380};
    const Numbers p{700, 900, 500, 100, 1000};
    RefpropStates found;
    RefpropStates known;
    many.statesAtTP(t, p, found);
    one.statesAtTP(t, p, known);
    for (std::size_t i = 0; i < t.size(); ++i) {
        EXPECT_EQ(found.code[i], 0);
        EXPECT_LT(deviation(found.D[i], known.D[i]), 1e-5);  // the gas constant is that of mixtures
    }
}

TEST(ArrayCalls, OfALibraryWithTheTenFunctions) {
    RefpropSession withHandle(linkedRefprop());
    RefpropSession without(tenFunctions());
    for (RefpropSession* session : {&withHandle, &without})
        ASSERT_EQ(session->setUp({"R134A.FLD"}, {1}).code, 0);
    const Numbers p{100, 500, 1000, 1e9};
    const Numbers h{10000, 30000, 45000, 1};
    RefpropStates found;
    RefpropStates known;
    withHandle.statesAtPH(p, h, found);
    without.statesAtPH(p, h, known);
    EXPECT_EQ(found.code, known.code);
    for (std::size_t i = 0; i < p.size(); ++i) {
        EXPECT_NEAR(found.t[i], known.t[i], 1e-9);
        EXPECT_EQ(known.h[i], h[i]);
    }
}

}  // namespace
}  // namespace marvello::test

// The mixture model: fugacities against differences of the Helmholtz energy, and what must hold of any
// mixture.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "fluids/Fugacity.h"
#include "fluids/Refprop.h"
#include "tests/fluids/FluidCalls.h"
#include "tests/fluids/Models.h"

namespace marvello::test {
namespace {

using fluids::FugacityState;
using fluids::Mixture;

const std::vector<std::string> allFiles = [] {
    std::vector<std::string> files;
    for (const Refrigerant& known : refrigerants()) {
        if (!known.isBlend()) files.push_back(known.files.front());
    }
    return files;
}();

/// The slope of a function at 0 by central differences, with the errors of second and fourth order taken out
/// (Richardson).
template <class Function>
double slopeOf(Function function, double step) {
    const auto central = [&](double h) { return (function(h) - function(-h)) / (2 * h); };
    const double one = (4 * central(step / 2) - central(step)) / 3;
    const double two = (4 * central(step / 4) - central(step / 2)) / 3;
    return (16 * two - one) / 15;
}

/// A mixture at random amounts of its components, from thin gas to dense liquid, at random temperatures.
class Fugacities : public testing::TestWithParam<std::vector<std::string>> {
  protected:
    static constexpr int states = 12;

    void shuffle() {
        std::uniform_real_distribution<double> share(0.02, 1);
        std::uniform_real_distribution<double> any(0, 1);
        const std::size_t count = mixture.size();
        const double density = std::exp(std::log(0.01) + any(random_) * std::log(1100));
        double sum = 0;
        for (std::size_t i = 0; i < count; ++i) sum += amounts[i] = share(random_);
        for (std::size_t i = 0; i < count; ++i) amounts[i] *= density / sum;
        temperature = 230 + 210 * any(random_);
    }
    FugacityState at(double t, const fluids::PerComponent& rho) const {
        FugacityState state;
        fluids::Fugacity(mixture).evaluate(t, {rho.data(), mixture.size()}, true, state);
        return state;
    }
    std::vector<double> fractions(const fluids::PerComponent& rho, double density) const {
        std::vector<double> x;
        for (std::size_t i = 0; i < mixture.size(); ++i) x.push_back(rho[i] / density);
        return x;
    }
    double densityOf(const fluids::PerComponent& rho) const {
        return std::accumulate(rho.begin(), rho.begin() + static_cast<std::ptrdiff_t>(mixture.size()), 0.0);
    }
    /// n alphar of these moles of the components in 1 dm^3.
    double residualEnergy(const fluids::PerComponent& rho) const {
        const double density = densityOf(rho);
        const std::vector<double> x = fractions(rho, density);
        const fluids::FluidPoint reducing = mixture.reducing(x);
        return density *
               mixture.residualAt(x).at(reducing.temperature / temperature, density / reducing.density).value;
    }

    /// Of a liquid, derivatives by ln rho or ln T are sums of terms many times as great as 1.
    void expectNear(double found, double expected, double tolerance) const {
        EXPECT_NEAR(found, expected, tolerance * (1 + densityOf(amounts) + std::abs(expected)));
    }

    const Mixture mixture = mixtureOf(GetParam());
    double temperature = 0;
    fluids::PerComponent amounts{};

  private:
    std::mt19937_64 random_{11};
};

/// ln(f_i/(R T)) = ln rho_i + d(n alphar)/dn_i at constant temperature and volume.
TEST_P(Fugacities, AreDerivativesOfTheHelmholtzEnergy) {
    for (int k = 0; k < states; ++k) {
        shuffle();
        const FugacityState state = at(temperature, amounts);
        for (std::size_t i = 0; i < mixture.size(); ++i) {
            const auto along = [&](double part) {
                fluids::PerComponent rho = amounts;
                rho[i] *= 1 + part;
                return residualEnergy(rho);
            };
            const double slope = slopeOf(along, 0.02) / amounts[i];
            expectNear(state.potential[i], std::log(amounts[i]) + slope, 1e-9);
        }
    }
}

/// Each derivative that the two-phase solver uses, by the amount of each component and by ln T.
TEST_P(Fugacities, DerivativesAgreeWithDifferences) {
    struct Function {
        const char* name;
        double (*value)(const FugacityState&);
        double (*byAmount)(const FugacityState&, std::size_t);
        double (*byHeat)(const FugacityState&);
    };
    // H = rho h/(R T) and S = rho s/R; H T has the derivative by ln T that stands divided by T.
    const std::vector<Function> functions{
        {"pressure", [](const FugacityState& s) { return s.pressure; },
         [](const FugacityState& s, std::size_t j) { return s.pressureByAmount[j]; },
         [](const FugacityState& s) { return s.pressureByHeat; }},
        {"enthalpy", [](const FugacityState& s) { return s.density * s.enthalpy; },
         [](const FugacityState& s, std::size_t j) { return s.enthalpyByAmount[j]; },
         [](const FugacityState& s) { return s.enthalpyByHeat - s.density * s.enthalpy; }},
        {"entropy", [](const FugacityState& s) { return s.density * s.entropy; },
         [](const FugacityState& s, std::size_t j) { return s.entropyByAmount[j]; },
         [](const FugacityState& s) { return s.entropyByHeat; }},
    };
    constexpr double step = 4e-3;
    for (int k = 0; k < states; ++k) {
        shuffle();
        const FugacityState state = at(temperature, amounts);
        const auto byHeat = [&](auto value) {
            return slopeOf([&](double part) { return value(at(temperature * std::exp(part), amounts)); },
                           step);
        };
        const auto byAmount = [&](auto value, std::size_t j) {
            return slopeOf(
                       [&](double part) {
                           fluids::PerComponent rho = amounts;
                           rho[j] *= 1 + part;
                           return value(at(temperature, rho));
                       },
                       step) /
                   amounts[j];
        };
        for (const Function& f : functions) {
            SCOPED_TRACE(f.name);
            expectNear(f.byHeat(state), byHeat(f.value), 1e-8);
            for (std::size_t j = 0; j < mixture.size(); ++j)
                expectNear(f.byAmount(state, j) * amounts[j], byAmount(f.value, j) * amounts[j], 1e-8);
        }
        for (std::size_t i = 0; i < mixture.size(); ++i) {
            const auto potential = [i](const FugacityState& s) { return s.potential[i]; };
            expectNear(state.potentialByHeat[i], byHeat(potential), 1e-8);
            for (std::size_t j = 0; j < mixture.size(); ++j) {
                expectNear(state.potentialByAmount[i][j] * amounts[j], byAmount(potential, j) * amounts[j],
                           1e-8);
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Mixtures, Fugacities,
                         testing::Values(refrigerant("R513A").files, refrigerant("R455A").files,
                                         refrigerant("R448A").files, allFiles),
                         [](const auto& instance) { return "Of" + std::to_string(instance.param.size()); });

Answer setUpOf(const std::vector<std::string>& files, const std::vector<double>& mass) {
    return setUp(Refrigerant{"", files, mass});
}

/// States in every region at which two set-ups are compared.
std::vector<Properties> sampleStates() {
    std::vector<Properties> found;
    for (const double t : {240.0, 300.0}) {
        const Properties dew = saturationAtT(t, 2);
        found.push_back(dew);
        found.push_back(saturationAtT(t, 1));
        const double h = atTP(t, dew.p).h;
        for (const double less : {-2000.0, 4000.0, 12000.0, 22000.0}) found.push_back(atPH(dew.p, h - less));
        found.push_back(atPS(dew.p, found.back().s));
        found.push_back(atTS(t, found[found.size() - 3].s));
    }
    return found;
}

/// `place` tells which component of `one` stands at a place of `other`.
void expectAlike(const std::vector<Properties>& one, const std::vector<Properties>& other,
                 const std::vector<std::size_t>& place, double tolerance) {
    using P = Properties;
    ASSERT_EQ(one.size(), other.size());
    for (std::size_t k = 0; k < one.size(); ++k) {
        SCOPED_TRACE(k);
        ASSERT_EQ(one[k].answer.code, 0) << one[k].answer.sentence();
        ASSERT_EQ(other[k].answer.code, 0) << other[k].answer.sentence();
        for (double P::* const part : {&P::t, &P::p, &P::Dl, &P::Dv, &P::h, &P::s, &P::w})
            EXPECT_LT(deviation(other[k].*part, one[k].*part), tolerance);
        EXPECT_NEAR(other[k].q, one[k].q, tolerance);
        for (std::size_t i = 0; i < place.size(); ++i) {
            EXPECT_NEAR(other[k].x[i], one[k].x[place[i]], tolerance);
            EXPECT_NEAR(other[k].y[i], one[k].y[place[i]], tolerance);
        }
    }
}

/// The parameters beta of a pair belong to its order.
TEST(Mixtures, OrderOfTheComponentsDoesNotMatter) {
    for (const char* name : {"R448A", "R455A", "R407C"}) {
        SCOPED_TRACE(name);
        Refrigerant blend = refrigerant(name);
        ASSERT_EQ(setUp(blend).code, 0);
        const std::vector<Properties> told = sampleStates();
        std::reverse(blend.files.begin(), blend.files.end());
        std::reverse(blend.massFractions.begin(), blend.massFractions.end());
        ASSERT_EQ(setUp(blend).code, 0);
        std::vector<std::size_t> place(blend.files.size());
        std::iota(place.rbegin(), place.rend(), 0U);
        expectAlike(told, sampleStates(), place, 1e-10);
    }
}

TEST(Mixtures, OfOneComponentAreThePureFluid) {
    ASSERT_EQ(setUp(refrigerant("R32")).code, 0);
    const std::vector<Properties> told = sampleStates();
    for (std::size_t place = 0; place < 3; ++place) {
        std::vector<std::string> files{"R125.FLD", "R134A.FLD"};
        files.insert(files.begin() + static_cast<std::ptrdiff_t>(place), "R32.FLD");
        std::vector<double> mass(3, 0.0);
        mass[place] = 1;
        const Answer answer = setUpOf(files, mass);
        ASSERT_EQ(answer.code, 0) << answer.sentence();
        const std::vector<Properties> found = sampleStates();
        for (std::size_t k = 0; k < found.size(); ++k) EXPECT_EQ(found[k].x[place], 1);
        std::vector<std::size_t> places(3, 1);
        places[place] = 0;
        expectAlike(told, found, places, 1e-13);
    }
}

/// A fluid that is named twice is one fluid, whatever its split; one of no amount is none. Twenty names are
/// the most.
TEST(Mixtures, TwentyComponentsWithRepeats) {
    const Refrigerant& blend = refrigerant("R407C");
    ASSERT_EQ(setUp(blend).code, 0);
    const std::vector<Properties> told = sampleStates();
    std::vector<std::string> files = blend.files;
    std::vector<double> mass = blend.massFractions;
    for (std::size_t i = 0; i < 3; ++i) {
        files.push_back(files[i]);
        mass.push_back(mass[i] * (0.2 + 0.3 * static_cast<double>(i)));
        mass[i] -= mass.back();
    }
    while (files.size() < 20) {
        files.push_back(allFiles[files.size() % allFiles.size()]);
        mass.push_back(0);
    }
    ASSERT_EQ(setUpOf(files, mass).sentence(), "");
    std::vector<Properties> found = sampleStates();
    for (Properties& state : found) {
        for (Fractions* fractions : {&state.x, &state.y}) {
            for (std::size_t i = 0; i < 3; ++i) (*fractions)[i] += (*fractions)[i + 3];
            EXPECT_EQ((*fractions)[19], 0);
        }
    }
    expectAlike(told, found, {0, 1, 2}, 1e-9);
}

TEST(Mixtures, MolesAndMasses) {
    // R410A, 50 % by mass each: x = (1/52.024)/(1/52.024 + 1/120.0214) = 120.0214/172.0454, and the molar
    // mass 2/(1/52.024 + 1/120.0214).
    ASSERT_EQ(setUp(refrigerant("R410A")).code, 0);
    EXPECT_NEAR(fractionsInUse()[0], 120.0214 / 172.0454, 1e-15);
    EXPECT_NEAR(fractionsInUse()[1], 52.024 / 172.0454, 1e-15);
    EXPECT_EQ(fractionsInUse()[2], 0);
    const double molarMass = 2 * 52.024 * 120.0214 / 172.0454;
    EXPECT_NEAR(molesOf({0.5, 0.5}).molarMass, molarMass, 1e-12);
    EXPECT_NEAR(molesOf({3, 3}).molarMass, molarMass, 1e-12);
    double told = 0;
    WMOLdll(fractionsInUse().data(), &told);
    EXPECT_NEAR(told, molarMass, 1e-12);
    for (const std::vector<double>& wrong :
         {std::vector<double>{0, 0}, {-0.5, 1.5}, {std::numeric_limits<double>::quiet_NaN(), 1}}) {
        const Moles none = molesOf(wrong);
        EXPECT_EQ(none.molarMass, undefined);
        EXPECT_EQ(none.fractions[0], undefined);
    }
}

/// Several compositions of one set-up, one after the other and again, and other set-ups between.
TEST(Mixtures, EachCompositionKeepsItsOwnAnswers) {
    const std::vector<std::vector<double>> compositions{{0.5, 0.5}, {0.9, 0.1}, {0.2, 0.8}, {0, 1},
                                                        {0.7, 0.3}, {0.1, 0.9}, {1, 0}};
    const Refrigerant blend{"", {"R32.FLD", "R134A.FLD"}, {0.5, 0.5}};
    ASSERT_EQ(setUp(blend).code, 0);
    const auto pressure = [](const std::vector<double>& mass) {
        useFractions(molesOf(mass).fractions);
        const Properties line = saturationAtT(280, 2);
        // Two calls in a row, of which the second finds everything there.
        EXPECT_EQ(atTP(280, line.p).D, line.Dv);
        return line.p;
    };
    std::vector<double> told;
    for (const auto& mass : compositions) {
        told.push_back(pressure(mass));
        for (std::size_t k = 0; k + 1 < told.size(); ++k) EXPECT_GT(deviation(told[k], told.back()), 1e-3);
    }
    for (std::size_t k = compositions.size(); k-- > 0;) EXPECT_EQ(pressure(compositions[k]), told[k]);
    ASSERT_EQ(setUp(refrigerant("R134a")).code, 0);
    const double pure = saturationAtT(280, 2).p;
    ASSERT_EQ(setUp(refrigerant("R404A")).code, 0);
    ASSERT_EQ(setUp(blend).code, 0);
    EXPECT_EQ(pressure(compositions[1]), told[1]);
    ASSERT_EQ(setUp(refrigerant("R134a")).code, 0);
    EXPECT_EQ(saturationAtT(280, 2).p, pure);
}

/// With a zero of each component's own, a mixture of ideal gases has the mole-weighted enthalpy of its
/// components and, beyond that, the entropy of mixing -R sum x ln x; the gas constants differ by 1e-6.
TEST(Mixtures, ReferenceStateOfTheComponents) {
    const Refrigerant& blend = refrigerant("R407C");
    constexpr double t = 350;
    constexpr double p = 1e-3;  // kPa
    for (const char* reference : {"IIR", "NBP", "ASH"}) {
        SCOPED_TRACE(reference);
        ASSERT_EQ(setUp(blend, reference).code, 0);
        const Fractions z = fractionsInUse();
        double h = 0;
        double s = 0;
        for (std::size_t i = 0; i < 3; ++i) {
            ASSERT_EQ(setUp(Refrigerant{"", {blend.files[i]}, {1}}, reference).code, 0);
            const Properties alone = atTP(t, p);
            h += z[i] * alone.h;
            s += z[i] * (alone.s - 8.314462618 * std::log(z[i]));
        }
        ASSERT_EQ(setUp(blend, reference).code, 0);
        ASSERT_EQ(setReference(reference, 1).code, 0);
        EXPECT_NEAR(atTP(t, p).h, h, 1e-5 * 8.3 * t);
        EXPECT_NEAR(atTP(t, p).s, s, 2e-4);
        // Set up with it, without another word, comes to the same.
        const double told = atTP(t, p).h;
        ASSERT_EQ(setUp("Fluids\\R32.FLD|Fluids\\R125.FLD|Fluids\\R134A.FLD", 3, reference).code, 0);
        useFractions(z);
        EXPECT_EQ(atTP(t, p).h, told);
    }
}

/// A reference state moves the zero of enthalpy and entropy and nothing else.
TEST(Mixtures, ReferenceStatesShiftHeatsAlone) {
    ASSERT_EQ(setUp(refrigerant("R454C"), "IIR").code, 0);
    const Properties one = atTP(300, 600);
    const Properties wet = atPH(600, one.h - 12000);
    ASSERT_EQ(setReference("ASH", 2).code, 0);
    const Properties other = atTP(300, 600);
    EXPECT_EQ(other.D, one.D);
    EXPECT_EQ(other.cp, one.cp);
    EXPECT_LT(deviation(one.h - other.h, one.e - other.e), 1e-12);
    const Properties same = atPH(600, other.h - 12000);
    EXPECT_LT(deviation(same.t, wet.t), 1e-13);
    EXPECT_NEAR(wet.s - same.s, one.s - other.s, 1e-10);
    EXPECT_NEAR(atTS(same.t, same.s).q, wet.q, 1e-10);
}

}  // namespace
}  // namespace marvello::test

// The files that the library ships.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <numeric>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "fluids/FluidFile.h"
#include "fluids/JsonField.h"
#include "fluids/MixtureFile.h"
#include "fluids/PropertyError.h"
#include "tests/fluids/FluidCalls.h"

namespace marvello::test {
namespace {

namespace fs = std::filesystem;
using fluids::MixtureModel;
using fluids::PairInteraction;
using fluids::PureFluid;
using fluids::readFluidFile;
using fluids::readFluidText;
using fluids::readMixtureFile;

const fs::path shipped = fs::path(MARVELLO_SOURCE_FOLDER) / "fluids" / "files";
const fs::path mixtureFile = shipped / "hmx.bnc";

nlohmann::json jsonOf(const fs::path& path) { return nlohmann::json::parse(std::ifstream(path)); }

std::map<std::string, PureFluid> shippedFluids() {
    std::map<std::string, PureFluid> found;
    for (const auto& entry : fs::directory_iterator(shipped)) {
        if (entry.path().extension() != ".FLD") continue;
        PureFluid fluid = readFluidFile(readFluidText(entry.path()));
        found.emplace(fluid.name, std::move(fluid));
    }
    return found;
}

PairInteraction pairOf(const std::string& one, const std::string& two) {
    return readMixtureFile(readFluidText(mixtureFile), {one, two}).pairs.front();
}

/// g/mol by the standard atomic weights of IUPAC (abridged, 2021), of a formula such as CF3CF=CH2.
double molarMassOf(const std::string& formula) {
    const std::map<std::string, double> weights{{"H", 1.008},  {"C", 12.011}, {"N", 14.007},
                                                {"O", 15.999}, {"F", 18.998}, {"Cl", 35.45}};
    const std::regex atom("(Cl|[HCNOF])([0-9]*)");
    double sum = 0;
    for (std::sregex_iterator found(formula.begin(), formula.end(), atom), end; found != end; ++found)
        sum += weights.at((*found)[1]) * ((*found)[2].length() > 0 ? std::stoi((*found)[2]) : 1);
    return sum;
}

/// The last digit of a CAS number is the sum of the others, each times its place from the right, modulo 10.
bool hasItsCheckDigit(const std::string& cas) {
    int sum = 0;
    int place = 0;
    for (auto digit = cas.rbegin() + 1; digit != cas.rend(); ++digit) {
        if (*digit != '-') sum += ++place * (*digit - '0');
    }
    return sum % 10 == cas.back() - '0';
}

TEST(ShippedFiles, DescribeTheirFluids) {
    for (const Refrigerant& known : refrigerants()) {
        if (known.isBlend()) continue;
        const fs::path file = shipped / known.files.front();
        SCOPED_TRACE(file);
        const PureFluid fluid = readFluidFile(readFluidText(file));
        const auto told = jsonOf(file);
        EXPECT_LT(deviation(fluid.molarMass, molarMassOf(told.at("formula"))), 2e-4);
        EXPECT_TRUE(hasItsCheckDigit(told.at("cas")));
        EXPECT_GE(told.at("literature").size(), 2U);
        // What a hot discharge reaches.
        EXPECT_GE(fluid.temperatureExtrapolated, 450);
        EXPECT_GE(fluid.temperatureExtrapolated, fluid.temperatureMax);
        // The compressibility factor at the critical point of these families, and the reducing point next to
        // it.
        const double compressibility = fluid.critical.pressure / (fluid.critical.density * fluid.gasConstant *
                                                                  fluid.critical.temperature);
        EXPECT_GT(compressibility, 0.24);
        EXPECT_LT(compressibility, 0.285);
        EXPECT_LT(deviation(fluid.reducing.temperature, fluid.critical.temperature), 1e-3);
        EXPECT_LT(deviation(fluid.reducing.density, fluid.critical.density), 1e-2);
    }
}

TEST(ShippedFiles, EveryPairOfTheFluidsIsThere) {
    std::vector<std::string> names;
    for (const auto& [name, fluid] : shippedFluids()) names.push_back(name);
    ASSERT_EQ(names.size(), 13U);
    const MixtureModel model = readMixtureFile(readFluidText(mixtureFile), names);
    EXPECT_DOUBLE_EQ(model.gasConstant, 1.380649e-23 * 6.02214076e23);
    ASSERT_EQ(model.pairs.size(), 78U);
    std::size_t next = 0;
    for (std::size_t i = 0; i < names.size(); ++i) {
        for (std::size_t j = i + 1; j < names.size(); ++j, ++next) {
            SCOPED_TRACE(names[i] + ' ' + names[j]);
            const PairInteraction& pair = model.pairs[next];
            EXPECT_EQ(pair.first, i);
            EXPECT_EQ(pair.second, j);
            EXPECT_EQ(pair.factor == 0, pair.departure.empty());
            // Far from 1 a pair would be a slip: the weakest are ammonia with propane and R143a with
            // R1234ze(E).
            EXPECT_NEAR(pair.gammaT, 1, 0.25);
            EXPECT_NEAR(pair.betaT, 1, 0.05);
        }
    }
    EXPECT_EQ(jsonOf(mixtureFile).at("pairs").size(), 78U);
}

TEST(ShippedFiles, APairMayBeAskedForInEitherOrder) {
    const PairInteraction one = pairOf("R32", "R1234yf");
    const PairInteraction other = pairOf("r1234YF", "r32");
    EXPECT_NE(one.betaT, 1);
    EXPECT_DOUBLE_EQ(one.betaT * other.betaT, 1);
    EXPECT_DOUBLE_EQ(one.betaV * other.betaV, 1);
    EXPECT_EQ(one.gammaT, other.gammaT);
    EXPECT_EQ(one.gammaV, other.gammaV);
    EXPECT_EQ(one.factor, other.factor);
    EXPECT_EQ(one.departure.size(), other.departure.size());
    EXPECT_TRUE(readMixtureFile(readFluidText(mixtureFile), {"R32"}).pairs.empty());
    EXPECT_THROW(readMixtureFile(readFluidText(mixtureFile), {"R32", "R134a", "R12"}), fluids::PropertyError);
    for (const fs::path& none : {shipped / "nosuch.bnc", shipped})
        EXPECT_THROW(readMixtureFile(readFluidText(none), {"R32", "R125"}), fluids::PropertyError);
}

/// Lemmon and Jacobsen (2004) print xi and zeta of Tr = sum x_i T_i + x_i x_j xi and 1/rho_r = sum x_i v_i +
/// x_i x_j zeta. With beta = 1 a pair adds 2 x_i x_j gammaT sqrt(T_i T_j) to sum x_i^2 T_i, and since x_i is
/// x_i^2
/// + x_i x_j, gammaT = (T_i + T_j + xi)/(2 sqrt(T_i T_j)); likewise of the volumes with (v_i^(1/3) +
/// v_j^(1/3))^3/8.
TEST(ShippedFiles, PairsPublishedAsExcesses) {
    struct Published {
        const char* first;
        const char* second;
        double xi;      ///< K
        double zeta;    ///< m3/mol
        double factor;  ///< of the departure function
    };
    const std::map<std::string, PureFluid> known = shippedFluids();
    for (const Published& pair :
         {Published{"R32", "R125", 28.95, -6.008e-6, 1}, Published{"R32", "R134a", 7.909, -2.039e-6, 1},
          Published{"R125", "R134a", -0.4326, -3.453e-7, 1},
          Published{"R125", "R143a", 5.551, -4.452e-7, 1.1697},
          Published{"R134a", "R143a", 2.324, 6.182e-7, 0.5557},
          Published{"R134a", "R152a", 4.202, 4.223e-6, 2}}) {
        SCOPED_TRACE(testing::Message() << pair.first << ' ' << pair.second);
        const PairInteraction found = pairOf(pair.first, pair.second);
        const auto& one = known.at(pair.first).reducing;
        const auto& two = known.at(pair.second).reducing;
        const double v1 = 1 / one.density;  // dm3/mol
        const double v2 = 1 / two.density;
        const double edge = std::cbrt(v1) + std::cbrt(v2);
        EXPECT_EQ(found.betaT, 1);
        EXPECT_EQ(found.betaV, 1);
        EXPECT_NEAR(found.gammaT,
                    (one.temperature + two.temperature + pair.xi) /
                        (2 * std::sqrt(one.temperature * two.temperature)),
                    1e-13);
        EXPECT_NEAR(found.gammaV, 4 * (v1 + v2 + 1000 * pair.zeta) / (edge * edge * edge), 1e-13);
        EXPECT_EQ(found.factor, pair.factor);
        EXPECT_FALSE(found.departure.empty());
    }
}

/// Every figure of the mixture file has a source, and no blend rests on a pair without one.
TEST(ShippedFiles, PairsHaveASource) {
    const auto told = jsonOf(mixtureFile);
    const auto& literature = told.at("literature");
    for (const auto& [name, departure] : told.at("departures").items())
        EXPECT_TRUE(literature.contains(departure.at("literature"))) << name;
    std::set<std::set<std::string>> estimated;
    for (const auto& pair : told.at("pairs")) {
        const std::string source = pair.at("literature");
        if (source != "estimated") {
            EXPECT_TRUE(literature.contains(source)) << pair;
            continue;
        }
        estimated.insert(pair.at("fluids").get<std::set<std::string>>());
        for (const char* parameter : {"betaT", "gammaT", "betaV", "gammaV"})
            EXPECT_EQ(pair.at(parameter), 1) << pair;
    }
    int blends = 0;
    for (const Refrigerant& blend : refrigerants()) {
        if (!blend.isBlend()) continue;
        ++blends;
        SCOPED_TRACE(blend.name);
        EXPECT_NEAR(std::accumulate(blend.massFractions.begin(), blend.massFractions.end(), 0.0), 1, 1e-12);
        for (const std::string& one : blend.files) {
            for (const std::string& two : blend.files) {
                EXPECT_FALSE(estimated.contains({readFluidFile(readFluidText(shipped / one)).name,
                                                 readFluidFile(readFluidText(shipped / two)).name}))
                    << one << ' ' << two;
            }
        }
    }
    EXPECT_EQ(blends, 13);
}

}  // namespace
}  // namespace marvello::test

// The files that the library ships, and the readers of fluid and mixture files.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "fluids/FluidFile.h"
#include "fluids/MixtureFile.h"
#include "fluids/PropertyError.h"
#include "tests/fluids/FluidCalls.h"

namespace marvello::test {
namespace {

namespace fs = std::filesystem;
using fluids::MixtureModel;
using fluids::PairInteraction;
using fluids::PropertyError;
using fluids::PureFluid;
using fluids::readFluidFile;
using fluids::readMixtureFile;
using testing::HasSubstr;

const fs::path shipped = fs::path(MARVELLO_SOURCE_FOLDER) / "fluids" / "files";
const fs::path mixtureFile = shipped / "hmx.bnc";

std::string readText(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<fs::path> fluidFiles() {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(shipped)) {
        if (entry.path().extension() == ".FLD") files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::map<std::string, PureFluid> shippedFluids() {
    std::map<std::string, PureFluid> found;
    for (const fs::path& file : fluidFiles()) {
        PureFluid fluid = readFluidFile(file);
        found.emplace(fluid.name, fluid);
    }
    return found;
}

std::vector<std::string> shippedNames() {
    std::vector<std::string> names;
    for (const auto& [name, fluid] : shippedFluids()) names.push_back(name);
    return names;
}

PairInteraction pairOf(const std::string& one, const std::string& two) {
    return readMixtureFile(mixtureFile, {one, two}).pairs.front();
}

/// g/mol by the standard atomic weights of IUPAC (abridged, 2021), of a formula such as CF3CF=CH2.
double molarMassOf(const std::string& formula) {
    const std::map<std::string, double> weights{{"H", 1.008},  {"C", 12.011}, {"N", 14.007},
                                                {"O", 15.999}, {"F", 18.998}, {"Cl", 35.45}};
    double sum = 0;
    for (std::size_t i = 0; i < formula.size();) {
        if (formula[i] == '=') {
            ++i;
            continue;
        }
        const std::size_t letters = formula.compare(i, 2, "Cl") == 0 ? 2 : 1;
        const double weight = weights.at(formula.substr(i, letters));
        i += letters;
        int count = 0;
        for (; i < formula.size() && formula[i] >= '0' && formula[i] <= '9'; ++i)
            count = 10 * count + (formula[i] - '0');
        sum += weight * std::max(count, 1);
    }
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
    ASSERT_EQ(fluidFiles().size(), 13U);
    for (const fs::path& file : fluidFiles()) {
        SCOPED_TRACE(file);
        const PureFluid fluid = readFluidFile(file);
        const auto told = nlohmann::json::parse(readText(file));
        EXPECT_LT(deviation(fluid.molarMass, molarMassOf(told.at("formula"))), 2e-4);
        EXPECT_TRUE(hasItsCheckDigit(told.at("cas")));
        EXPECT_GE(told.at("literature").size(), 2U);
        // What a hot discharge reaches.
        EXPECT_GE(fluid.temperatureExtrapolated, 450);
        EXPECT_GE(fluid.temperatureExtrapolated, fluid.temperatureMax);
        // The compressibility factor at the critical point of these families, and the reducing point beside
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
    const std::vector<std::string> names = shippedNames();
    ASSERT_EQ(names.size(), 13U);
    const MixtureModel model = readMixtureFile(mixtureFile, names);
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
    EXPECT_EQ(nlohmann::json::parse(readText(mixtureFile)).at("pairs").size(), 78U);
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
    EXPECT_TRUE(readMixtureFile(mixtureFile, {"R32"}).pairs.empty());
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
    const auto told = nlohmann::json::parse(readText(mixtureFile));
    const auto& literature = told.at("literature");
    for (const auto& [name, departure] : told.at("departures").items())
        EXPECT_TRUE(literature.contains(departure.at("literature"))) << name;
    std::vector<std::array<std::string, 2>> estimated;
    for (const auto& pair : told.at("pairs")) {
        const std::string source = pair.at("literature");
        if (source != "estimated") {
            EXPECT_TRUE(literature.contains(source)) << pair;
            continue;
        }
        estimated.push_back({pair.at("fluids")[0], pair.at("fluids")[1]});
        for (const char* parameter : {"betaT", "gammaT", "betaV", "gammaV"})
            EXPECT_EQ(pair.at(parameter), 1) << pair;
    }
    for (const char* blend : {"R404A", "R407A", "R407C", "R407F", "R410A", "R507", "R448A", "R449A", "R450A",
                              "R452A", "R454C", "R455A", "R513A"}) {
        SCOPED_TRACE(blend);
        std::vector<std::string> names;
        double sum = 0;
        for (const auto& row : readFields("blends.csv", blend)) {
            names.push_back(readFluidFile(shipped / row[0]).name);
            sum += numberOf(row[1]);
        }
        ASSERT_GE(names.size(), 2U);
        EXPECT_NEAR(sum, 1, 1e-12);
        EXPECT_NO_THROW(readMixtureFile(mixtureFile, names));
        const auto isIn = [&](const std::string& name) {
            return std::find(names.begin(), names.end(), name) != names.end();
        };
        for (const auto& pair : estimated) EXPECT_FALSE(isIn(pair[0]) && isIn(pair[1])) << pair[0];
    }
}

/// A text that stands in the middle of a file, and what to put there.
struct Change {
    const char* from;
    const char* to;
    const char* complaint;
};

/// What a reader says of a shipped file with a change; empty when it takes it.
template <class Read>
std::string complaintAbout(std::string text, const Change& change, Read read) {
    const std::size_t place = text.find(change.from);
    EXPECT_NE(place, std::string::npos) << change.from;
    if (place != std::string::npos) text.replace(place, std::string(change.from).size(), change.to);
    std::string name = (fs::temp_directory_path() / "marvello-file-XXXXXX").string();
    const fs::path folder = mkdtemp(name.data());
    std::ofstream(folder / "changed.txt", std::ios::binary) << text;
    std::string complaint;
    try {
        read(folder / "changed.txt");
    } catch (const PropertyError& error) {
        complaint = error.what();
        EXPECT_EQ(error.fault(), fluids::Fault::fluidFile);
        EXPECT_THAT(complaint, HasSubstr("changed.txt: "));
    }
    fs::remove_all(folder);
    return complaint;
}

TEST(Readers, RefuseTermsThatLackSomething) {
    struct Case {
        const char* file;
        Change change;
    };
    for (const auto& [file, change] : {
             Case{"R125.FLD", {", \"m\": 7", "", "residual[16] has no m"}},
             Case{"R125.FLD", {", \"l\": 2, \"m\": 1.7", ", \"m\": 1.7", "residual[15] has no l"}},
             Case{"R125.FLD",
                  {"\"m\": 1.7", "\"m\": 1e3", "residual[15].m is 1000.0, not within 0.1 to 20.0"}},
             Case{"AMMONIA.FLD", {", \"b\": 1.244", "", "residual[18] has no b"}},
             Case{"AMMONIA.FLD", {"\"b\": 1.244", "\"b\": 0", "residual[18].b is 0, not within"}},
             Case{"AMMONIA.FLD", {"\"eta\": -2.8452", "\"eta\": 2.8452", "residual[18].eta is 2.8452"}},
             Case{"AMMONIA.FLD", {"\"eta\": 0.42776", "\"eta\": -0.42776", "residual[8].eta"}},
             Case{"CO2.FLD", {", \"D\": 275", "", "residual[39] has no D"}},
             Case{"CO2.FLD", {"\"beta\": 0.3", "\"beta\": 0.6", "residual[39].beta"}},
             Case{"CO2.FLD", {"\"a\": 3.5", "\"a\": 0.5", "residual[39].a is 0.5"}},
             Case{"CO2.FLD", {"\"n\": -0.666422765408, ", "", "residual[39] has no n"}},
             Case{"CO2.FLD",
                  {"nonanalytic", "critical",
                   "is \"critical\"; the kinds known are power, exp, gauss, double_exp, gao_b, nonanalytic"}},
             Case{"R32.FLD",
                  {"extrapolated\": 455", "extrapolated\": 400", "temperature_extrapolated below"}},
             Case{"R32.FLD", {"extrapolated\": 455", "extrapolated\": null", "extrapolated is not a number"}},
         }) {
        EXPECT_THAT(complaintAbout(readText(shipped / file), change, readFluidFile),
                    HasSubstr(change.complaint))
            << file << ' ' << change.to;
    }
    // Without the optional field the published range is all.
    double extrapolated = 0;
    const auto read = [&](const fs::path& path) {
        extrapolated = readFluidFile(path).temperatureExtrapolated;
    };
    EXPECT_EQ(
        complaintAbout(readText(shipped / "R32.FLD"), {"\"temperature_extrapolated\": 455, ", "", ""}, read),
        "");
    EXPECT_EQ(extrapolated, 435);
}

TEST(Readers, RefuseMixtureFilesThatMakeNoSense) {
    const auto read = [](const fs::path& path) { readMixtureFile(path, {"R32", "R125"}); };
    for (const Change& change : {
             Change{"\"marvello-mixture\"", "\"marvello-fluid\"", "field format is not \"marvello-mixture\""},
             Change{"\"version\": 1", "\"version\": 2", "field version"},
             Change{"8.31446261815324", "8314.46", "field gas_constant"},
             Change{"\"departures\"", "\"departure\"", "the field departures is missing"},
             Change{"\"pairs\": [", "\"pairs\": {}, \"x\": [", "field pairs is not a list"},
             Change{"{\"kind\": \"exp\", \"n\": -0.0072955, ", "{\"n\": -0.0072955, ",
                    "field departures.R32-R125.terms[0] has no kind"},
             Change{"\"terms\": [", "\"terms\": [], \"x\": [", "terms is empty"},
             Change{"\"departure\": \"R32-R125\"", "\"departure\": \"R32\"",
                    "departure is \"R32\", which is none of the departures"},
             Change{", \"departure\": \"R32-R125\"", "", "has no departure"},
             Change{"\"factor\": 1, \"departure\": \"R32-R125\"", "\"departure\": \"R32-R125\"",
                    "has no factor"},
             Change{"\"gammaT\": 1.0420900819859578, ", "", "has no gammaT"},
             Change{"\"gammaT\": 1.0420900819859578", "\"gammaT\": 0", "gammaT is 0, not within"},
             Change{"[\"R32\", \"R125\"]", "[\"R32\", \"R32\"]", "fluids is not a pair of two fluids"},
             Change{"[\"R32\", \"R125\"]", "[\"R32\"]", "fluids is not a pair of two fluids"},
             Change{"[\"R32\", \"R125\"]", "\"R32\"", "fluids is not a list"},
             Change{"[\"R143a\", \"R32\"]", "[\"R125\", \"r32\"]",
                    "gives the pair of R125 and r32 a second time"},
             Change{"[\"R32\", \"R125\"]", "[\"R32\", \"R999\"]",
                    "changed.txt: there is no pair of R32 and R125."},
             Change{"\"literature\"", "literature", "line 5 is ill-formed"},
         }) {
        EXPECT_THAT(complaintAbout(readText(mixtureFile), change, read), HasSubstr(change.complaint))
            << change.to;
    }
    EXPECT_THAT(complaintAbout(readText(mixtureFile), {"", "", ""},
                               [](const fs::path& path) { readMixtureFile(path, {"R32", "R134a", "R12"}); }),
                HasSubstr("there is no pair of R32 and R12."));
    EXPECT_THROW(readMixtureFile(shipped / "nosuch.bnc", {"R32", "R125"}), PropertyError);
    EXPECT_THROW(readMixtureFile(shipped, {"R32", "R125"}), PropertyError);
}

TEST(Readers, AMixtureFileCutAnywhereIsRefused) {
    const std::string whole = readText(mixtureFile);
    for (std::size_t length = 0; length < whole.find_last_of('}'); length += 97) {
        const std::string text = whole.substr(0, length);
        EXPECT_THAT(
            complaintAbout(text, {"", "", ""}, [](const fs::path& path) { readMixtureFile(path, {}); }),
            HasSubstr("is ill-formed"))
            << length;
    }
}

}  // namespace
}  // namespace marvello::test

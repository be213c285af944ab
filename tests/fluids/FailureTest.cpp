// Bad calls and bad files: one sentence, undefined numbers, and nothing left of the set-up before.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "data/FileText.h"
#include "fluids/Refprop.h"
#include "tests/fluids/FluidCalls.h"
#include "tests/support/TemporaryFolder.h"

namespace marvello::test {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;

/// Each test runs in an empty folder of its own.
class Failures : public testing::Test {
  protected:
    Failures() : before_(fs::current_path()) { fs::current_path(folder_); }
    ~Failures() override { fs::current_path(before_); }
    Failures(const Failures&) = delete;
    Failures& operator=(const Failures&) = delete;

    static std::string shipped(const std::string& file = "R134A.FLD") {
        return *fileText(std::string(MARVELLO_SOURCE_FOLDER) + "/fluids/files/" + file);
    }
    static void write(const fs::path& path, const std::string& text) {
        if (path.has_parent_path()) fs::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << text;
    }
    /// Sets up with another text in the place of a shipped file: a fluid, or a blend where it is the pairs'.
    static Answer setUpWith(const std::string& file, const std::string& text) {
        write("Fluids/" + file, text);
        const Answer answer =
            file == "hmx.bnc" ? setUp("Fluids\\R32.FLD|Fluids\\R125.FLD", 2) : setUp("Fluids\\" + file);
        fs::remove_all("Fluids");
        return answer;
    }
    /// The text of a shipped file with a part of it changed.
    static std::string changed(const std::string& file, const std::string& from, const std::string& to) {
        std::string text = shipped(file);
        const std::size_t place = text.find(from);
        EXPECT_NE(place, std::string::npos) << from;
        return place == std::string::npos ? text : text.replace(place, from.size(), to);
    }
    static void expectUnset() {
        const Properties found = saturationAtT(273.15);
        EXPECT_EQ(found.answer.code, 1);
        EXPECT_EQ(found.p, undefined);
    }

  private:
    fs::path before_;
    const TemporaryFolder folder_{"marvello-fluids"};
};

TEST_F(Failures, NothingAnswersBeforeASetUp) {
    EXPECT_NE(setUp("", 0).code, 0);
    for (const Properties& found : {saturationAtT(300), saturationAtP(500), atTP(300, 100), atTS(300, 180),
                                    atPH(100, 1e4), atPS(100, 180)}) {
        EXPECT_EQ(found.answer.code, 1);
        EXPECT_EQ(found.answer.sentence(), "No fluid has been set up.");
        EXPECT_EQ(found.Dl, undefined);
        EXPECT_EQ(found.Dv, undefined);
        for (const double fraction : found.y) EXPECT_EQ(fraction, undefined);
    }
    const Fractions mass{1.0};
    Fractions mole{};
    double molarMass = 0;
    XMOLEdll(mass.data(), mole.data(), &molarMass);
    EXPECT_EQ(molarMass, undefined);
    EXPECT_EQ(mole[19], undefined);
    WMOLdll(mass.data(), &molarMass);
    EXPECT_EQ(molarMass, undefined);
    EXPECT_EQ(setReference("DEF").code, 1);
}

TEST_F(Failures, SetUpArguments) {
    EXPECT_THAT(setUp("Fluids\\R134A.FLD", 0).sentence(), HasSubstr("number of components is 0"));
    EXPECT_NE(setUp("Fluids\\R134A.FLD", -3).code, 0);
    EXPECT_NE(setUp("Fluids\\R134A.FLD", 21).code, 0);
    EXPECT_THAT(setUp("Fluids\\R134A.FLD", 2).sentence(), HasSubstr("File name 2 of 2 is missing"));
    EXPECT_EQ(setUp("Fluids\\R134A.FLD|Fluids\\PROPANE.FLD|", 2).sentence(), "");
    EXPECT_THAT(setUp("Fluids\\R134A.FLD", 1, "QQQ").sentence(), HasSubstr("QQQ"));
    EXPECT_THAT(setUp("Fluids\\NOSUCH.FLD").sentence(), HasSubstr("no fluid file \"Fluids\\NOSUCH.FLD\""));
    EXPECT_NE(setUp("Fluids").code, 0);
    expectUnset();
}

TEST_F(Failures, PathsFromOtherSystems) {
    for (const char* name :
         {"Fluids\\R134A.FLD", "Fluids/R134A.FLD", "fluids\\r134a.fld", ".\\FLUIDS/R134a.Fld"}) {
        EXPECT_EQ(setUp(name).sentence(), "") << name;
    }
    EXPECT_EQ(setUp(std::string(MARVELLO_APP_FOLDER) + "/Fluids/PROPANE.FLD").sentence(), "");
    // The current folder comes before the library's.
    write("fluids/R134A.fld", "{}");
    EXPECT_THAT(setUp("Fluids\\R134A.FLD").sentence(), HasSubstr("the field format is missing"));
}

TEST_F(Failures, ASetUpThatFailsLeavesNothing) {
    ASSERT_EQ(setUp("Fluids\\R134A.FLD").code, 0);
    const double pressure = saturationAtT(273.15).p;
    ASSERT_EQ(setUp("Fluids\\PROPANE.FLD", 1, "NBP").code, 0);
    EXPECT_GT(saturationAtT(273.15).p, 1.5 * pressure);
    ASSERT_EQ(setUp("Fluids\\R134A.FLD").code, 0);
    EXPECT_EQ(saturationAtT(273.15).p, pressure);
    EXPECT_NE(setUp("Fluids\\NOSUCH.FLD").code, 0);
    expectUnset();
}

TEST_F(Failures, AFileCutAnywhereIsRefused) {
    for (const auto& [file, step] : {std::pair{"R134A.FLD", 23U}, {"hmx.bnc", 97U}}) {
        const std::string whole = shipped(file);
        ASSERT_GT(whole.size(), 2000U);
        for (std::size_t length = 0; length < whole.find_last_of('}'); length += step) {
            const Answer answer = setUpWith(file, whole.substr(0, length));
            ASSERT_EQ(answer.code, 101) << length;
            ASSERT_THAT(answer.sentence(), AllOf(HasSubstr(file), HasSubstr("is ill-formed"))) << length;
        }
    }
    expectUnset();
}

TEST_F(Failures, FieldsThatMakeNoSense) {
    struct Case {
        const char* from;
        const char* to;
        const char* complaint;
    };
    const std::map<std::string, std::vector<Case>> files{
        {"R134A.FLD",
         {{"\"marvello-fluid\"", "\"other\"", "field format"},
          {"\"version\": 1", "\"version\": 2", "field version"},
          {"\"molar_mass\": 102.032", "\"molar_mass\": \"102\"", "molar_mass is not a number"},
          {"\"molar_mass\": 102.032", "\"molar_mass\": -1", "molar_mass"},
          {"\"molar_mass\"", "\"mass\"", "molar_mass is missing"},
          {"8.314471", "8314.471", "gas_constant"},
          {"\"temperature\": 374.21", "\"temperature\": 474.21", "critical"},
          {"\"pressure\": 4059.28", "\"pressure\": 405.928", "critical"},
          {"\"temperature_max\": 455", "\"temperature_max\": 300", "limits"},
          {"\"temperature_max\": 455", "\"temperature_max\": 1e999", "too large"},
          {"\"reference_state\": \"IIR\"", "\"reference_state\": \"\"", "reference_state"},
          {"\"ideal\": {", "\"ideal\": [], \"x\": {", "ideal is not an object"},
          {"\"powers\": [", "\"powers\": 1, \"x\": [", "ideal.powers is not a list"},
          {"\"einstein\": []", "\"einstein\": [{\"n\": 1, \"theta\": -1}]", "einstein[0].theta"},
          {"\"kind\": \"exp\"", "\"kind\": \"virial\"", "residual[8].kind is \"virial\""},
          {"\"d\": 5, \"t\": 1, \"l\": 1", "\"d\": 5, \"t\": 1", "residual[8] has no l"},
          {"\"t\": 50", "\"t\": 5000", "residual[20].t"},
          {"\"n\": 0.498223", "\"n\": null", "residual[1].n"},
          {"\"n\": 0.498223", "\"n\": 49.8223", "no critical point"},
          {"\"d\": 4, \"t\": 1, \"l\": 2", "\"d\": -2, \"t\": 1, \"l\": 2", "that does not rise with the"},
          {"\"critical\"", "critical", "line 16 is ill-formed"}}},
        {"R125.FLD",
         {{", \"m\": 7", "", "residual[16] has no m"},
          {", \"l\": 2, \"m\": 1.7", ", \"m\": 1.7", "residual[15] has no l"},
          {"\"m\": 1.7", "\"m\": 1e3", "residual[15].m is 1000.0, not within 0.1 to 20.0"}}},
        {"AMMONIA.FLD",
         {{", \"b\": 1.244", "", "residual[18] has no b"},
          {"\"b\": 1.244", "\"b\": 0", "residual[18].b is 0, not within"},
          {"\"eta\": -2.8452", "\"eta\": 2.8452", "residual[18].eta is 2.8452"},
          {"\"eta\": 0.42776", "\"eta\": -0.42776", "residual[8].eta"}}},
        {"CO2.FLD",
         {{", \"D\": 275", "", "residual[39] has no D"},
          {"\"beta\": 0.3", "\"beta\": 0.6", "residual[39].beta"},
          {"\"a\": 3.5", "\"a\": 0.5", "residual[39].a is 0.5"},
          {"\"n\": -0.666422765408, ", "", "residual[39] has no n"},
          {"nonanalytic", "critical",
           "is \"critical\"; the kinds known are power, exp, gauss, double_exp, gao_b, nonanalytic"}}},
        {"R32.FLD",
         {{"extrapolated\": 455", "extrapolated\": 400", "temperature_extrapolated below"},
          {"extrapolated\": 455", "extrapolated\": null", "extrapolated is not a number"}}},
        {"hmx.bnc",
         {{"\"marvello-mixture\"", "\"marvello-fluid\"", "field format is not \"marvello-mixture\""},
          {"\"version\": 1", "\"version\": 2", "field version"},
          {"8.31446261815324", "8314.46", "field gas_constant"},
          {"\"departures\"", "\"departure\"", "the field departures is missing"},
          {"\"pairs\": [", "\"pairs\": {}, \"x\": [", "field pairs is not a list"},
          {"{\"kind\": \"exp\", \"n\": -0.0072955, ", "{\"n\": -0.0072955, ",
           "field departures.R32-R125.terms[0] has no kind"},
          {"\"terms\": [", "\"terms\": [], \"x\": [", "terms is empty"},
          {"\"departure\": \"R32-R125\"", "\"departure\": \"R32\"",
           "departure is \"R32\", which is none of the departures"},
          {", \"departure\": \"R32-R125\"", "", "has no departure"},
          {"\"factor\": 1, \"departure\": \"R32-R125\"", "\"departure\": \"R32-R125\"", "has no factor"},
          {"\"gammaT\": 1.0420900819859578, ", "", "has no gammaT"},
          {"\"gammaT\": 1.0420900819859578", "\"gammaT\": 0", "gammaT is 0, not within"},
          {"[\"R32\", \"R125\"]", "[\"R32\", \"R32\"]", "fluids is not a pair of two fluids"},
          {"[\"R32\", \"R125\"]", "[\"R32\"]", "fluids is not a pair of two fluids"},
          {"[\"R32\", \"R125\"]", "\"R32\"", "fluids is not a list"},
          {"[\"R143a\", \"R32\"]", "[\"R125\", \"r32\"]", "gives the pair of R125 and r32 a second time"},
          {"[\"R32\", \"R125\"]", "[\"R32\", \"R999\"]", "there is no pair of R32 and R125."},
          {"\"literature\"", "literature", "line 5 is ill-formed"}}},
    };
    for (const auto& [file, cases] : files) {
        for (const Case& wrong : cases) {
            const Answer answer = setUpWith(file, changed(file, wrong.from, wrong.to));
            EXPECT_EQ(answer.code, 101) << wrong.to;
            EXPECT_THAT(answer.sentence(), HasSubstr(wrong.complaint)) << file << ' ' << wrong.to;
        }
    }
    // Without the optional field the published range is all.
    const std::string published = changed("R32.FLD", "\"temperature_extrapolated\": 455, ", "");
    EXPECT_EQ(setUpWith("R32.FLD", published).sentence(), "");
    EXPECT_EQ(atTP(435, 100).answer.code, 0);
    EXPECT_EQ(atTP(435.1, 100).answer.code, 3);
}

/// Whatever stands in a file, a set-up ends, and what it accepts answers with numbers or an error.
TEST_F(Failures, ChangedBytesNeverBreakTheLibrary) {
    std::mt19937 random(42);
    const std::string letters = "0123456789.-eE,:{}[]\"nldt \n\xff";
    for (const auto& [file, count] : {std::pair{"R134A.FLD", 1500}, {"CO2.FLD", 300}, {"hmx.bnc", 300}}) {
        const std::string whole = shipped(file);
        int accepted = 0;
        for (int i = 0; i < count; ++i) {
            std::string text = whole;
            for (int change = 0; change <= i % 3; ++change)
                text[random() % text.size()] = letters[random() % letters.size()];
            const Answer answer = setUpWith(file, text);
            ASSERT_TRUE(answer.code == 0 || answer.code == 101 || answer.code == 102)
                << answer.code << ' ' << answer.sentence();
            if (answer.code != 0) continue;
            ++accepted;
            for (const Properties& found :
                 {saturationAtT(280), atTP(320, 500), atPH(800, 4e4), atPS(300, 150), atTS(350, 170)}) {
                ASSERT_TRUE(std::isfinite(found.D) && std::isfinite(found.Dl) && std::isfinite(found.h));
            }
        }
        EXPECT_GT(accepted, 10) << file;
    }
}

TEST_F(Failures, StatesOutOfRange) {
    ASSERT_EQ(setUp("Fluids\\R134A.FLD").code, 0);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinite = std::numeric_limits<double>::infinity();
    const auto expectRefused = [](const Properties& found, std::int32_t code) {
        EXPECT_EQ(found.answer.code, code) << found.answer.sentence();
        EXPECT_GT(found.answer.sentence().size(), 10U);
        EXPECT_EQ(found.Dl, undefined);
        EXPECT_EQ(found.x[0], undefined);
    };
    for (const Properties& found :
         {saturationAtT(100), saturationAtT(374.3), saturationAtP(4060), saturationAtP(1e-3),
          saturationAtP(-1), atTP(160, 100), atTP(460, 100), atTP(300, 0), atTP(300, -5), atTP(300, 70001),
          atPH(100, 1e6), atPH(100, -1e6), atPH(6000, 1e6), atPH(100, undefined), atPS(100, 1000),
          atPS(100, -1000), atTS(300, 1e4), atTS(300, -1e4), atTS(400, 60)})
        expectRefused(found, 3);
    expectRefused(saturationAtT(300, 0), 2);
    expectRefused(saturationAtP(300, 3), 2);
    for (const double odd : {nan, infinite, -infinite}) {
        for (const Properties& found : {saturationAtT(odd), saturationAtP(odd), atTP(300, odd),
                                        atTP(odd, 300), atPH(100, odd), atPS(odd, 180), atTS(odd, 180)})
            expectRefused(found, 2);
    }
}

/// Each call of a blend that fails leaves every number it was asked for undefined.
void expectNoNumber(double t, double p, double h, double s, std::int32_t code) {
    using Output = double Properties::*;
    const auto expectNone = [code](const Properties& found, const std::vector<Output>& outputs) {
        EXPECT_EQ(found.answer.code, code) << found.answer.sentence();
        EXPECT_GT(found.answer.sentence().size(), 10U);
        for (const Output output : outputs) EXPECT_EQ(found.*output, undefined);
        for (std::size_t i = 0; i < 20; ++i) EXPECT_EQ(found.x[i] + found.y[i], 2 * undefined);
    };
    using P = Properties;
    const std::vector<Output> common{&P::D, &P::Dl, &P::Dv, &P::q, &P::e, &P::cv, &P::cp, &P::w};
    const auto with = [&](std::initializer_list<Output> more) {
        std::vector<Output> all = common;
        all.insert(all.end(), more);
        return all;
    };
    for (const std::int32_t side : {1, 2}) {
        expectNone(saturationAtT(t, side), {&P::p, &P::Dl, &P::Dv});
        expectNone(saturationAtP(p, side), {&P::t, &P::Dl, &P::Dv});
    }
    expectNone(atTP(t, p), with({&P::h, &P::s}));
    expectNone(atPH(p, h), with({&P::t, &P::s}));
    expectNone(atPS(p, s), with({&P::t, &P::h}));
    expectNone(atTS(t, s), with({&P::p, &P::h}));
}

TEST_F(Failures, OfBlends) {
    ASSERT_EQ(setUp(refrigerant("R407C")).sentence(), "");
    const Fractions z = fractionsInUse();
    const Properties fine = atTP(300, 100);
    ASSERT_EQ(fine.answer.code, 0);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    {
        SCOPED_TRACE("states out of range");
        expectNoNumber(140, 1e5, 1e9, 1e9, 3);
        expectNoNumber(500, 1e5, -1e9, -1e9, 3);
        expectNoNumber(nan, nan, nan, nan, 2);
    }
    for (const Fractions& wrong :
         {Fractions{}, Fractions{0.4, 0.4, 0.1}, Fractions{0.6, 0.6, 0.6}, Fractions{1.2, -0.1, -0.1},
          Fractions{nan, 0.5, 0.5}, Fractions{0.3, 0.7, std::numeric_limits<double>::infinity()}}) {
        SCOPED_TRACE(testing::Message() << wrong[0] << ' ' << wrong[1] << ' ' << wrong[2]);
        useFractions(wrong);
        expectNoNumber(300, 100, fine.h, fine.s, 2);
        EXPECT_EQ(setReference("IIR", 2).code, 2);
    }
    // Neither what is refused nor what stands behind the components has any effect.
    Fractions more = z;
    more[3] = nan;
    useFractions(more);
    EXPECT_EQ(atTP(300, 100).D, fine.D);
    EXPECT_EQ(atTP(300, 100).h, fine.h);
}

TEST_F(Failures, SetUpsOfBlends) {
    const std::string files = "Fluids\\R32.FLD|Fluids\\R125.FLD";
    ASSERT_EQ(setUp(files, 2).sentence(), "");
    EXPECT_THAT(setUp("Fluids\\R32.FLD|Fluids\\NOSUCH.FLD", 2).sentence(), HasSubstr("NOSUCH.FLD"));
    expectUnset();
    EXPECT_THAT(setUp("Fluids\\R32.FLD||Fluids\\R125.FLD", 3).sentence(),
                HasSubstr("File name 2 of 3 is missing"));
    expectUnset();
    EXPECT_THAT(setUp(files, 2, "QQQ").sentence(), HasSubstr("QQQ"));
    expectUnset();
    write("Fluids/hmx.bnc", "{\"format\": 1}");
    EXPECT_THAT(setUp(files, 2).sentence(), HasSubstr("hmx.bnc: field format is not a text"));
    expectUnset();
    // A fluid alone does not need it.
    EXPECT_EQ(setUp("Fluids\\R32.FLD").sentence(), "");
}

/// No byte is read or written beyond the lengths told, and the rest of the error text is blank.
TEST_F(Failures, BuffersAreRespected) {
    const std::int32_t count = 1;
    // Garbage stands right behind the lengths told.
    const std::string files = "Fluids\\R134A.FLDgarbage";
    const std::string reference = "DEFgarbage";
    std::string error(60, '#');
    std::int32_t code = -1;
    SETUPdll(&count, files.data(), nullptr, reference.data(), &code, error.data(), 16, 0, 3, 20);
    EXPECT_EQ(code, 0);
    EXPECT_EQ(error, std::string(20, ' ') + std::string(40, '#'));

    const std::string ended = std::string("Fluids\\R134A.FLD") + '\0' + "behind";
    SETUPdll(&count, ended.data(), nullptr, reference.data(), &code, error.data(), 23, 0, 3, 20);
    EXPECT_EQ(code, 0);

    SETUPdll(&count, "missing.fld", nullptr, reference.data(), &code, error.data(), 11, 0, 3, 20);
    EXPECT_EQ(code, 101);
    EXPECT_EQ(error, "There is no fluid fi" + std::string(40, '#'));
    SETUPdll(&count, "missing.fld", nullptr, reference.data(), &code, error.data(), -1, 0, 3, 0);
    EXPECT_NE(code, 0);

    ASSERT_EQ(setUp("Fluids\\R134A.FLD").code, 0);
    const double t = 300;
    const std::int32_t side = 1;
    double p = 0;
    double liquid = 0;
    double vapour = 0;
    std::array<double, 22> x{};
    x.fill(77);
    std::array<double, 22> y = x;
    SATTdll(&t, y.data(), &side, &p, &liquid, &vapour, x.data() + 1, y.data() + 1, &code, error.data(), 20);
    for (const auto& fractions : {x, y}) {
        EXPECT_EQ(fractions.front(), 77);
        EXPECT_EQ(fractions[1], 1);
        EXPECT_EQ(fractions[20], 0);
        EXPECT_EQ(fractions.back(), 77);
    }
}

}  // namespace
}  // namespace marvello::test

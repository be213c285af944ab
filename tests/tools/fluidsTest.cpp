// Runs marvello-fluids of the built application folder as its users do.

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "data/Csv.h"
#include "data/Faults.h"
#include "data/FileText.h"
#include "data/Numbers.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/tools/CallProgram.h"

namespace marvello::testing {
namespace {

namespace fs = std::filesystem;

using Fields = std::map<std::string, std::string>;

double number(const Fields& row, const std::string& column) {
    return storedNumber(row.at(column)).value_or(std::nan(""));
}

class marvelloFluids : public ::testing::Test {
  protected:
    marvelloFluids() {
        for (const char* name : {"blends.csv", "saturation.csv", "single_phase.csv", "flash.csv"})
            fs::copy_file(source() / name, folder_ / name, fs::copy_options::overwrite_existing);
    }

    static fs::path source() { return fs::path(MARVELLO_SOURCE_FOLDER) / "tests/fluids/data"; }

    Answer call(const std::string& arguments, Listen to = Listen::output) const {
        return callProgram("marvello-fluids", arguments, to);
    }
    /// The rows of the file that a command with these arguments writes.
    std::vector<Fields> rows(const std::string& arguments, int status = 0) const {
        const Answer answer = call(arguments + " --csv " + csv_.string());
        EXPECT_EQ(answer.status, status) << answer.out;
        Faults faults;
        const std::vector<CsvRecord> records = readCsv(*fileText(csv_), csv_.string(), faults);
        EXPECT_TRUE(faults.empty());
        std::vector<Fields> found;
        for (std::size_t i = 1; i < records.size(); ++i) {
            Fields& row = found.emplace_back();
            for (std::size_t k = 0; k < records[i].fields.size(); ++k)
                row[records[0].fields.at(k)] = records[i].fields[k];
        }
        return found;
    }
    /// Changes one field of the first row that begins with `start` in a table of the test's own folder.
    void alter(const char* table, const std::string& start, std::size_t column, const std::string& value) {
        const std::string text = *fileText(folder_ / table);
        std::size_t from = text.find("\n" + start + ",") + 1;
        for (std::size_t k = 0; k < column; ++k) from = text.find(',', from) + 1;
        std::ofstream(folder_ / table) << text.substr(0, from) << value << text.substr(text.find(',', from));
    }

    marvello::test::TemporaryFolder folder_{"marvello-fluids"};
    fs::path csv_ = folder_ / "out.csv";
};

TEST_F(marvelloFluids, ADeviationIsFoundWhereItIs) {
    // The table's dew pressure becomes 100 kPa, and a temperature of T(p,h) 1 K more.
    double dew = 0;
    double temperature = 0;
    std::map<std::string, std::set<std::string>> quantities;
    for (const Fields& row : rows("accuracy --data " + folder_.string())) {
        quantities[row.at("refrigerant")].insert(row.at("quantity"));
        ASSERT_LT(std::abs(number(row, "deviation")), row.at("quantity").starts_with("T(") ? 1e-7 : 1e-9)
            << row.at("refrigerant") << " " << row.at("name") << " at " << row.at("T");
        if (row.at("refrigerant") != "R404A") continue;
        if (row.at("name") == "dew pressure" && dew == 0) dew = number(row, "reference");
        if (row.at("name") == "T(p,h)" && temperature == 0) temperature = number(row, "reference");
    }
    EXPECT_EQ(quantities.size(), 26);
    EXPECT_EQ(quantities["R134a"].size(), 10);
    EXPECT_EQ(quantities["R448A"].size(), 11);  // the composition of the incipient phase as well
    alter("saturation.csv", "R404A", 3, "100");
    alter("flash.csv", "R404A", 4, storedText(temperature + 1));
    int found = 0;
    for (const Fields& row : rows("accuracy --data " + folder_.string())) {
        if (std::abs(number(row, "deviation")) < 1e-6) continue;
        ++found;
        EXPECT_EQ(row.at("refrigerant"), "R404A");
        if (row.at("name") == "dew pressure") {
            EXPECT_NEAR(number(row, "deviation"), dew / 100 - 1, 1e-9);
        } else {
            EXPECT_NEAR(number(row, "deviation"), -1, 1e-7) << row.at("name");
        }
    }
    EXPECT_EQ(found, 3);  // T(p,s) has the same temperature
    const std::string table = call("accuracy --data " + folder_.string()).out;
    EXPECT_NE(table.substr(table.find("R404A"), 30).find("e-0"), std::string::npos) << table;
}

TEST_F(marvelloFluids, AStateThatTheLibraryRefusesIsToldAndTheRestCompared) {
    alter("single_phase.csv", "R134a", 1, "5000");
    const std::vector<Fields> compared = rows("accuracy --data " + folder_.string(), 1);
    EXPECT_GT(compared.size(), 16000);
    const Answer answer = call("accuracy --data " + folder_.string(), Listen::errors);
    EXPECT_EQ(std::count(answer.out.begin(), answer.out.end(), '\n'), 1);
    EXPECT_NE(answer.out.find("R134a: The temperature 5000 K lies outside"), std::string::npos) << answer.out;
}

// R134a at 0 degC from the tables of Tillner-Roth and Baehr (1994): 2.9280 bar, 1294.8 and 14.428 kg/m^3,
// 200.00 and 398.60 kJ/kg, 1.0000 and 1.7271 kJ/(kg K).
TEST_F(marvelloFluids, SaturationTableInAnEngineersUnits) {
    const std::vector<Fields> table = rows("table R134A --from -10 --to 20 --step 10");
    ASSERT_EQ(table.size(), 4);
    const Fields& zero = table[1];
    EXPECT_EQ(zero.at("T"), "0");
    EXPECT_NEAR(number(zero, "p_bubble"), 2.9280, 5e-5);
    EXPECT_EQ(zero.at("p_bubble"), zero.at("p_dew"));
    EXPECT_NEAR(number(zero, "rho_liquid"), 1294.8, 0.05);
    EXPECT_NEAR(number(zero, "rho_vapour"), 14.428, 5e-4);
    EXPECT_NEAR(number(zero, "h_liquid"), 200, 1e-9);
    EXPECT_NEAR(number(zero, "h_vapour"), 398.60, 0.005);
    EXPECT_NEAR(number(zero, "s_liquid"), 1, 1e-12);
    EXPECT_NEAR(number(zero, "s_vapour"), 1.7271, 5e-5);
    const std::string text = call("table R134A --from 0 --to 0").out;
    EXPECT_NE(
        text.find("    0.00    2.9280    2.9280   1294.78    14.428   200.00   398.60    1.0000    1.7271\n"),
        std::string::npos)
        << text;
}

// The normal boiling range of R407C, -43.6 to -36.6 degC: at 1.01325 bar these are bubble and dew points.
TEST_F(marvelloFluids, ABlendByItsPartsOrByItsName) {
    const std::string byParts = "table R32=0.23 r125.fld=0.25 R134A=0.52 ";
    EXPECT_NEAR(number(rows(byParts + "--from -43.6 --to -43.6").at(0), "p_bubble"), 1.01325, 0.005);
    EXPECT_NEAR(number(rows(byParts + "--from -36.6 --to -36.6").at(0), "p_dew"), 1.01325, 0.005);
    EXPECT_EQ(rows(byParts), rows("table r407c --data " + source().string()));
    // Without an end the table ends below the critical point, 30.98 degC for carbon dioxide.
    EXPECT_EQ(rows("table CO2 --from 28 --step 1").size(), 3);
}

TEST_F(marvelloFluids, IsothermsCrossTheTwoPhaseRegion) {
    const std::vector<Fields> lines =
        rows("isotherms R32=0.23 R125=0.25 R134A=0.52 --from 0 --to 100 --step 100");
    const Fields edge = rows("table R32=0.23 R125=0.25 R134A=0.52 --from 0 --to 0").at(0);
    double lastQuality = 1;
    double lastPressure = 0;
    int inside = 0;
    for (const Fields& row : lines) {
        const double quality = number(row, "quality");
        if (number(row, "T") > 90) {
            EXPECT_GT(quality, 1);  // above the critical temperature there is no liquid
            continue;
        }
        EXPECT_GT(number(row, "p"), lastPressure);
        lastPressure = number(row, "p");
        if (quality <= 0 || quality >= 1) continue;
        ++inside;
        EXPECT_GT(lastPressure, number(edge, "p_dew"));
        EXPECT_LT(lastPressure, number(edge, "p_bubble"));
        EXPECT_GT(number(row, "h"), number(edge, "h_liquid"));
        EXPECT_LT(number(row, "h"), number(edge, "h_vapour"));
        EXPECT_LT(quality, lastQuality);
        lastQuality = quality;
    }
    EXPECT_GE(inside, 15);
}

TEST_F(marvelloFluids, BadInputGetsOneSentence) {
    std::ofstream(folder_ / "blends.csv") << "fluid,file,mass_fraction\nR134a,R134A.FLD,much\n";
    for (const Refusal& refusal : {
             Refusal{"", "subcommand"},
             Refusal{"accuracy", "--data"},
             Refusal{"accuracy --data /nowhere", "/nowhere/blends.csv cannot be read"},
             Refusal{"accuracy --data " + folder_.string(),
                     "blends.csv:2: mass_fraction: \"much\" is no number"},
             Refusal{"table", "refrigerant"},
             Refusal{"table R999", "R999.FLD"},
             Refusal{"table R32=0.5 R125=0.4", "add up to 0.9"},
             Refusal{"table R32=0.5 R125", "lacks its mass fraction"},
             Refusal{"table R32=nan R125=0.5", "R32=nan"},
             Refusal{"table R134A --from 1,5", "\"1,5\" is no number"},
             Refusal{"table R134A --step 0", "step"},
             Refusal{"table R134A --step 1e-9", "too many rows"},
             Refusal{"table R134A --to 120", "critical temperature"},
             Refusal{"table R134A --csv /nowhere/x.csv", "/nowhere/x.csv cannot be written"},
             Refusal{"table R134A --app-folder /nowhere", "cannot be loaded"},
         }) {
        expectRefused("marvello-fluids", refusal);
    }
    // Without rows there is nothing that could deviate.
    std::ofstream(folder_ / "blends.csv") << "fluid,file,mass_fraction\n";
    expectRefused("marvello-fluids", {"accuracy --data " + folder_.string(), "blends.csv has no rows"});
}

}  // namespace
}  // namespace marvello::testing

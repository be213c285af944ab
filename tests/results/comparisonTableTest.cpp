#include "results/ComparisonTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "catalogue/Globals.h"
#include "data/Session.h"
#include "data/clsApplication.h"

using namespace marvello;

namespace {

/// Compressors of the catalogue that is shipped, with figures of the test's own.
class ComparisonTableTest : public ::testing::Test {
  protected:
    ComparisonTableTest() : session_(MARVELLO_APP_FOLDER) {
        openCatalogue();
        gApplication().populateDictionary("en-EN", "");
    }

    static ComparedChoice choice(const char* refrigerant, const char* serie, const char* model) {
        return {refrigerant, serie, model, conditionsAt(2, 40)};
    }

    void compareThese(const std::vector<ComparedChoice>& choices) {
        Calculator calculator;
        comparison = compare(choices, preparedCatalogue(gDatabase()), calculator);
    }

    Performance::Duty& duty(std::size_t machine) { return comparison.machines.at(machine).performance.plain; }

    const ComparedRow& row(std::string_view name) {
        table_ = comparisonTable(comparison, style);
        for (const ComparedGroup& group : table_.groups)
            for (const ComparedRow& each : group.rows)
                if (each.name == name) return each;
        ADD_FAILURE() << "no row " << name;
        static const ComparedRow none{};
        return none;
    }
    std::string texts(std::string_view name) {
        std::string all;
        for (const ComparedCell& cell : row(name).cells)
            all += (all.empty() ? "" : " | ") + cell.text + (cell.isBest ? "*" : "");
        return all;
    }
    std::string differences(std::string_view name) {
        std::string all;
        for (const ComparedCell& cell : row(name).cells) all += '[' + cell.difference + ']';
        return all;
    }

    Session session_;
    Comparison comparison;
    ComparisonStyle style;

  private:
    ComparisonTable table_;
};

}  // namespace

TEST_F(ComparisonTableTest, MarksTheBetterOnesOnlyWhereTheShownFiguresDiffer) {
    compareThese(
        {choice("R134A", "TK-A", "255"), choice("R513A", "MV-E", "50-240"), choice("R134A", "TK-A", "255")});
    for (std::size_t i = 0; i < 3; ++i) {
        duty(i).capacity = std::vector{150.0, 144.1, 150.6}[i];
        duty(i).power = std::vector{35.64, 34.26, 35.7}[i];
        duty(i).cop = std::vector{4.221, 4.2, 4.224}[i];
        duty(i).dischargeTemperature = 55.04 + static_cast<double>(i) / 1000;
    }
    EXPECT_EQ(texts("capacity"), "150.0 | 144.1 | 150.6") << "more is not better";
    EXPECT_EQ(texts("power"), "35.6 | 34.3* | 35.7");
    EXPECT_EQ(texts("cop"), "4.22* | 4.20 | 4.22*") << "equal as shown";
    EXPECT_EQ(texts("dischargeTemperature"), "55.0 | 55.0 | 55.0");
    EXPECT_EQ(texts("gwp"), "1430 | 631* | 1430");
    EXPECT_EQ(texts("safetyClass"), "A1 | A1 | A1");
}

// By hand from the shown figures: 144.1 / 150.0 - 1 = -3.93 %, 4.20 / 4.22 - 1 = -0.47 %, 61.2 - 55.0 = 6.2
// K.
TEST_F(ComparisonTableTest, DifferencesAreThoseOfTheShownFigures) {
    compareThese({choice("R134A", "TK-A", "255"), choice("R513A", "MV-E", "50-240")});
    duty(0) = {.capacity = 150.04, .power = 35.6, .cop = 4.2249, .dischargeTemperature = 55.04};
    duty(1) = {.capacity = 144.1, .power = 35.62, .cop = 4.1951, .dischargeTemperature = 61.16};
    EXPECT_EQ(differences("capacity"), "[][]") << "without a reference";
    style.reference = 0;
    EXPECT_EQ(differences("capacity"), "[][-3.9 %]");
    EXPECT_EQ(differences("power"), "[][0.0 %]");
    EXPECT_EQ(differences("cop"), "[][-0.5 %]");
    EXPECT_EQ(differences("dischargeTemperature"), "[][+6.2 K]");
    EXPECT_EQ(differences("evaporatingPressure"), "[][]");
    style.reference = 1;
    EXPECT_EQ(differences("capacity"), "[+4.1 %][]") << "150.0 / 144.1";
    EXPECT_EQ(differences("gwp"), "[+126.6 %][]") << "1430 / 631";
    style.units = UnitSystem::imperial;
    // 55.04 °C = 131.1 °F, 61.16 °C = 142.1 °F
    EXPECT_EQ(texts("dischargeTemperature"), "131.1* | 142.1");
    EXPECT_EQ(differences("dischargeTemperature"), "[-11.0 \u00B0F][]");
    EXPECT_EQ(row("capacity").unit, "Tons");
    EXPECT_EQ(texts("capacity"), "42.7 | 41.0") << "150.04 and 144.1 kW over 3.517";
}

TEST_F(ComparisonTableTest, SeveralMachinesHaveTheFiguresOfAllAndTheCopOfOne) {
    ComparedChoice several = choice("R134A", "TK-A", "120");
    several.machines = 3;
    several.conditions.StepCapacity = 75;
    compareThese({choice("R134A", "TK-A", "120"), several});
    duty(0) = duty(1) = {.capacity = 10, .power = 2.5, .condenserLoad = 12.5, .cop = 4, .current = 6};
    comparison.machines[1].performance = comparison.machines[0].performance;
    EXPECT_EQ(texts("capacity"), "10.0 | 30.0");
    EXPECT_EQ(texts("power"), "2.5* | 7.5");
    EXPECT_EQ(texts("condenserLoad"), "12.5 | 37.5");
    EXPECT_EQ(texts("current"), "6.0* | 18.0");
    EXPECT_EQ(texts("cop"), "4.00 | 4.00");
    // The technical data of the model say 286 kg and 120 m³/h.
    EXPECT_EQ(texts("weight"), "286 kg* | 3 \u00D7 286 kg");
    EXPECT_EQ(texts("displacement"), "120 m\u00B3/h | 3 \u00D7 120 m\u00B3/h");
    style.reference = 0;
    EXPECT_EQ(differences("weight"), "[][+200.0 %]");
    EXPECT_EQ(comparisonTable(comparison, style).heads[1].facts,
              "3 \u00D7 \u00B7 R134A \u00B7 50 Hz \u00B7 75 %");
}

TEST_F(ComparisonTableTest, ACompressorWithAnErrorKeepsItsColumnWithItsFirstMessage) {
    ComparedChoice outside = choice("R134A", "TK-A", "255");
    outside.conditions.TCondensationDew = 95;
    compareThese({choice("R134A", "TK-A", "255"), outside, choice("R134A", "TK-A", "none such")});
    const ComparisonTable table = comparisonTable(comparison, style);
    EXPECT_EQ(table.heads[0].error, "");
    EXPECT_TRUE(table.heads[1].error.starts_with("The operating point lies outside the application limits"));
    EXPECT_EQ(table.heads[2].error, "The catalogue does not have this compressor.");
    EXPECT_EQ(table.groups.front().caption, "Each at its own operating point");
    EXPECT_EQ(texts("point"), "2.0 / 40.0 \u00B0C | 2.0 / 95.0 \u00B0C | 2.0 / 40.0 \u00B0C");
    for (const char* name : {"capacity", "cop", "margin", "condensingPressure"}) {
        const std::vector<ComparedCell> cells = row(name).cells;
        EXPECT_NE(cells[0].text, "-") << name;
        EXPECT_FALSE(cells[0].isBest) << "of one value";
        EXPECT_EQ(cells[1].text, "-") << name;
        EXPECT_EQ(cells[2].text, "-") << name;
    }
    const std::vector<ComparedCell> weights = row("weight").cells;
    EXPECT_EQ(weights[0].text, weights[1].text) << "it has one at every operating point";
    EXPECT_EQ(weights[2].text, "-");
    style.reference = 1;
    EXPECT_EQ(differences("capacity"), "[][][]") << "the reference has no value";
}

TEST_F(ComparisonTableTest, TheFirstGroupIsThatOfThePointEvenWithoutAnyValue) {
    ComparedChoice outside = choice("R134A", "TK-A", "255");
    outside.conditions.TCondensationDew = 95;
    compareThese({outside, outside});
    const ComparisonTable table = comparisonTable(comparison, style);
    EXPECT_EQ(table.groups.front().caption, "At 2.0 / 95.0 \u00B0C");
    EXPECT_EQ(texts("capacity"), "- | -");
    EXPECT_NE(texts("weight"), "- | -");
}

TEST_F(ComparisonTableTest, PartLoadsOfAllMachinesAreRowsOfTheirOwn) {
    compareThese({choice("R134A", "TK-A", "255"), choice("R513A", "MV-E", "50-240")});
    comparison.machines[0].partLoadCop = {4.1, 3.9, std::nullopt};
    comparison.machines[1].partLoadCop = {4.2, std::nullopt, std::nullopt};
    EXPECT_EQ(row("cop75").caption, "COP at 75 %");
    EXPECT_EQ(texts("cop75"), "4.10 | 4.20*");
    EXPECT_EQ(texts("cop50"), "3.90 | -");
    const ComparisonTable table = comparisonTable(comparison, style);
    for (const ComparedRow& each : table.groups.front().rows)
        EXPECT_NE(each.name, "cop25") << "no machine has a value";
}

TEST_F(ComparisonTableTest, CsvHasAllDigitsAndWordsInQuotes) {
    compareThese({choice("R134A", "TK-A", "255"), choice("R513A", "MV-E", "50-240")});
    duty(0).capacity = 150.0625;
    duty(1).capacity = 144.125;
    style.reference = 0;
    const std::string csv = comparisonCsv(comparisonTable(comparison, style), true, ",");
    EXPECT_TRUE(csv.starts_with("row;caption;unit;\"TK-A-255 (1 \u00D7 \u00B7 R134A \u00B7 50 Hz)\";"));
    EXPECT_NE(csv.find("\ncapacity;\"Capacity\";\"kW\";150,0625;144,125;;\"-4.0 %\"\n"), std::string::npos)
        << csv;
    EXPECT_NE(csv.find("\nsafetyClass;\"Safety class (ASHRAE 34)\";\"\";\"A1\";\"A1\";;\n"),
              std::string::npos);
}

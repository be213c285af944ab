#include "results/YearTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "catalogue/Globals.h"
#include "data/Session.h"
#include "data/clsApplication.h"
#include "engine/ShippedProfiles.h"
#include "results/ChartReading.h"
#include "results/YearCharts.h"
#include "results/YearSheet.h"

namespace marvello {
namespace {

/// Years with figures of the test's own: two bins of 1000 and 100 h.
class YearTableTest : public ::testing::Test {
  protected:
    YearTableTest() : session_(MARVELLO_APP_FOLDER) {
        openCatalogue();
        gApplication().populateDictionary("en-EN", "");
        years_.catalogue = preparedCatalogue(gDatabase());
        years_.terms.profile.bins = {{10, 1000, 0.5}, {35, 100, 1}};
        years_.terms.designLoad = 100;
        years_.terms.evaporating.points = {{0, 2}};
        years_.terms.condensing = {.difference = 12.5, .minimum = 28};
        years_.terms.emissions = {.charge = 48, .leakage = 3, .recovery = 90, .years = 15, .grid = 0.35};
        years_.terms.price = 0.22;
        style_.currency = "\u20AC";
        style_.profile = "ours";
    }

    /// Runs with `power` kW in both bins and delivers all but `missing` kW in the second.
    YearOfPlant& add(const char* text, double power, double missing = 0) {
        YearOfPlant plant{{plantOf(text, *years_.catalogue), conditionsAt(0, 0)}};
        for (const LoadBin& bin : years_.terms.profile.bins) {
            const bool isLast = bin.load == 1;
            YearBin& made = plant.year.bins.emplace_back(
                YearBin{.bin = bin, .needed = 100 * bin.load, .ted = 2, .tcd = 40});
            made.load.running = {
                {.kind = 0,
                 .count = 1,
                 .state = {.capacity = 100 * bin.load - (isLast ? missing : 0), .power = power}}};
            made.load.unmet = isLast ? missing : 0;
            made.errors.resize(plant.choice.plant.machines.size());
            plant.year.energy += made.energy();
            plant.year.delivered += made.delivered() * bin.hours;
            plant.year.unmet += made.load.unmet * bin.hours;
            if (made.load.unmet > 0) plant.year.unmetHours += bin.hours;
        }
        plant.year.runningHours = {1100};
        plant.emissions = years_.terms.emissions;
        plant.emissions.gwp = 1430;
        plant.price = years_.terms.price;
        years_.plants.push_back(plant);
        return years_.plants.back();
    }

    std::string texts(const YearTable& table, std::string_view name) {
        for (const ComparedRow& row : table.figures.groups.front().rows) {
            if (row.name != name) continue;
            std::string all;
            for (const ComparedCell& cell : row.cells)
                all += (all.empty() ? "" : " | ") + cell.text + (cell.isBest ? "*" : "");
            return all + ' ' + row.unit;
        }
        return "no row";
    }

    Session session_;
    YearComparison years_;
    YearStyle style_;
};

/// By hand: 1100 h with 20 and 18 kW are 22 000 and 19 800 kWh, 4840 and 4356 euros, 7.7 and 6.93 t of CO2.
/// Cooling 50 * 1000 + 100 * 100 = 60 000 kWh. Refrigerant 1430 (48 * 0.03 + 48 * 0.1 / 15) = 2516.8 kg.
TEST_F(YearTableTest, FiguresAreOfAYear) {
    add("TK-A-255 R134A", 20);
    add("TK-D-140 R134A", 18);
    const YearTable table = yearTable(years_, style_);
    EXPECT_EQ(table.figures.heads[0].facts, "steps 100, 75, 50, 25 %");
    EXPECT_EQ(table.figures.heads[1].facts, "inverter 20 to 70 Hz");
    EXPECT_EQ(texts(table, "cooling"), "60.0 | 60.0 MWh");
    EXPECT_EQ(texts(table, "energy"), "22.0 | 19.8* MWh");
    EXPECT_EQ(texts(table, "seasonalCop"), "2.73 | 3.03* ");
    EXPECT_EQ(texts(table, "cost"), "4840 | 4356* \u20AC");
    EXPECT_EQ(texts(table, "indirect"), "7.7 | 6.9* t");
    EXPECT_EQ(texts(table, "direct"), "2.5 | 2.5 t");
    EXPECT_EQ(texts(table, "tewi"), "10.2 | 9.4* t");
    EXPECT_EQ(texts(table, "lifeTewi"), "153.3 | 141.7* t");
    EXPECT_EQ(texts(table, "unmet"), "no row") << "all is met";
    ASSERT_EQ(table.differences.size(), 3U);
    EXPECT_EQ(table.differences[0].values.front(), "-2.2 MWh");
    EXPECT_EQ(table.differences[1].values.front(), "-484 \u20AC");
    EXPECT_EQ(table.differences[2].values.front(), "-0.8 t") << "of the shown figures";
    style_.units = UnitSystem::imperial;
    EXPECT_EQ(texts(yearTable(years_, style_), "cooling"), "17060 | 17060 ton h") << "60000 / 3.517";
    years_.terms.price.reset();
    EXPECT_EQ(texts(yearTable(years_, style_), "cost"), "no row");
}

TEST_F(YearTableTest, LoadThatIsNotMetIsSaidWithHoursAndKilowatts) {
    add("TK-A-255 R134A", 20, 8.3);
    YearOfPlant& other = add("TK-A-120x2; TK-D-140 R134A", 18);
    other.year.bins[1].errors = {"messages.message01", ""};
    const YearTable table = yearTable(years_, style_);
    EXPECT_EQ(texts(table, "unmet"), "830 | 0* kWh");
    EXPECT_EQ(texts(table, "energy"), "22.0 | 19.8 MWh") << "less is not better for a smaller load";
    ASSERT_EQ(table.warnings.size(), 2U);
    EXPECT_EQ(
        table.warnings[0],
        "TK-A-255 does not meet the load in 100 h a year: 830 kWh are missing. At 35.0 \u00B0C outdoors "
        "it covers 91.7 kW of 100.0 kW.");
    EXPECT_TRUE(table.warnings[1].starts_with(
        "TK-A-120 cannot run in 100 h, as at 35.0 \u00B0C outdoors: The operating point lies outside"));
    EXPECT_EQ(table.figures.heads[1].name, "2 \u00D7 TK-A-120 + TK-D-140");
}

TEST_F(YearTableTest, APlantThatNeverRunsHasItsReasonInPlaceOfFigures) {
    add("TK-A-255 R134A", 20);
    YearOfPlant& none = add("TK-A-255 R134A", 0, 50);
    for (YearBin& bin : none.year.bins) bin.errors = {"messages.message01"};
    const YearTable table = yearTable(years_, style_);
    EXPECT_TRUE(table.figures.heads[1].error.starts_with("The operating point lies outside"));
    EXPECT_EQ(texts(table, "energy"), "22.0 | - MWh");
    EXPECT_EQ(table.differences[0].values.front(), "-");
    EXPECT_EQ(table.figures.heads[0].name, "TK-A-255 \u00B7 R134A (1)") << "told apart";
    EXPECT_TRUE(table.warnings.empty()) << "the column says it";
}

TEST_F(YearTableTest, AssumptionsSayWhatTheFiguresRestOn) {
    add("TK-A-255 R134A", 20);
    years_.terms.degradation = usualDegradation(Degradation::Form::chiller);
    years_.terms.emissions.charge = 48;
    style_.gridSource = "DE, 2023";
    std::string all;
    for (const std::string& line : yearAssumptions(years_, style_)) all += line + '\n';
    for (const char* part :
         {"100.0 kW", "Evaporating 2.0 \u00B0C", "outdoor plus 12.5 K, at least 28.0 \u00B0C",
          "ours, 1100 h, 600 h", "superheat 10 K", "least power", "r / (0.9 r + 1 - 0.9)",
          "0.22 \u20AC for a kWh", "0.35 kg CO\u2082e/kWh (DE, 2023)", "charge 48 kg, 3 % lost",
          "GWP by AR4: R134A 1430", "no declared seasonal figures"})
        EXPECT_NE(all.find(part), std::string::npos) << part << " in\n" << all;
}

TEST_F(YearTableTest, ChartsHaveTheBinsAcross) {
    add("TK-A-255 R134A", 20);
    add("TK-D-140 R134A", 18);
    const YearCharts charts = yearCharts(years_, style_, 1);
    EXPECT_EQ(charts.energy.bars[0].values, (std::vector<double>{20, 2})) << "MWh";
    EXPECT_NE(charts.energy.bars[0].fill, charts.energy.bars[1].fill);
    EXPECT_EQ(charts.energy.categories[1].name, "35");
    EXPECT_EQ(charts.energy.categories[1].second, "100 h");
    for (const Chart* chart : {&charts.energy, &charts.cop, &charts.hours, &charts.load})
        EXPECT_EQ(chart->markedCategory, 1U);
    EXPECT_EQ(charts.cop.curves[0].points[0].y, 2.5) << "50 kW over 20";
    EXPECT_EQ(charts.cop.curves[0].points[1].x, 1.5);
    EXPECT_EQ(charts.hours.curves[0].points[1].y, 1100) << "of the profile";
    EXPECT_EQ(charts.hours.curves[2].points[0].y, 1000);
    EXPECT_EQ(charts.hours.curves[2].points[1].y, 1100) << "cumulated for each by itself";
    EXPECT_EQ(charts.load.curves[0].points[0].y, 50);
}

TEST_F(YearTableTest, ChartsAreReadAtTheirBins) {
    add("TK-A-255 R134A", 20);
    add("TK-D-140 R134A", 18);
    const YearCharts charts = yearCharts(years_, style_);
    EXPECT_EQ(readPlaces(charts.energy), (std::vector<double>{0.5, 1.5}));
    const ChartReading energy = readChart(charts.energy, 1.5, {});
    EXPECT_EQ(energy.at, "Outdoor 35 \u00B0C, 100 h");
    ASSERT_EQ(energy.values.size(), 2U);
    EXPECT_EQ(energy.values[1].name, "TK-D-140");
    EXPECT_EQ(energy.values[1].text, "1.8 MWh") << "18 kW for 100 h";
    const ChartReading cop = readChart(charts.cop, 0.5, {});
    EXPECT_EQ(cop.at, "Outdoor 10 \u00B0C, 1000 h");
    EXPECT_EQ(cop.values[0].text, "2.50");
    EXPECT_EQ(readChart(charts.hours, 1.5, {}).values.size(), 3U) << "the hours of the profile as well";
}

TEST_F(YearTableTest, TheSheetsSayWhatTheChartsShow) {
    add("TK-A-255 R134A", 20);
    add("TK-D-140 R134A", 18, 5);
    years_.plants[1].year.bins[0].load.running[0].share = 0.25;
    const YearSheet sheet = yearSheet(years_, style_);
    const auto cell = [&](std::string_view key, std::size_t row) {
        const auto found = std::ranges::find(sheet.columns, key, &YearSheet::Column::key);
        return sheet.rows[row].at(static_cast<std::size_t>(found - sheet.columns.begin()));
    };
    EXPECT_EQ(cell("outdoor", 0), "10.0");
    EXPECT_EQ(cell("needed", 0), "50.0");
    EXPECT_EQ(cell("tcd", 0), "28.0") << "not below";
    EXPECT_EQ(cell("tcd", 1), "47.5");
    EXPECT_EQ(cell("energy0", 0), "20000.0");
    EXPECT_EQ(cell("cop0", 1), "5.00");
    EXPECT_EQ(cell("running1", 0), "250.0");
    EXPECT_EQ(cell("unmet1", 1), "5.0");
    EXPECT_EQ(runningSheet(years_, style_).rows[0].back(), "TK-D-140 100 % for 25 % of the time");
    const YearTable table = yearTable(years_, style_);
    const std::string csv = yearCsv(years_, table, {"one; \"two\""}, ",");
    for (const char* part : {"row;caption;unit;\"TK-A-255 (steps", "energy;\"Energy\";\"MWh\";22;",
                             "assumption;\"one; \"\"two\"\"\"\n", "\n\noutdoor C;hours;load;needed kW;",
                             "\n10;1000;0,5;50;2;28;50;20;20000;0;\"TK-A-255 100 %\";"})
        EXPECT_NE(csv.find(part), std::string::npos) << part << " in\n" << csv;
}

TEST_F(YearTableTest, EveryFaultHasASentenceInEachLanguage) {
    for (const char* language : {"en-EN", "de-DE", "fr-FR", "it-IT", "es-ES", "cn-CN"}) {
        gApplication().populateDictionary("en-EN", language);
        for (int reason = 0; reason <= static_cast<int>(LoadProfileFault::Reason::loadAboveFull); ++reason) {
            const std::string sentence = sentenceOf(static_cast<LoadProfileFault::Reason>(reason), "7");
            EXPECT_FALSE(sentence.starts_with("frmyear")) << sentence;
        }
        for (int reason = 0; reason <= static_cast<int>(PlantTextFault::Reason::severalInverters); ++reason) {
            const PlantTextFault fault(static_cast<PlantTextFault::Reason>(reason), "", {"7"});
            EXPECT_FALSE(sentenceOf(fault).starts_with("frmyear")) << sentenceOf(fault);
        }
        const PlantTextFault fault(PlantTextFault::Reason::severalRefrigerants, "", {"R134A", "R290"});
        EXPECT_NE(sentenceOf(fault).find("R134A, R290"), std::string::npos) << language;
    }
    gApplication().populateDictionary("en-EN", "en-EN");
    EXPECT_NE(sentenceOf(LoadProfileFault::Reason::negativeLoad, "-7").find("-7"), std::string::npos);
    EXPECT_NE(sentenceOf(LoadProfileFault::Reason::missingColumn, "hours").find("column"), std::string::npos);
}

}  // namespace
}  // namespace marvello

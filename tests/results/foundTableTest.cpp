#include "results/FoundTable.h"

#include <gtest/gtest.h>

#include "tests/support/SmallCatalogue.h"

using namespace marvello;

namespace {

/// R134A with TK-A 100 and TK-D 90 on an inverter, R290 with TK-A 100; and solutions of them.
class FoundTableTest : public ::testing::Test {
  protected:
    FoundTableTest() {
        catalogue.compressor();
        catalogue.compressor({{"fSerieID", "'TK-D'"}, {"fModelID", "'90'"}, {"fhasInverter", "1"}});
        catalogue.compressor({{"fRefrigerantID", "'R290'"}});
        catalogue.exec(
            "INSERT INTO tRefrigerantFacts(fRefrigeranteId, fSafetyClass, fGwpAr4) VALUES "
            "('R134A', 'A1', 1430), ('R290', 'A3', 3)");
        result.catalogue = preparedCatalogue(gDatabase());
        add("R134A", "TK-A", 1, 4.3, 12);
        add("R134A", "TK-A", 2, 4.2, -3).hasWarnings = true;
        add("R134A", "TK-A", 3, 4.1, 2);
        add("R134A", "TK-D", 1, 4.0, 0).conditions.InverterFrequency = 43.71234F;
        add("R134A", "TK-D", 2, 3.9, 0);
        add("R290", "TK-A", 1, 3.9, 15);
    }
    Candidate& add(const char* refrigerant, const char* serie, int machines, double cop, double deviation) {
        Candidate candidate;
        candidate.compressor =
            result.catalogue->find(refrigerant, serie, serie == std::string("TK-D") ? "90" : "100");
        candidate.conditions = conditionsAt(2, 40);
        candidate.machines = machines;
        candidate.cop = cop;
        candidate.deviation = deviation;
        candidate.capacity = 150 * (1 + deviation / 100);
        return result.candidates.emplace_back(candidate);
    }
    std::string labels(const FoundFilters& filters, const FoundOrder& order = {}) const {
        std::string text;
        for (const Candidate* candidate : listed(result, filters, order))
            text += (text.empty() ? "" : ", ") + foundLabel(*candidate) + ' ' +
                    candidate->compressor->Refrigerant;
        return text;
    }

    marvello::testing::SmallCatalogue catalogue;
    FindResult result;
};

}  // namespace

TEST_F(FoundTableTest, FiltersLeaveWhatPassesAllOfThem) {
    using enum FoundFilter;
    EXPECT_EQ(listed(result, {}, {}).size(), 6U);
    EXPECT_EQ(labels({oneMachine}), "1 × TK-A-100 R134A, 1 × TK-D-90 R134A, 1 × TK-A-100 R290");
    EXPECT_EQ(labels({onInverter, oneMachine}), "1 × TK-D-90 R134A");
    EXPECT_EQ(labels({lowGwp}), "1 × TK-A-100 R290");
    EXPECT_EQ(labels({lowGwp, notFlammable}), "");
    EXPECT_EQ(countOf(result, withoutWarnings), 5);
    EXPECT_EQ(countOf(result, notFlammable), 5);
}

TEST_F(FoundTableTest, ChosenValuesOfFactsAddUp) {
    using enum FoundFact;
    EXPECT_EQ(valuesOf(result, refrigerant), (std::set<std::string>{"R134A", "R290"}));
    EXPECT_EQ(valuesOf(result, series), (std::set<std::string>{"TK-A", "TK-D"}));
    EXPECT_EQ(listed(result, {}, {}, {{series, {"TK-D"}}}).size(), 2U);
    EXPECT_EQ(listed(result, {FoundFilter::oneMachine}, {}, {{series, {"TK-D"}}}).size(), 1U);
    EXPECT_EQ(listed(result, {}, {}, {{series, {"TK-D"}}, {refrigerant, {"R290"}}}).size(), 0U);
    EXPECT_EQ(listed(result, {}, {}, {{series, {}}}).size(), 6U);
    EXPECT_EQ(countOf(result, safetyClass, {"A3"}), 1);
}

TEST_F(FoundTableTest, TheBestOfEachRefrigerantAreOneMachineASetAndOneOnAnInverter) {
    using enum FoundFilter;
    EXPECT_EQ(labels({bestOfEach}),
              "1 × TK-A-100 R134A, 2 × TK-A-100 R134A, 1 × TK-D-90 R134A, 1 × TK-A-100 R290");
    EXPECT_EQ(labels({bestOfEach, withoutWarnings}),
              "1 × TK-A-100 R134A, 3 × TK-A-100 R134A, 1 × TK-D-90 R134A, 1 × TK-A-100 R290")
        << "the best of those that the other filters leave";
}

TEST_F(FoundTableTest, EqualSolutionsComeNearestToTheNeedFirst) {
    EXPECT_TRUE(labels({}).ends_with("2 × TK-D-90 R134A, 1 × TK-A-100 R290")) << "both have a COP of 3.9";
    FoundOrder order;
    order.clicked(foundColumn::cop);
    EXPECT_FALSE(order.isDescending);
    EXPECT_TRUE(labels({}, order).starts_with("2 × TK-D-90 R134A, 1 × TK-A-100 R290"));
    order.clicked(foundColumn::deviation);
    EXPECT_TRUE(labels({}, order).starts_with("2 × TK-A-100 R134A, 1 × TK-D-90 R134A"));
    order.clicked(nameColumn);
    EXPECT_TRUE(labels({}, order).ends_with("1 × TK-D-90 R134A, 2 × TK-D-90 R134A"));
}

TEST_F(FoundTableTest, FiguresFollowTheSystemOfUnitsAndFilesHaveAllDigitsOfAFrequency) {
    Candidate& candidate = result.candidates.front();
    candidate.dischargeTemperature = 60;
    candidate.margin = Margin{0, 10, Direction::tcdDown};
    const FoundRow metric = foundRow(result, candidate, {});
    EXPECT_EQ(metric.values[1].text, "168.0");
    EXPECT_EQ(metric.values[2].text, "+12.0 %");
    EXPECT_EQ(metric.values[7].text, "10.0");
    const FoundRow imperial = foundRow(result, candidate, {.units = UnitSystem::imperial});
    EXPECT_NEAR(*imperial.values[1].number, 168 / 3.517, 0.06) << "tons";
    EXPECT_EQ(imperial.values[6].text, "140.0");
    EXPECT_EQ(imperial.values[7].text, "18.0");
    const std::string csv = foundRecords(result, listed(result, {FoundFilter::onInverter}, {}), {}).toCsv();
    EXPECT_NE(csv.find("43.71234"), std::string::npos) << csv;
}

TEST_F(FoundTableTest, RejectionsAreGroupedByReasonTheMostFrequentFirst) {
    const auto reject = [this](Rejection::Reason reason, const char* rule = "") {
        result.rejections.push_back({reason, rule, &result.catalogue->compressors().front(), {}});
    };
    catalogue.text("messages.message24", "Not above 60 Hz.");
    gApplication().populateDictionary("en-EN", "");
    reject(Rejection::Reason::tooLarge);
    for (int i = 0; i < 2; ++i) reject(Rejection::Reason::rule, "messages.message24");
    for (int i = 0; i < 3; ++i) reject(Rejection::Reason::envelope);
    const std::vector<RejectedGroup> groups = rejectedGroups(result);
    ASSERT_EQ(groups.size(), 3U);
    EXPECT_EQ(groups[0].compressors.size(), 3U);
    EXPECT_EQ(groups[1].compressors.size(), 2U);
    EXPECT_EQ(groups[1].reason, "Not above 60 Hz.");
    EXPECT_EQ(groups[2].compressors.front(), "TK-A-100 · R134A");
}

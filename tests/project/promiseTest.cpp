#include "project/Promise.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/Globals.h"
#include "tests/support/SmallCatalogue.h"

namespace marvello {
namespace {

/// A result that was promised by one catalogue, and what another one makes of it.
class PromiseTest : public ::testing::Test {
  protected:
    PromiseTest() {
        small_.compressor();
        small_.compressor({{"fModelID", "'200'"}, {"fSequence", "'020'"}});
        small_.completeDefault();
        promise_.results = {result("100"), result("200")};
    }

    PromisedResult result(const std::string& model) {
        const auto catalogue = preparedCatalogue(gDatabase());
        Calculator calculator;
        return promisedResult(calculator, *catalogue->find("R134A", "TK-A", model), conditionsAt(2, 40));
    }
    /// Those that changed, with the name of the model.
    std::vector<std::pair<std::string, Change>> changes() const {
        Calculator calculator;
        const auto checked = checkedResults(promise_, *preparedCatalogue(gDatabase()), calculator);
        EXPECT_EQ(checked.size(), promise_.results.size());
        std::vector<std::pair<std::string, Change>> changes;
        for (std::size_t i = 0; i < checked.size(); ++i)
            if (!checked[i].isAsPromised())
                changes.emplace_back(promise_.results[i].compressor.model, checked[i].change);
        return changes;
    }
    static std::vector<std::string> namesOf(const Change& change) {
        std::vector<std::string> names;
        for (const Change::Value& value : change.values) names.push_back(value.name);
        return names;
    }

    testing::SmallCatalogue small_;
    Promise promise_;
};

TEST_F(PromiseTest, TheSameCatalogueKeepsItToTheLastDigit) {
    EXPECT_GT(promise_.results.front().values.size(), 30U);
    EXPECT_GT(promise_.results.front().values.at("Q0"), 10);
    EXPECT_TRUE(changes().empty());
    EXPECT_EQ(result("100"), promise_.results.front());
}

TEST_F(PromiseTest, AChangedRowIsTheReasonOfWhatFollowsFromIt) {
    small_.exec("update tPolynomials set fC1 = fC1 * 1.1 where fType = 1");
    const auto changed = changes();
    ASSERT_EQ(changed.size(), 2U);
    for (const auto& [model, change] : changed) {
        EXPECT_EQ(change.reasons, std::vector{ChangeReason::row});
        EXPECT_EQ(change.parts, std::vector{CataloguePart::powerSurface});
        const auto names = namesOf(change);
        EXPECT_EQ(std::ranges::count(names, "Pta"), 1);
        EXPECT_EQ(std::ranges::count(names, "Q0"), 0) << "the capacity does not follow from the power";
        EXPECT_EQ(std::ranges::count(names, "Pe"), 0);
    }
}

TEST_F(PromiseTest, ThreePlantedChangesAreTheseAndNoOthers) {
    small_.exec("update tCompressors set fFla = 77 where fModelID = '200'");
    auto changed = changes();
    ASSERT_EQ(changed.size(), 1U);
    EXPECT_EQ(changed[0].first, "200");
    EXPECT_EQ(changed[0].second.parts, std::vector{CataloguePart::model});

    small_.exec("update tLimits set fPoints = '-20,20;1,20;1,60;-20,60;-20,20'");
    changed = changes();
    ASSERT_EQ(changed.size(), 2U);
    EXPECT_EQ(changed[0].second.parts, std::vector{CataloguePart::envelope});
    ASSERT_FALSE(changed[0].second.gained.empty()) << "2 degrees are outside now";
    EXPECT_EQ(changed[0].second.gained[0].severity, Severity::error);

    small_.exec("delete from tCompressors where fModelID = '100'");
    changed = changes();
    ASSERT_EQ(changed.size(), 2U);
    EXPECT_EQ(changed[0].second.reasons, std::vector{ChangeReason::missing});
}

// A row that no operating point reaches is another row all the same: the result was calculated from others.
TEST_F(PromiseTest, AChangedRowIsSaidWithoutAChangedResult) {
    small_.exec("update tMotors set fPhase = 1");
    ASSERT_EQ(changes().size(), 2U);
    for (const auto& [model, change] : changes()) {
        EXPECT_FALSE(change.isInResults());
        EXPECT_EQ(change.parts, std::vector{CataloguePart::motor});
        EXPECT_EQ(change.reasons, std::vector{ChangeReason::row});
    }
}

// Else a change of the calculation would be put down to the catalogue.
TEST_F(PromiseTest, WhatACalculationDoesNotReadIsNoReason) {
    small_.exec("update tCompressors set fOilCoolingLimitEco = 70, fMarket = 1");
    EXPECT_TRUE(changes().empty()) << "there is no economizer";
    promise_.results.front().values["COP"] += 0.01;
    ASSERT_EQ(changes().size(), 1U);
    EXPECT_EQ(changes()[0].second.reasons, std::vector{ChangeReason::rule});
}

TEST_F(PromiseTest, OtherPropertiesAndOtherRulesAreToldApart) {
    PromisedResult& promised = promise_.results.front();
    promise_.results.pop_back();
    promised.values["Pe"] *= 1.001;  // as another property library had it
    promised.values["Q0"] *= 1.001;
    ASSERT_EQ(changes().size(), 1U);
    EXPECT_EQ(changes()[0].second.reasons, std::vector{ChangeReason::property});
    EXPECT_EQ(namesOf(changes()[0].second), (std::vector<std::string>{"Pe", "Q0"}));

    promised = result("100");
    promised.values["COP"] += 0.01;  // as another program calculated it
    promised.messages.push_back({Severity::attention, "messages.message99"});
    ASSERT_EQ(changes().size(), 1U);
    EXPECT_EQ(changes()[0].second.reasons, std::vector{ChangeReason::rule});
    ASSERT_EQ(changes()[0].second.lost.size(), 1U);
    EXPECT_EQ(changes()[0].second.lost[0].key, "messages.message99");

    promised = result("100");
    promised.values["COP"] *= 1 + 1e-12;  // as another machine calculated it
    promised.values["Pra"] += 1e-13;      // 0 but for what the last bits leave
    EXPECT_TRUE(changes().empty());
}

}  // namespace
}  // namespace marvello

// The catalogue as a user meets it: every series gives something, and every rule can speak.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/Globals.h"
#include "data/Session.h"
#include "demo/duties/Duties.h"

namespace marvello::duties {
namespace {

class CatalogueDuties : public testing::Test {
  protected:
    CatalogueDuties() {
        openCatalogue();
        const std::string tree = MARVELLO_SOURCE_FOLDER;
        plans = generate::allSeries(tree + "/demo/generate/plans", tree + "/content");
    }

    Session session{MARVELLO_APP_FOLDER};
    std::vector<generate::SeriesPlan> plans;
};

/// A usual duty of a series is one that all its compressors are made for, with economizer too.
TEST_F(CatalogueDuties, EveryCompressorRunsAtTheUsualDutyOfItsSeries) {
    for (const bool economized : {false, true}) {
        const std::vector<UsualRun> runs = usualRuns(plans, economized);
        EXPECT_GE(runs.size(), 80U);
        for (const UsualRun& run : runs) {
            EXPECT_GT(run.compressors, 0U);
            EXPECT_EQ(run.withoutError, run.compressors) << run.serie << " with " << run.refrigerant << ": "
                                                         << (run.errors.empty() ? "" : run.errors.front());
        }
    }
}

/// The rated current is made for operation with economizer too; an inverter compressor has the rule of 15 %
/// margin instead.
TEST_F(CatalogueDuties, MotorsCarryTheEconomizer) {
    int calculated = 0;
    for (const generate::SeriesPlan& plan : plans) {
        if (!plan.hasEconomizer() || plan.drive == generate::SeriesPlan::Drive::inverter) continue;
        for (const generate::Point& inside : {generate::Point{0.2, 0.7}, generate::Point{0.8, 0.9}}) {
            const generate::RangePlan& range = plan.range;
            clsProjectConditions conditions =
                conditionsAt(range.evaporatingFrom + inside.x * (range.evaporatingTo - range.evaporatingFrom),
                             range.condensingFrom + inside.y * (range.condensingTo - range.condensingFrom));
            conditions.EcoCalculateMode = EconomizerMode::approach;
            conditions.Eco = 5;
            runSeries(plan, conditions, [&](const clsCompressor& compressor) {
                constexpr int application = 0;
                if (compressor.Messages.Error.Count() > 0 ||
                    !compressor.limits
                         .GetLimitsFromPoint(conditions.TEvaporatingDew, conditions.TCondensationDew)
                         .FindLimitType(application))
                    return;
                ++calculated;
                EXPECT_LT(compressor.Variables("CAECO"), compressor.Variables("Fla"))
                    << plan.serie << ' ' << plan.refrigerant << ' ' << compressor.Model << " at "
                    << conditions.TEvaporatingDew << '/' << conditions.TCondensationDew;
                EXPECT_GT(compressor.Variables("CAECO"), compressor.Variables("CA"));
                EXPECT_LT(compressor.Variables("EtaComp1"), 1);
            });
        }
    }
    EXPECT_GT(calculated, 900);
}

/// A few series are enough for all messages but one: a motor that is missing, which no sound catalogue has.
TEST_F(CatalogueDuties, EveryMessageOfTheRulesCanCome) {
    const std::vector<std::pair<std::string, std::string>> enough{
        {"TK-A", "R134A"}, {"TK-A", "R290"},     {"TK-E", "R134A"}, {"MV-A", "R404A"},
        {"MV-A", "R290"},  {"MV-A(V)", "R134A"}, {"MV-J", "R22"},   {"GH", "R22"},
        {"GH", "R134A"},   {"DZ", "R134A"},      {"TK-B", "R134A"}};
    std::erase_if(plans, [&](const generate::SeriesPlan& plan) {
        return std::ranges::find(enough, std::pair(plan.serie, plan.refrigerant)) == enough.end();
    });
    ASSERT_EQ(plans.size(), enough.size());
    const auto found = provocations(plans);
    for (const auto& message : messagesOfTheRules()) {
        EXPECT_EQ(found.contains(message), message.first != "messages.message33")
            << message.first << " as " << message.second;
    }
    EXPECT_EQ(found.size(), messagesOfTheRules().size() - 1);  // and none without a rule, such as a failure
}

}  // namespace
}  // namespace marvello::duties

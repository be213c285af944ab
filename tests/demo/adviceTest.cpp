// What is advised, over the whole catalogue: followed to the letter it helps, and a little less does not.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/Globals.h"
#include "catalogue/PreparedCatalogue.h"
#include "data/CollectedBoxes.h"
#include "data/Session.h"
#include "engine/Advice.h"
#include "engine/clsSelections.h"
#include "tests/support/RandomConditions.h"

namespace marvello {
namespace {

using Said = std::set<std::pair<Severity, std::string>>;

class AdviceOnTheCatalogue : public ::testing::Test {
  protected:
    AdviceOnTheCatalogue() {
        openCatalogue();
        catalogue = preparedCatalogue(gDatabase());
    }

    /// By a plain selection.
    Said saidOf(const PreparedCompressor& compressor, const clsProjectConditions& conditions) {
        const CollectedBoxes boxes;
        selections_.Selection(std::make_shared<clsProjectConditions>(conditions), compressor.Serie,
                              compressor.Model, compressor.Refrigerant,
                              static_cast<std::uint8_t>(compressor.Market));
        Said said;
        const ClsSelectionMessages& messages = selections_.Item(1).Messages;
        for (const clsMessage& message : messages.Error) said.emplace(Severity::error, message.Name);
        for (const clsMessage& message : messages.Attention) said.emplace(Severity::attention, message.Name);
        for (const clsMessage& message : messages.Information)
            said.emplace(Severity::information, message.Name);
        return said;
    }

    static bool isEnded(const MessageId& message, const Said& before, const Said& after) {
        return !after.contains({message.severity, message.key}) &&
               std::ranges::none_of(after, [&](const auto& other) {
                   return other.first <= message.severity && !before.contains(other);
               });
    }

    /// A search for the injected flow may fail at any point among others that succeed.
    static bool isContinuous(const MessageId& message) {
        return message.key != "messages.message25" && message.key != "messages.message26";
    }

    Session session{MARVELLO_APP_FOLDER};
    std::shared_ptr<const PreparedCatalogue> catalogue;
    testing::RandomConditions random_{20};
    clsSelections selections_;
};

// "A little less" is 0.2 back towards the value before.
TEST_F(AdviceOnTheCatalogue, EndsItsMessageAndALittleLessDoesNot) {
    constexpr int wanted = 500;
    Calculator calculator;
    int points = 0;
    int messages = 0;
    int advised = 0;
    while (points < wanted) {
        const PreparedCompressor& compressor = random_.compressorOf(*catalogue);
        const clsProjectConditions conditions = random_.conditionsFor(compressor);
        const UnitSystem units = random_.number() % 4 == 0 ? UnitSystem::imperial : UnitSystem::metric;
        const auto advice = adviseOn(calculator, compressor, conditions, units);
        points += advice.empty() ? 0 : 1;
        const Said before = saidOf(compressor, conditions);
        const auto helps = [&](const MessageAdvice& about, AdvisedInput input, double value) {
            return isEnded(about.message, before,
                           saidOf(compressor, withInput(conditions, input, value, units)));
        };
        for (const MessageAdvice& about : advice) {
            ++messages;
            advised += about.advice.empty() ? 0 : 1;
            ASSERT_TRUE(before.contains({about.message.severity, about.message.key}));
            for (const auto& [input, value, change, isLasting, ends, brings] : about.advice) {
                SCOPED_TRACE(compressor.Model + " " + about.message.key + " " + std::string(nameOf(input)));
                EXPECT_TRUE(helps(about, input, value)) << value;
                const double less = value - std::copysign(0.2, change);
                if (!isChoice(input) && std::abs(change) > 0.2 && isContinuous(about.message)) {
                    EXPECT_FALSE(helps(about, input, less)) << less;
                }
            }
        }
    }
    RecordProperty("messages", messages);
    RecordProperty("advised", advised);
    EXPECT_GT(advised, messages * 3 / 4);
}

}  // namespace
}  // namespace marvello

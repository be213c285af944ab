#include "engine/CondensingRule.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>

namespace marvello {
namespace {

TEST(CondensingRule, FollowsTheOutdoorTemperatureDownToItsMinimum) {
    const CondensingRule rule = condensingRuleOf("outdoor+12,min 25");
    EXPECT_EQ(rule.at(30, 1), 42);
    EXPECT_EQ(rule.at(30, 0.5), 42);
    EXPECT_EQ(rule.at(13, 1), 25);
    EXPECT_EQ(rule.at(-19, 1), 25);
    EXPECT_EQ(condensingRuleOf("outdoor+12").at(-19, 1), -7);
    EXPECT_EQ(condensingRuleOf("outdoor").at(18, 0.3), 18);
    EXPECT_EQ(condensingRuleOf("40").at(-10, 0.4), 40);
}

TEST(CondensingRule, AScaledDifferenceShrinksWithTheLoad) {
    const CondensingRule rule = condensingRuleOf("outdoor+12,scaled,min 25");
    EXPECT_EQ(rule.at(30, 1), 42);
    EXPECT_EQ(rule.at(30, 0.5), 36);
    EXPECT_EQ(rule.at(30, 0), 30);
    EXPECT_EQ(rule.at(15, 0.5), 25);
}

TEST(CondensingRule, ReadsWhatItWrites) {
    for (const auto& [typed, text] :
         {std::pair{"outdoor+12,min 25", "outdoor+12,min 25"}, std::pair{"Outdoor + 12.5", "outdoor+12.5"},
          std::pair{" MIN -5 , scaled,OUTDOOR-3", "outdoor-3,scaled,min -5"},
          std::pair{"outdoor", "outdoor+0"}, std::pair{" 40.5 ", "40.5"}, std::pair{"-10", "-10"},
          std::pair{"outdoor+12,min25", "outdoor+12,min 25"}}) {
        const CondensingRule rule = condensingRuleOf(typed);
        EXPECT_EQ(textOf(rule), text);
        EXPECT_EQ(condensingRuleOf(textOf(rule)), rule);
    }
}

TEST(CondensingRule, SaysWhatItCannotRead) {
    for (const auto& [typed, sentence] :
         {std::pair{"", "\"\" is not part of a rule such as outdoor+12,min 25"},
          std::pair{"outdoor+12,5", "\"5\" is not part of a rule such as outdoor+12,min 25"},
          std::pair{"outdoor12", "\"outdoor12\" needs one sign after outdoor, as outdoor+12"},
          std::pair{"outdoor+-12", "\"outdoor+-12\" needs one sign after outdoor, as outdoor+12"},
          std::pair{"outdoor+x", "\"outdoor+x\" is not part of a rule such as outdoor+12,min 25"},
          std::pair{"outdoor+nan", "\"outdoor+nan\" is not part of a rule such as outdoor+12,min 25"},
          std::pair{"outdoor+90", "\"outdoor+90\" is outside the range of -60 to 60 K"},
          std::pair{"outdoor+12,min 300", "\"min 300\" is outside the range of -100 to 200 degrees Celsius"},
          std::pair{"outdoor+12,min", "\"min\" is not part of a rule such as outdoor+12,min 25"},
          std::pair{"outdoor+12,min 25,min 30", "\"min 30\" is said twice"},
          std::pair{"outdoor+12,outdoor+13", "\"outdoor+13\" is said twice"},
          std::pair{"min 25",
                    "\"min 25\" does not say how far above the outdoor temperature, as "
                    "outdoor+12,min 25"},
          std::pair{"1e9", "\"1e9\" is outside the range of -100 to 200 degrees Celsius"}}) {
        try {
            condensingRuleOf(typed);
            ADD_FAILURE() << typed;
        } catch (const std::invalid_argument& refusal) {
            EXPECT_EQ(refusal.what(), std::string(sentence));
        }
    }
}

}  // namespace
}  // namespace marvello

#include "engine/EvaporatingRule.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>

namespace marvello {
namespace {

TEST(EvaporatingRule, IsFixedOrFollowsTheOutdoorTemperature) {
    const EvaporatingRule fixed = evaporatingRuleOf("-10");
    EXPECT_EQ(fixed.at(-20), -10);
    EXPECT_EQ(fixed.at(40), -10);
    const EvaporatingRule table = evaporatingRuleOf(" 30:-12; -10 : -8 ;10:-10");
    EXPECT_EQ(textOf(table), "-10:-8;10:-10;30:-12");
    EXPECT_EQ(evaporatingRuleOf(textOf(table)), table);
    EXPECT_EQ(evaporatingRuleOf(textOf(fixed)), fixed);
    EXPECT_EQ(table.at(-30), -8);
    EXPECT_EQ(table.at(0), -9);
    EXPECT_EQ(table.at(10), -10);
    EXPECT_DOUBLE_EQ(table.at(25), -11.5);
    EXPECT_EQ(table.at(31), -12);
}

TEST(EvaporatingRule, SaysWhatItCannotRead) {
    for (const auto& [text, sentence] :
         {std::pair{"x",
                    "\"x\" is not a temperature such as -10, or outdoor and evaporating ones such as "
                    "-10:-8;30:-12"},
          std::pair{"-120", "\"-120\" is outside the range of -100 to 100 degrees Celsius"},
          std::pair{"1:2;3", "\"3\" is not an outdoor and an evaporating temperature such as -10:-8"},
          std::pair{"1:2:3", "\"1:2:3\" is not an outdoor and an evaporating temperature such as -10:-8"},
          std::pair{"1:2;1:3", "\"1:2;1:3\" has the outdoor temperature 1 twice"}}) {
        try {
            evaporatingRuleOf(text);
            ADD_FAILURE() << text;
        } catch (const std::invalid_argument& refusal) {
            EXPECT_EQ(refusal.what(), std::string(sentence));
        }
    }
}

}  // namespace
}  // namespace marvello

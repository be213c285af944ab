#include "workspace/ResultsList.h"

#include <gtest/gtest.h>

using namespace marvello;

namespace {

const QLocale english(QLocale::English, QLocale::UnitedKingdom);

clsCompressor compressor() {
    clsCompressor result;
    result.Refrigerant = "R134A";
    result.Serie = "TK-A";
    result.Model = "120";
    result.Fla = 53;
    result.Variables.add("Q0", 68.149);
    result.Variables.add("COP", 3.745);
    result.Variables.add("EER", 12.7779);
    result.Variables.add("Pra", 0.0);
    result.Variables.add("Qeco", 5.0);
    result.Variables.add("Lra1", 0.0);
    result.Variables.add("Tsca", std::string("-"));
    return result;
}

}  // namespace

TEST(ReadOutputs, ReadsTheColumnsAndLeavesBrokenOnesOut) {
    const clsOutputs outputs =
        readOutputs("Q0|Capacity|kW|Cooling capacity|0;COP|COP||Coefficient|2;broken|x;Q0|again|kW||0");
    ASSERT_EQ(outputs.Count(), 2);
    EXPECT_EQ(outputs.Item(1).Key, "Q0");
    EXPECT_EQ(outputs.Item(1).UmDescription, "kW");
    EXPECT_EQ(outputs.Item(1).Description, "Cooling capacity");
    EXPECT_EQ(outputs.Item(2).Visibility, 2);
}

TEST(IsShown, FollowsTheVisibility) {
    struct Case {
        int visibility;
        bool isImperial, hasEconomizer, shown;
    };
    for (const auto& c : {Case{1, false, true, true},
                          {1, false, false, false},
                          {2, false, false, true},
                          {2, true, true, false},
                          {3, true, false, true},
                          {3, false, true, false},
                          {4, true, true, true},
                          {4, true, false, false},
                          {4, false, true, false},
                          {0, false, false, true},
                          {9, false, false, true}})
        EXPECT_EQ(isShown(c.visibility, c.isImperial, c.hasEconomizer), c.shown) << c.visibility;
}

TEST(ResultText, FormatsByKey) {
    clsCompressor c = compressor();
    EXPECT_EQ(resultText(c, "q0", false, english), "68.1");
    EXPECT_EQ(resultText(c, "COP", false, english), "3.75");
    EXPECT_EQ(resultText(c, "eer", false, english), "12.778");
    EXPECT_EQ(resultText(c, "Pra", false, english), "0");
    EXPECT_EQ(resultText(c, "@Lra1", false, english), "-");
    EXPECT_EQ(resultText(c, "@fla", false, english), "53.0");
    EXPECT_EQ(resultText(c, "Tsca", false, english), "-");
    EXPECT_EQ(resultText(c, "Q0", false, QLocale(QLocale::German)), "68,1");
    EXPECT_THROW(resultText(c, "nothing", false, english), VariableError);
}

// Those of the columns are held against the engine's values in tests/gui.
TEST(ResultText, ConvertsForTheImperialSystem) {
    clsCompressor c = compressor();
    c.Variables.add("Pta", 18.2);
    c.Variables.add("T3", 100.0);
    EXPECT_EQ(resultText(c, "t3", true, english), "212.0");
    EXPECT_EQ(resultText(c, "Q0Btu", true, english), "232,800");  // of 68.149 / 3.517 = 19.4 tons shown
    EXPECT_EQ(imperialUnit("mBase"), "lb/h");
    EXPECT_EQ(imperialUnit("T21"), "");
}

TEST(MarkOf, TheWorseFindingWins) {
    clsCompressor c = compressor();
    EXPECT_EQ(markOf(c), "ledgreen");
    c.Messages.Attention.add("a", "a");
    EXPECT_EQ(markOf(c), "ledorange");
    EXPECT_FALSE(isBlank(c));
    c.Variables.add("EcoOK", -1.0);
    EXPECT_EQ(markOf(c), "ledred");
    EXPECT_TRUE(isBlank(c));
    c.Variables.add("EcoOK", 0.0);
    c.Messages.Error.add("e", "e");
    EXPECT_EQ(markOf(c), "ledred");
}

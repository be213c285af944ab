#include "results/Columns.h"

#include <gtest/gtest.h>

#include "data/Session.h"
#include "engine/Verdict.h"

using namespace marvello;

namespace {

using enum UnitSystem;

clsOutput column(const char* key, const char* unit = "") {
    clsOutput result;
    result.Key = key;
    result.UmDescription = unit;
    return result;
}

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
        UnitSystem units;
        bool hasEconomizer, shown;
    };
    for (const auto& c : {Case{1, metric, true, true},
                          {1, metric, false, false},
                          {2, metric, false, true},
                          {2, imperial, true, false},
                          {3, imperial, false, true},
                          {3, metric, true, false},
                          {4, imperial, true, true},
                          {4, imperial, false, false},
                          {4, metric, true, false},
                          {0, metric, false, true},
                          {9, metric, false, true}})
        EXPECT_EQ(isShown(c.visibility, c.units, c.hasEconomizer), c.shown) << c.visibility;
}

TEST(WithSwitched, TurnsRoundWhatTheCatalogueShows) {
    clsOutputs outputs = withSwitched(readOutputs("Q0|Capacity|kW||0;CopEco|COP|||1;@Margin|Margin|K||5"),
                                      {"q0", "@MARGIN", "gone"});
    EXPECT_FALSE(isShown(outputs.Item("Q0").Visibility, metric, false));
    EXPECT_TRUE(isShown(outputs.Item("@margin").Visibility, metric, false));
    EXPECT_EQ(outputs.Item("CopEco").Visibility, 1);
    EXPECT_TRUE(isOffered(5, metric, false));
    EXPECT_FALSE(isOffered(1, metric, false));
    EXPECT_FALSE(isOffered(3, metric, true));
}

TEST(ValueIn, FormatsByKey) {
    clsCompressor c = compressor();
    EXPECT_EQ(valueIn(c, column("q0"), metric).text, "68.1");
    EXPECT_EQ(valueIn(c, column("COP"), metric).text, "3.75");
    EXPECT_EQ(valueIn(c, column("COP"), metric).number, 3.75) << "as it is shown";
    EXPECT_EQ(valueIn(c, column("eer"), metric).text, "12.778");
    EXPECT_EQ(valueIn(c, column("Pra"), metric).text, "0");
    EXPECT_EQ(valueIn(c, column("Pra"), metric).number, 0.0);
    EXPECT_EQ(valueIn(c, column("@Lra1"), metric).text, "-");
    EXPECT_FALSE(valueIn(c, column("@Lra1"), metric).number);
    EXPECT_EQ(valueIn(c, column("@fla"), metric).text, "53.0");
    EXPECT_EQ(valueIn(c, column("Tsca"), metric).text, "-");
    EXPECT_EQ(valueIn(c, column("Q0"), metric, {.point = ","}).text, "68,1");
    EXPECT_EQ(valueIn(c, column("nothing"), metric).text, "  ");
}

// Those of the columns are held against the engine's values in tests/gui.
TEST(ValueIn, ConvertsForTheImperialSystem) {
    clsCompressor c = compressor();
    c.Variables.add("Pta", 18.2);
    c.Variables.add("T3", 100.0);
    EXPECT_EQ(valueIn(c, column("t3"), imperial).text, "212.0");
    EXPECT_EQ(valueIn(c, column("Q0Btu"), imperial).text,
              "232,800");  // of 68.149 / 3.517 = 19.4 tons shown
    EXPECT_EQ(unitText(column("mBase", "kg/h"), imperial), "lb/h");
    EXPECT_EQ(unitText(column("mBase", "kg/h"), metric), "kg/h");
    EXPECT_EQ(unitText(column("Q0Btu", "Btu"), imperial), "Btu/h");
}

TEST(ValueIn, ConvertsAColumnOfAnyNameByItsUnit) {
    const Session session;
    clsCompressor c = compressor();
    c.Variables.add("Pta", 18.2);
    const auto expect = [&c](const char* key, const char* unit, double value, const char* text) {
        c.Variables.add(key, value);
        EXPECT_EQ(valueIn(c, column(key, unit), imperial).text, text) << key;
    };
    expect("T21", "\u00B0C", 100, "212.0");
    expect("Tx", "C", -40, "-40.0");
    expect("SCeco", "K", 5, "9.0");        // 5 * 1.8
    expect("Qc", "kW", 35.17, "10.0");     // / 3.517
    expect("Mx", "kg/h", 1000, "2204.6");  // / 0.45359237
    expect("Ptax", "kW", 20, "20.0");      // power input stays in kW
    expect("Ix", "A", 20, "20.0");
    expect("Pe", "bar", 3, "3.0");
    EXPECT_TRUE(unitText(column("T21", "\u00B0C"), imperial).ends_with("F"));
    EXPECT_EQ(unitText(column("Qc", "kW"), imperial), "Tons");
    EXPECT_EQ(unitText(column("Ptax", "kW"), imperial), "kW");
    EXPECT_TRUE(unitText(column("SCeco", "K"), imperial).ends_with("F"));
}

TEST(VerdictOf, TheWorseFindingWins) {
    clsCompressor c = compressor();
    EXPECT_EQ(verdictOf(c), Verdict::possible);
    c.Messages.Attention.add("a", "a");
    EXPECT_EQ(verdictOf(c), Verdict::possibleWithWarnings);
    c.Variables.add("EcoOK", -1.0);
    EXPECT_EQ(verdictOf(c), Verdict::notPossible);
    c.Variables.add("EcoOK", 0.0);
    c.Messages.Error.add("e", "e");
    EXPECT_EQ(verdictOf(c), Verdict::notPossible);
}

TEST(clsOutputs, RemovesByNameAndAddsByKey) {
    clsOutputs outputs;
    outputs.add("Q0", "Q0", "capacity", "kW", {}, 0);
    outputs.add("q0", "q0", "again", "kW", {}, 1);
    ASSERT_EQ(outputs.Count(), 1);
    EXPECT_EQ(outputs.Item("Q0").Description, "again");
    EXPECT_THROW(outputs.add("Q0", "Power", "", "", {}, 0), std::invalid_argument);
    EXPECT_THROW(outputs.Item("x"), std::out_of_range);
    outputs.add("Pta", "Pta", "power", "kW", {}, 0);
    outputs.Remove(1);
    EXPECT_EQ(outputs.Item(1).Key, "Pta");
    EXPECT_THROW(outputs.Remove(2), std::out_of_range);
}

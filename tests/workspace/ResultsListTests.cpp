#include "workspace/ResultsList.h"

#include <gtest/gtest.h>

#include "workspace/ListOrder.h"
#include "workspace/UnitTexts.h"

using namespace marvello;

namespace {

const QLocale english(QLocale::English, QLocale::UnitedKingdom);

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
    EXPECT_EQ(resultText(c, column("q0"), false, english), "68.1");
    EXPECT_EQ(resultText(c, column("COP"), false, english), "3.75");
    EXPECT_EQ(resultText(c, column("eer"), false, english), "12.778");
    EXPECT_EQ(resultText(c, column("Pra"), false, english), "0");
    EXPECT_EQ(resultText(c, column("@Lra1"), false, english), "-");
    EXPECT_EQ(resultText(c, column("@fla"), false, english), "53.0");
    EXPECT_EQ(resultText(c, column("Tsca"), false, english), "-");
    EXPECT_EQ(resultText(c, column("Q0"), false, QLocale(QLocale::German)), "68,1");
    EXPECT_THROW(resultText(c, column("nothing"), false, english), VariableError);
}

// Those of the columns are held against the engine's values in tests/gui.
TEST(ResultText, ConvertsForTheImperialSystem) {
    clsCompressor c = compressor();
    c.Variables.add("Pta", 18.2);
    c.Variables.add("T3", 100.0);
    EXPECT_EQ(resultText(c, column("t3"), true, english), "212.0");
    EXPECT_EQ(resultText(c, column("Q0Btu"), true, english),
              "232,800");  // of 68.149 / 3.517 = 19.4 tons shown
    EXPECT_EQ(unitText(column("mBase", "kg/h"), true), "lb/h");
    EXPECT_EQ(unitText(column("mBase", "kg/h"), false), "kg/h");
    EXPECT_EQ(unitText(column("Q0Btu", "Btu"), true), "Btu/h");
}

TEST(ResultText, ConvertsAColumnOfAnyNameByItsUnit) {
    clsCompressor c = compressor();
    c.Variables.add("Pta", 18.2);
    const auto expect = [&c](const char* key, const char* unit, double value, const char* text) {
        c.Variables.add(key, value);
        EXPECT_EQ(resultText(c, column(key, unit), true, english), text) << key;
    };
    expect("T21", "\u00B0C", 100, "212.0");
    expect("Tx", "C", -40, "-40.0");
    expect("SCeco", "K", 5, "9.0");        // 5 * 1.8
    expect("Qc", "kW", 35.17, "10.0");     // / 3.517
    expect("Mx", "kg/h", 1000, "2204.6");  // / 0.45359237
    expect("Ptax", "kW", 20, "20.0");      // power input stays in kW
    expect("Ix", "A", 20, "20.0");
    expect("Pe", "bar", 3, "3.0");
    EXPECT_TRUE(unitText(column("T21", "\u00B0C"), true).endsWith("F"));
    EXPECT_EQ(unitText(column("Qc", "kW"), true), "Tons");
    EXPECT_EQ(unitText(column("Ptax", "kW"), true), "kW");
    EXPECT_TRUE(unitText(column("SCeco", "K"), true).endsWith("F"));
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

TEST(UnitTexts, FillsTemperaturesAndDifferencesInBothSystems) {
    const QString space(QChar(0xA0));
    const auto filled = [&](const char* text, MeasureSystem system) {
        return inUnits(text, system, english).replace(space, " ").replace("general.variable03", "");
    };
    EXPECT_EQ(filled("from {T:-50} to {T:+15}, {D:2.5}", MeasureSystem::metric),
              "from -50 C to +15 C, 2.5 K");
    // -50 * 1.8 + 32, 15 * 1.8 + 32, 2.5 * 1.8
    EXPECT_EQ(filled("from {T:-50} to {T:+15}, {D:2.5}", MeasureSystem::imperial),
              "from -58 F to +59 F, 4.5 F");
    EXPECT_EQ(filled("{X:1} {T:} {0}", MeasureSystem::imperial), "{X:1} {T:} {0}");
}

TEST(UnitTexts, ConvertsTechnicalDataThatHaveAMetricUnit) {
    const auto expect = [](const char* value, const char* imperial) {
        EXPECT_EQ(technicalInImperial(QString::fromUtf8(value), english).toStdString(), imperial) << value;
    };
    expect("120 m³/h", "70.6 cfm");  // 120 / 0.0283168 / 60
    expect("286 kg", "631 lb");      // / 0.45359237 = 630.5
    expect("11 l", "2.91 gal");      // / 3.785411784 = 2.906
    expect("2 1/8\"", "2 1/8\"");
    expect("50 hp (37 kW)", "50 hp (37 kW)");
    expect("100 / 75 / 50 / 25 %", "100 / 75 / 50 / 25 %");
    expect("DN 80", "DN 80");
    expect("970 – 3500 min⁻¹", "970 – 3500 min⁻¹");
}

TEST(ListOrderTest, SortsNamesByTheNumbersInThemAndNumbersAsNumbers) {
    QLocale::setDefault(english);
    const QStringList columns{"compressor", "Q0"};
    const auto sorted = [&](const char* column, int clicks) {
        std::vector<ResultsView::Row> rows{{"1", "", "TK-A-120", "", "", {"9.5"}},
                                           {"2", "", "TK-A-90", "", "", {""}},
                                           {"3", "", "TK-A-1000", "", "", {"81.0"}},
                                           {"4", "", "TK-A-100", "", "", {"81.0"}}};
        ListOrder order;
        for (int click = 0; click < clicks; ++click) order.clicked(column);
        order.sort(rows, columns);
        QString keys;
        for (const auto& row : rows) keys += row.key;
        return keys;
    };
    EXPECT_EQ(sorted("compressor", 1), "2413");
    EXPECT_EQ(sorted("compressor", 2), "3142");
    EXPECT_EQ(sorted("compressor", 3), "1234");
    EXPECT_EQ(sorted("Q0", 1), "1342");  // without a value last, equal ones in their order
    EXPECT_EQ(sorted("Q0", 2), "3412");
    QLocale::setDefault(QLocale::c());
}

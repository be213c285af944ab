#include "results/RefrigerantTexts.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/SmallCatalogue.h"

using namespace marvello;

namespace {

class RefrigerantTextsTest : public ::testing::Test {
  protected:
    RefrigerantTextsTest() {
        catalogue.text("technicaldata.refrigerant.short", "{0} · GWP {1}");
        catalogue.text("general.variable03", "°");
        gApplication().populateDictionary("en-EN", "");
    }
    static std::vector<std::string> values(const RefrigerantFacts& facts, UnitSystem units) {
        std::vector<std::string> values;
        for (const TechnicalEntry& entry : factEntries(facts, units)) values.push_back(entry.value);
        return values;
    }

    marvello::testing::SmallCatalogue catalogue;
    /// R407C; 7.0 K are 12.6 °F, -43.63 °C are -46.5 °F and 86.14 °C are 187.1 °F.
    const RefrigerantFacts r407c{"A1", 1774, 1624, 1908, 0, -43.63, 7, 86.14};
};

TEST_F(RefrigerantTextsTest, ClassAndGwpStandInAFewLetters) {
    EXPECT_EQ(shortFacts(r407c, {.group = ","}), "A1 · GWP 1774");
    EXPECT_EQ(shortFacts({.gwpAr4 = 2107}), "- · GWP 2107");
    EXPECT_EQ(shortFacts({.safetyClass = "A3"}), "A3 · GWP -");
    EXPECT_EQ(shortFacts({}), "-");
    EXPECT_EQ(shortFacts({.gwpAr6 = 0.501}), "-");  // the list has the figure of AR4
}

TEST_F(RefrigerantTextsTest, FactsAreShownInTheUnitsOfTheUserAndUnknownOnesAsADash) {
    EXPECT_EQ(values(r407c, UnitSystem::metric),
              (std::vector<std::string>{"A1", "1774 / 1624 / 1908", "0", "-43.6 °C", "7.0 K", "86.1 °C"}));
    EXPECT_EQ(values(r407c, UnitSystem::imperial),
              (std::vector<std::string>{"A1", "1774 / 1624 / 1908", "0", "-46.5 °F", "12.6 °F", "187.1 °F"}));
    EXPECT_EQ(values({.gwpAr4 = 3, .gwpAr6 = 0.02, .odp = 0.055}, UnitSystem::imperial),
              (std::vector<std::string>{"-", "3 / - / 0.02", "0.055", "-", "-", "-"}));
    EXPECT_EQ(values({}, UnitSystem::metric), std::vector<std::string>(6, "-"));
}

// They come after all that the catalogue says of the model.
TEST_F(RefrigerantTextsTest, TechnicalDataEndWithThemIfThereAreAny) {
    catalogue.exec(
        "insert into tParametersHead values('catalog','TK-A-100','eng',9001);"
        "insert into tParametersRows values(9001,'picTecnic','PictureBox','Tag=Net weight|520 kg')");
    clsCompressor compressor;
    compressor.Refrigerant = "R134A";
    compressor.Serie = "TK-A";
    compressor.Model = "100";
    EXPECT_EQ(technicalData(compressor, UnitSystem::metric).size(), 1U);
    catalogue.exec("insert into tRefrigerantFacts(fRefrigeranteId,fSafetyClass) values('R134A','A1')");
    const auto entries = technicalData(compressor, UnitSystem::metric);
    ASSERT_EQ(entries.size(), 8U);
    EXPECT_EQ(entries[0].value, "520 kg");
    EXPECT_EQ(entries[1].value, "R134A");
    EXPECT_TRUE(entries[1].beginsBlock);
    EXPECT_EQ(entries[2].value, "A1");
}

}  // namespace

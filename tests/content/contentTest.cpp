#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>

#include "data/Globals.h"
#include "data/ParameterSets.h"
#include "data/Texts.h"

using namespace marvello;

namespace {

/// The demonstration catalogue as the program opens it.
class CatalogueContent : public testing::Test {
  protected:
    void SetUp() override { gDatabase().Connect("Data Source=" MARVELLO_APP_FOLDER "/db.mdb"); }
    void TearDown() override { releaseGlobals(); }

    static std::set<std::string> languages() {
        std::set<std::string> found;
        for (auto rows = gDatabase().Execute("Select * from tLanguages order by fLanguage"); !rows.eof();
             rows.moveNext())
            found.insert(rows.text("fLanguage"));
        return found;
    }
};

TEST_F(CatalogueContent, KeepsCaptionsWithinThePanel) {
    const std::set<std::string> second{"txttem", "txttcm", "txtpe", "txtpc"};
    const auto letters = [](const std::string& text) {
        return std::ranges::count_if(text,
                                     [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; });
    };
    int captions = 0;
    for (const auto& language : languages()) {
        gApplication().populateDictionary("en-EN", language);
        for (const auto& row : readParameterSet("frm", "frmSelection", "populate", [](const auto& key) {
                 return gApplication().DictionaryRead(key);
             })) {
            if (row.property != "CaptionText") continue;
            ++captions;
            EXPECT_LE(letters(row.value), second.contains(lowered(row.object)) ? 9 : 17) << row.value;
        }
    }
    EXPECT_GE(captions, 96);  // sixteen inputs have a caption, in each of six languages
}

TEST_F(CatalogueContent, OffersTheNeutralKeysOfTheSelectors) {
    gApplication().populateDictionary("en-EN", "");
    std::map<std::string, std::string> choices;
    for (const auto& row : readParameterSet("frm", "frmselection", "populate", [](const auto& key) {
             return gApplication().DictionaryRead(key);
         }))
        if (row.property == "Tag1") choices[row.object] = row.value;
    EXPECT_EQ(ListLookup("0", choices["cmbSh"]), "Superheat");
    EXPECT_EQ(ListLookup("0", choices["cmbEco"]), "None");
    EXPECT_EQ(ListLookup("1", choices["cmbOilCooling"]), "Automatic");
    EXPECT_EQ(ListLookup("400_50", choices["cmbMotorVoltage"]), "400 V / 50 Hz");
    EXPECT_EQ(ListLookup("-1", choices["cmbMotorSize"]), "Not chosen");
    EXPECT_EQ(ListLookup("1450", choices["cmbMotorRPM"]), "1450");
}

/// Reference states of the multi-fluid Helmholtz model at 23/25/52 % by mass. At 1541.3207 kPa the dew point
/// is 40 C; between the bubble points 30 C (1359.1127 kPa) and 35 C (1545.0030 kPa) the bubble point is there
/// 34.906 C, by ln p.
TEST_F(CatalogueContent, TurnsMeanIntoDewTemperatureOfR407C) {
    auto condensing =
        gDatabase().Execute("Select * from tPolynomials where fPolynomialID='R407CTCM' and fType=4");
    const double mean = (40 + 34.906) / 2;
    const double dew = condensing.number("fC1") + condensing.number("fC2") * mean +
                       condensing.number("fC4") * mean * mean + condensing.number("fC7") * mean * mean * mean;
    EXPECT_NEAR(dew, 40, 0.03);

    // Liquid of 252.258 kJ/kg throttled to 214.6924 kPa, the dew pressure of -20 C, enters at -24.298 C.
    auto evaporating =
        gDatabase().Execute("Select * from tPolynomials where fPolynomialID='R407CTEM' and fType=4");
    const auto c = [&](int index) { return evaporating.number("fC" + std::to_string(index)); };
    const double x = (-20 - 24.298) / 2;
    const double h = 252.258;
    EXPECT_NEAR(c(1) + c(2) * x + c(3) * h + c(4) * x * x + c(5) * x * h + c(6) * h * h + c(7) * x * x * x +
                    c(8) * x * x * h + c(9) * x * h * h + c(10) * h * h * h,
                -20, 0.1);
}

}  // namespace

// The form of inverter compressors, in what it differs from the other.

#include <QLabel>

#include "tests/workspace/WorkspaceFixture.h"
#include "workspace/frmselectionInverter.h"

using namespace marvello;
using namespace marvello::testing;

namespace {

class InverterFormTest : public FormFixture<frmselectionInverter> {
  protected:
    InverterFormTest() {
        const std::map<std::string, std::string> onInverter{
            {"fhasInverter", "1"}, {"fSerieID", "'TK-B'"}, {"fInverterCaC3", "0.9"}};
        const auto model = [&](std::map<std::string, std::string> changes) {
            changes.insert(onInverter.begin(), onInverter.end());
            catalogue.compressor(changes);
        };
        // Capacity (0.1 r^2 - 0.2 r + 0.1 + 1) r with r = f / 50.
        model({{"fModelID", "'140'"},
               {"fInverterQ0C1", "0.1"},
               {"fInverterQ0C2", "-0.2"},
               {"fInverterQ0C3", "0.1"}});
        model({{"fModelID", "'165'"}, {"fMarket", "1"}});
        open();
    }
    /// The capacity that the list gives for TK-B-140 at a frequency.
    double capacityAt(const char* frequency) {
        type(*form, "txtFrequency", frequency);
        calculate();
        EXPECT_EQ(list()->rowCount(), 3);
        EXPECT_EQ(list()->text(1, 0), "TK-B-140");
        return QLocale().toDouble(list()->text(1, 1));
    }
};

}  // namespace

TEST_F(InverterFormTest, ListsInverterCompressorsOfAllMarketsAndSwitchesNothingOff) {
    EXPECT_EQ(field(*form, "lstRefrigerants")->Tag1(), "R134A|R134A");
    EXPECT_EQ(field(*form, "lstSeries")->Tag1(), "TK-B|TK-B");
    EXPECT_EQ(field(*form, "lstModels")->Tag1(), "*|ALL;140|140;165|165");
    for (const char* name :
         {"cmbEco", "cmbOilCooling", "cmbMotorVoltage", "cmbMotorSize", "cmbMotorRPM", "cmbStepCapacity"})
        EXPECT_TRUE(field(*form, name)->isEnabled()) << name;
    EXPECT_EQ(field(*form, "txtFrequency")->TextText(), "50.00");
    EXPECT_EQ(field(*form, "cmbOilCooling")->TextText(), "Automatic");
    field(*form, "txtTCD")->setFocus();
    EXPECT_FALSE(control<QLabel>(*form, "rtfHelp")->isVisible());
    form->Traduci();  // the captions anew, and no value
    EXPECT_EQ(field(*form, "txtFrequency")->TextText(), "50.00");
}

TEST_F(InverterFormTest, TheFrequencyStaysWithinItsRangeAndIsCalculatedWith) {
    const double usual = capacityAt("50");
    ASSERT_GT(usual, 0);
    // r = 1.4: (0.1 * 1.96 - 0.2 * 1.4 + 0.1 + 1) * 1.4 = 1.4224; values are listed with one decimal.
    EXPECT_NEAR(capacityAt("70.1") / usual, 1.4224, 0.1 / usual);
    EXPECT_EQ(field(*form, "txtFrequency")->TextText(), "70.00");
    // r = 0.4: (0.016 - 0.08 + 0.1 + 1) * 0.4 = 0.4144
    EXPECT_NEAR(capacityAt("19.9") / usual, 0.4144, 0.1 / usual);
    EXPECT_EQ(field(*form, "txtFrequency")->TextText(), "20.00");
    EXPECT_TRUE(boxes.isEmpty()) << boxes.join("|").toStdString();
    // Any change of the models discards the results.
    choose(*form, "lstModels", "140");
    EXPECT_FALSE(form->hasResults());
}

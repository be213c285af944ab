#include "results/TechnicalData.h"

#include <gtest/gtest.h>

#include "data/Session.h"

using namespace marvello;

namespace {

const Session session;

clsCompressor calculated() {
    clsCompressor compressor;
    compressor.Motor.Voltage = 460;
    compressor.Motor.Phase = 3;
    compressor.Motor.Hz = 60;
    compressor.Motor.NominalPower = "40 hp (30 kW)";
    compressor.VI = "2.6";
    compressor.Variables.add("Lra1", 210.5);
    compressor.Variables.add("Lra2", 350.49);
    compressor.Variables.add("Fla", 61.2);
    return compressor;
}

}  // namespace

TEST(MotorDescription, ReplacesItsTokensWhateverTheirCase) {
    const clsCompressor compressor = calculated();
    clsCompressor onInverter = calculated();
    onInverter.hasInvert = true;
    const struct {
        const char* text;
        const char* expected;
    } cases[]{
        {"@Motor.VoltageDescription V/ph/Hz", "460/3/60 V/ph/Hz"},
        {"@MOTOR.voltagedescription", "460/3/60"},
        {"@Motor.NominalPower", "40 hp (30 kW)"},
        {"@Motor.Lra1 A / @Motor.Lra2 A", "211 A / 350 A"},  // half away from zero
        {"@cps.fla A, @Cps.Fla A", "61 A, 61 A"},
        {"info@kestrom", "info@kestrom"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(MotorDescription(text, compressor), expected) << text;
    EXPECT_EQ(MotorDescription("Vi @Cps.Vi", onInverter), "Vi 2.6");
    EXPECT_EQ(MotorDescription("Vi @cps.VI", compressor), "Vi @cps.VI");
}

// Without a dictionary the keys are the texts.
TEST(MotorDescription, NamesTheSizeAndTheStartOfTheMotor) {
    const std::string standard = "technicaldata.motor.standard";
    const std::string small = "frmselection.cmbmotorsize.item0";
    const std::string full = "frmselection.cmbmotorsize.item1";
    const struct {
        bool isStandard, hasBoth;
        int type;
        std::string expected;
    } sizes[]{
        {true, false, 0, standard},
        {true, false, 1, standard},
        {true, true, 0, standard + " (" + small + ")"},
        {true, true, 1, standard + " (" + full + ")"},
        {false, true, 0, small},
        {false, true, 1, full},
    };
    clsCompressor compressor = calculated();
    for (const auto& [isStandard, hasBoth, type, expected] : sizes) {
        compressor.Motor.isStandard = isStandard;
        compressor.hasFullSmallMotor = hasBoth;
        compressor.Motor.MotorType = static_cast<MotorChoice>(type);
        EXPECT_EQ(MotorDescription("@cps.motorsize", compressor), expected);
    }
    const char* starts[]{"-", "technicaldata.start.stardelta", "technicaldata.start.partwinding", "-"};
    for (const int mode : {0, 1, 2, 3}) {
        compressor.StartMode = mode;
        EXPECT_EQ(MotorDescription("@cps.startmode", compressor), starts[mode]);
    }
}

TEST(MotorDescription, AValueThatIsNotThereTakesItsUnitWithIt) {
    clsCompressor compressor = calculated();
    compressor.Variables.Clear();
    EXPECT_EQ(MotorDescription("@Motor.Lra1 A", compressor), "");
    EXPECT_EQ(MotorDescription("@Motor.Lra2", compressor), "");
    compressor.Variables.add("Fla", 0.4);  // no digit before the mark, and none behind it
    EXPECT_EQ(MotorDescription("max. @Cps.Fla A", compressor), "max. ");
}

TEST(TechnicalInImperial, ConvertsWhatHasAMetricUnit) {
    const auto expect = [](const char* value, const char* imperial) {
        EXPECT_EQ(technicalInImperial(value), imperial) << value;
    };
    expect("120 m³/h", "70.6 cfm");  // 120 / 0.0283168 / 60
    expect("286 kg", "631 lb");      // / 0.45359237 = 630.5
    expect("11 l", "2.91 gal");      // / 3.785411784 = 2.906
    expect("2 1/8\"", "2 1/8\"");
    expect("50 hp (37 kW)", "50 hp (37 kW)");
    expect("100 / 75 / 50 / 25 %", "100 / 75 / 50 / 25 %");
    expect("11 l (12 kg)", "2.91 gal (26.5 lb)");
    expect("3 kg/h, 1.2.3 kg", "3 kg/h, 1.2.3 kg");
    expect("DN 80", "DN 80");
    expect("970 – 3500 min⁻¹", "970 – 3500 min⁻¹");
}

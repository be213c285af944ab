#include "workspace/MotorDescription.h"

#include "tests/workspace/WorkspaceFixture.h"

using namespace marvello;

namespace {

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
        EXPECT_EQ(MotorDescription(text, compressor, false).toStdString(), expected) << text;
    EXPECT_EQ(MotorDescription("Vi @Cps.Vi", compressor, true), "Vi 2.6");
    EXPECT_EQ(MotorDescription("Vi @cps.VI", compressor, false), "Vi @cps.VI");
}

class MotorTexts : public marvello::testing::WorkspaceFixture {};

TEST_F(MotorTexts, TellTheSizeAndTheStartOfTheMotor) {
    gApplication().populateDictionary("en-EN", "");
    const struct {
        bool isStandard, hasBoth;
        int type;
        const char* expected;
    } sizes[]{
        {true, false, 0, "Standard"},       {true, false, 1, "Standard"}, {true, true, 0, "Standard (Small)"},
        {true, true, 1, "Standard (Full)"}, {false, true, 0, "Small"},    {false, true, 1, "Full"},
    };
    clsCompressor compressor = calculated();
    for (const auto& [isStandard, hasBoth, type, expected] : sizes) {
        compressor.Motor.isStandard = isStandard;
        compressor.hasFullSmallMotor = hasBoth;
        compressor.Motor.MotorType = static_cast<MotorChoice>(type);
        EXPECT_EQ(MotorDescription("@cps.motorsize", compressor, false).toStdString(), expected);
    }
    const char* starts[]{"-", "Star Delta (SD)", "Part Winding (PW)", "-"};
    for (const int mode : {0, 1, 2, 3}) {
        compressor.StartMode = mode;
        EXPECT_EQ(MotorDescription("@cps.startmode", compressor, false).toStdString(), starts[mode]);
    }
    gApplication().populateDictionary("en-EN", "it-IT");
    compressor.StartMode = 1;
    EXPECT_EQ(MotorDescription("@cps.startmode", compressor, false), "Stella-triangolo (SD)");
}

TEST(MotorDescription, AValueThatIsNotThereTakesItsUnitWithIt) {
    clsCompressor compressor = calculated();
    compressor.Variables.Clear();
    EXPECT_EQ(MotorDescription("@Motor.Lra1 A", compressor, false), "");
    EXPECT_EQ(MotorDescription("@Motor.Lra2", compressor, false), "");
    compressor.Variables.add("Fla", 0.4);  // no digit before the mark, and none behind it
    EXPECT_EQ(MotorDescription("max. @Cps.Fla A", compressor, false).trimmed(), "max.");
}

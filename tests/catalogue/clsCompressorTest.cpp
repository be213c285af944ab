#include "catalogue/clsCompressor.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <string>

#include "catalogue/Globals.h"
#include "data/Arithmetic.h"
#include "data/Session.h"
#include "tests/support/SmallCatalogue.h"

namespace marvello {
namespace {

class clsCompressorTest : public ::testing::Test {
  protected:
    bool load(clsCompressor& compressor, int hz = 50, int motorSize = -1, bool economized = false,
              std::uint8_t step = 100) {
        return compressor.GetCompressorFromDb(gDatabase(), project, "R134A", serie, "100", hz, 1450,
                                              motorSize, economized, step);
    }

    testing::SmallCatalogue catalogue;
    clsProjectConditions project;
    std::string serie = "TK-A";
};

TEST_F(clsCompressorTest, ARowBecomesACompressor) {
    catalogue.compressor();
    catalogue.completeDefault();
    clsCompressor c;
    ASSERT_TRUE(load(c));
    EXPECT_EQ(c.Key(), "R134A-TK-A-010-100");
    EXPECT_EQ(c.PolynomialQ0.c[1], 3);
    EXPECT_EQ(c.polynomialPta.c[2], 0.25);
    EXPECT_EQ(c.PolynomialSh.Sh, 10);
    EXPECT_EQ(c.OilCoolingLimit, 95);
    EXPECT_EQ(c.Motor.NominalPower, "37 kW");
    EXPECT_TRUE(c.Motor.isStandard);
    EXPECT_EQ(c.limits.Count(), 1);
    clsCompressor none;
    EXPECT_FALSE(
        none.GetCompressorFromDb(gDatabase(), project, "R134A", serie, "999", 50, 0, -1, false, 100));
    EXPECT_EQ(none.Key(), "---");
}

TEST_F(clsCompressorTest, EachColumnGoesToItsOwnPlace) {
    std::map<std::string, std::string> columns{
        {"fVI", "'3.2'"},           {"fStartMode", "2"},          {"fCtsca", "1.25"},
        {"fPolynomialQ0ID", "'Q'"}, {"fPolynomialPassID", "'P'"}, {"fPolynomialShID", "'D'"}};
    int value = 0;
    for (const char* name : {"fInverterQ0C1", "fInverterQ0C2", "fInverterQ0C3", "fInverterPtaC1",
                             "fInverterPtaC2", "fInverterPtaC3", "fInverterCaC1", "fInverterCaC2",
                             "fInverterCaC3", "fKForo", "fKPerdita", "fSez", "fValue1"})
        columns[name] = std::to_string(++value);
    catalogue.compressor(columns);
    catalogue.motor(1, {21, 22, 23, 24, 25}, 26, 27);
    catalogue.limit("E", 0, "0,0;1,0;1,1;0,0");
    clsCompressor c;
    ASSERT_TRUE(load(c));
    EXPECT_EQ(c.VI, "3.2");
    EXPECT_EQ(c.StartMode, 2);
    EXPECT_EQ(c.ctsca, 1.25F);
    const clsInverter& i = c.InverterInfo;
    EXPECT_EQ((std::array{i.Q0C1, i.Q0C2, i.Q0C3, i.PtaC1, i.PtaC2, i.PtaC3, i.CaC1, i.CaC2, i.CaC3}),
              (std::array<double, 9>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
    EXPECT_EQ((std::array{c.Economizer.KForo, c.Economizer.KPerdita, c.Economizer.Sez, c.KValues.Value1}),
              (std::array<double, 4>{10, 11, 12, 13}));
    EXPECT_EQ(c.Motor.c, (std::array<double, 5>{21, 22, 23, 24, 25}));
    EXPECT_EQ((std::array{c.Motor.Lra1, c.Motor.Lra2}), (std::array<double, 2>{26, 27}));
    EXPECT_EQ(c.Motor.Phase, 3);
    EXPECT_EQ(c.PolynomialQ0.Name + c.polynomialPta.Name + c.PolynomialSh.Name, "QPD");
}

TEST_F(clsCompressorTest, SixtyHertzScalesTheSurfacesAlone) {
    catalogue.compressor();
    catalogue.completeDefault();
    clsCompressor c;
    load(c, 60);
    EXPECT_EQ(c.PolynomialQ0.c[1], 3 * static_cast<double>(1.2F));
    EXPECT_EQ(c.polynomialPta.c[0], 5 * static_cast<double>(1.2F));
    EXPECT_EQ(c.PolynomialSh.c[0], 60);
    EXPECT_EQ(c.Motor.Hz, 60);
    EXPECT_EQ(c.Motor.ID, 1);  // read from the row of 50 Hz
    clsCompressor other;
    load(other, 0);  // no other frequency scales
    EXPECT_EQ(other.PolynomialQ0.c[1], 3);
}

TEST_F(clsCompressorTest, AnOpenDriveGoesBySpeed) {
    serie = "NL-H";
    catalogue.compressor({{"fSerieID", "'NL-H'"}});
    catalogue.surfaces(1450, {7}, {2});
    catalogue.limit("E", 0, "0,0;1,0;1,1;0,0");
    clsCompressor c;
    load(c, 60);
    EXPECT_EQ(c.PolynomialQ0.c[0], 7);  // unscaled at 60 Hz, and without the row of a step
    EXPECT_FALSE(c.Motor.isValid());
}

TEST_F(clsCompressorTest, SmallAndFullMotor) {
    catalogue.compressor({{"fhasFullSmallMotor", "1"},
                          {"fisSmallMotorStandard", "1"},
                          {"fFla", "100"},
                          {"fFla2", "80"},
                          {"fMotorSmallID", "2"}});
    catalogue.completeDefault();
    catalogue.motor(2, {1, 0, 0, 0, 0});
    struct Case {
        int size;
        double fla;
        int motor, type;
        bool standard;
    };
    for (const Case& expected :
         {Case{-1, 80, 2, 0, true}, Case{0, 80, 2, 0, true}, Case{1, 100, 1, 1, false}}) {
        clsCompressor c;
        load(c, 50, expected.size);
        EXPECT_EQ(c.Fla, expected.fla) << expected.size;
        EXPECT_EQ(c.Motor.ID, expected.motor);
        EXPECT_EQ(codeOf(c.Motor.MotorType), expected.type);
        EXPECT_EQ(c.Motor.isStandard, expected.standard);
    }
}

TEST_F(clsCompressorTest, WithoutThePairTheSizeIsIgnoredAndNullSequenceLeavesTwoDashes) {
    catalogue.compressor({{"fSequence", "NULL"}, {"fFla2", "80"}, {"fMotorSmallID", "2"}});
    catalogue.completeDefault();
    clsCompressor c;
    load(c, 50, 0);
    EXPECT_EQ(c.Fla, 50);
    EXPECT_EQ(c.Motor.ID, 1);
    EXPECT_EQ(c.Key(), "R134A-TK-A--100");
    // Reading the second rated current moves it into the first.
    EXPECT_EQ(c.Fla2(), 0);
    EXPECT_EQ(c.Fla, 80);
}

TEST_F(clsCompressorTest, EconomizedTakesItsOwnEnvelopeAndLimit) {
    catalogue.compressor({{"fLimitEconomizedID", "'X'"}});
    catalogue.completeDefault();
    catalogue.limit("X", 11, "0,0;1,0;1,1;0,0");
    clsCompressor c;
    load(c, 50, -1, true);
    EXPECT_EQ(c.OilCoolingLimit, 90);
    EXPECT_TRUE(c.limits.FindLimitType(11));
}

TEST_F(clsCompressorTest, MissingPartsLoadAndFaultyOnesSaySo) {
    catalogue.compressor({{"fMotorFullID", "77"}, {"fLimitID", "'none'"}});
    clsCompressor empty;
    EXPECT_TRUE(load(empty, 50, -1, false, 50));
    EXPECT_FALSE(empty.PolynomialQ0.isOK());
    EXPECT_EQ(empty.Motor.ID, -1);
    EXPECT_EQ(empty.limits.Count(), 0);
    catalogue.limit("none", 0, "0,0;1");
    try {
        clsCompressor c;
        load(c);
        FAIL();
    } catch (const std::invalid_argument& fault) {
        EXPECT_STREQ(
            fault.what(),
            "The envelope none of TK-A 100 does not parse: \"1\" is no point \"x,y\" of an envelope line.");
    }
}

class inverterTest : public clsCompressorTest {
  protected:
    inverterTest() {
        serie = "TK-D";
        project.InverterFrequency = 25;
        project.TEvaporatingDew = 0;
        project.TCondensationDew = 40;
        catalogue.compressor({{"fSerieID", "'TK-D'"}, {"fhasInverter", "1"}});
        catalogue.motor(1, {});
    }
};

TEST_F(inverterTest, TheVolumeRatioOfTheBestEfficiencyWins) {
    catalogue.surfaces(22, {30}, {10});
    catalogue.surfaces(26, {40}, {10});
    catalogue.surface("S", 0, 32, {80});  // equal efficiency: the smaller ratio stays
    catalogue.surface("S", 1, 32, {20});
    clsCompressor c;
    load(c);
    EXPECT_EQ(c.InverterInfo.ViSelected, "26");
    EXPECT_EQ(c.VI, "2.6");
    EXPECT_EQ(c.PolynomialQ0.c[0], 20);  // half speed, no coefficients: factor 0.5
}

TEST_F(inverterTest, CapacityAndPowerFollowTheirOwnLaws) {
    catalogue.exec("update tCompressors set fInverterQ0C3=0.5, fInverterPtaC3=-0.2");
    catalogue.surface("S", 0, 22, {-30});  // even where the efficiency is negative
    catalogue.surface("S", 1, 22, {10});
    clsCompressor c;
    load(c, 60);  // 1.2 for the supply, 0.5 (1 + 0.5) and 0.5 (1 - 0.2) for the inverter at 25 Hz
    EXPECT_NEAR(c.PolynomialQ0.c[0], -30 * static_cast<double>(1.2F) * 0.75, 1e-12);
    EXPECT_NEAR(c.polynomialPta.c[0], 10 * static_cast<double>(1.2F) * 0.4, 1e-12);
}

TEST_F(inverterTest, AnIncompletePairSpoilsTheModel) {
    catalogue.surfaces(22, {30}, {10});
    catalogue.surface("S", 0, 26, {40});
    catalogue.surfaces(32, {50}, {10});
    clsCompressor c;
    load(c);
    EXPECT_FALSE(c.PolynomialQ0.isOK());
    EXPECT_FALSE(c.polynomialPta.isOK());
    EXPECT_EQ(c.InverterInfo.ViSelected, "22");
}

TEST_F(inverterTest, APowerOfZeroIsAFault) {
    catalogue.surfaces(22, {30}, {10, 0, -0.25});  // nothing at 40 degC, though its sum is sound
    clsCompressor c;
    EXPECT_THROW(load(c), ArithmeticFault);
}

TEST_F(inverterTest, OtherSeriesReadTheRow100) {
    serie = "TK-B";
    catalogue.compressor({{"fSerieID", "'TK-B'"}, {"fhasInverter", "1"}});
    catalogue.surfaces(22, {30}, {10});
    clsCompressor c;
    load(c);
    EXPECT_FALSE(c.PolynomialQ0.isOK());
    EXPECT_EQ(c.VI, "2.6");
}

TEST_F(clsCompressorTest, AClone) {
    catalogue.compressor({{"fFla2", "80"}});
    catalogue.completeDefault();
    clsCompressor c;
    load(c);
    c.Variables.add("Q0", 5.0, "capacity", "kW", "t");
    c.Messages.Error.add("a", "a");
    const clsCompressor copy = c.Clone();
    EXPECT_EQ(c.Fla, 80);     // the side effect of reading Fla2
    EXPECT_EQ(copy.Fla, 50);  // taken before it
    EXPECT_EQ(copy.Variables.Item("q0").Description(), "capacity");
    EXPECT_EQ(copy.Messages.Error.Count(), 0);
    EXPECT_EQ(copy.VI, "");
    EXPECT_FALSE(copy.hasInvert);
    EXPECT_NE(&copy.limits.Item(1), &c.limits.Item(1));
    EXPECT_EQ(copy.limits.Item(1).Points.Count(), 5);
}

TEST_F(clsCompressorTest, TheSharedSurfacesOfMeanTemperatures) {
    loadSharedPolynomials();
    EXPECT_FALSE(gPolynomialTEM().isOK());  // no rows: zero, and nothing said
    catalogue.surface("R407CTEM", 4, 0, {1, 2});
    catalogue.surface("R407CTCM", 4, 0, {3, 4});
    loadSharedPolynomials();
    EXPECT_EQ(gPolynomialTEM().c[1], 2);
    EXPECT_EQ(gPolynomialTCM().c[1], 4);
    EXPECT_EQ(gPolynomialTEM().Name + ", " + gPolynomialTCM().Name, "Polynomial TEM, Polynomial TCM");
}

}  // namespace
}  // namespace marvello

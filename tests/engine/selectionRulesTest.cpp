#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/engine/EngineFixture.h"

namespace marvello {
namespace {

using testing::keys;

constexpr const char* wide = "-40,0;40,0;40,90;-40,90;-40,0";

class selectionRules : public testing::EngineFixture {
  protected:
    /// A complete compressor with some columns changed and further lines around every point.
    void given(const std::map<std::string, std::string>& changes, const std::vector<int>& around = {}) {
        catalogue.compressor(changes);
        catalogue.completeDefault();
        for (const int type : around) catalogue.limit("E", type, wide);
    }

    const ClsSelectionMessages& said(const std::string& refrigerant = "R134A",
                                     const std::string& serie = "TK-A") {
        return select(refrigerant, serie).Messages;
    }

    /// Changes the compressor to another series, and more if told; then it is asked for there.
    const ClsSelectionMessages& saidAs(const std::string& serie, const std::string& more = "") {
        catalogue.exec("update tCompressors set fSerieID='" + serie + "'" + more);
        return said(catalogueRefrigerant, serie);
    }

    void expectSaid(const ClsSelectionMessages& messages, const std::vector<const char*>& error,
                    const std::vector<const char*>& attention, const std::vector<const char*>& information) {
        EXPECT_EQ(names(messages.Error), keys(error));
        EXPECT_EQ(names(messages.Attention), keys(attention));
        EXPECT_EQ(names(messages.Information), keys(information));
    }

    std::string catalogueRefrigerant = "R134A";
};

TEST_F(selectionRules, OutsideEveryLine) {
    given({});
    conditions.TEvaporatingDew = 16;
    const clsCompressor& c = select();
    expectSaid(c.Messages, {"01"}, {}, {});
    EXPECT_EQ(c.Variables.Count(), 19);  // those of the preparation
}

TEST_F(selectionRules, AForbiddenRegionSilencesAllButTheFrequency) {
    given({{"fSerieID", "'TK-C'"}, {"fhasInverter", "1"}}, {11, 14, 7});
    conditions.StepCapacity = 50;
    conditions.InverterFrequency = 70.1F;
    expectSaid(said("R134A", "TK-C"), {"02", "35"}, {}, {});
}

TEST_F(selectionRules, CapacityStepsSpeakTwice) {
    given({}, {6});
    catalogue.surfaces(75, {50}, {10});
    conditions.StepCapacity = 75;
    expectSaid(said(), {}, {}, {"30", "30"});
    conditions.StepCapacity = 50;  // no line of 50 %, and no row
    expectSaid(said(), {"29", "31", "31"}, {}, {});
    catalogue.surfaces(50, {50}, {10});
    expectSaid(said(), {"29", "29"}, {}, {});
}

TEST_F(selectionRules, StepNoteOfTheSeriesWithSteps) {
    given({{"fSerieID", "'TK-A(P)'"}}, {4});
    expectSaid(said("R134A", "TK-A(P)"), {}, {}, {"28", "28"});
    expectSaid(saidAs("TK-A(Q)"), {}, {}, {"28", "28"});
    catalogue.surfaces(25, {50}, {10});
    conditions.StepCapacity = 25;
    expectSaid(said("R134A", "TK-A(Q)"), {}, {}, {"30", "30"});
}

TEST_F(selectionRules, AMissingMotorThatAnOpenDriveDoesNotNeed) {
    given({{"fMotorFullID", "9"}});
    expectSaid(said(), {"33"}, {}, {});
    catalogue.surfaces(1450, {50}, {10});
    expectSaid(saidAs("NL-H"), {}, {}, {});
}

TEST_F(selectionRules, OverLimitOilFilterAndSuggestions) {
    given({}, {-1, 7, 10});
    expectSaid(said(), {}, {"03"}, {"10"});
    catalogue.limit("E", 9, wide);
    expectSaid(said(), {}, {"03"}, {"09"});
    conditions.TEvaporatingDew = 17;  // outside the application limit, inside the over limit
    expectSaid(said(), {}, {"02", "03"}, {"09"});
}

TEST_F(selectionRules, SmallAndFullMotor) {
    given({{"fhasFullSmallMotor", "1"}});
    catalogue.limit("E", 3, "-20,20;15,20;15,50;-20,50;-20,20");
    conditions.MotorSize = MotorChoice::full;
    expectSaid(said(), {}, {}, {"04"});
    conditions.MotorSize = MotorChoice::small;
    expectSaid(said(), {}, {}, {});
    conditions.TCondensationDew = 55;  // above the small motor's line
    expectSaid(said(), {"05"}, {}, {});
}

TEST_F(selectionRules, InjectionAndOilBySeries) {
    given({}, {1});
    expectSaid(said(), {}, {"07"}, {});
    for (const char* serie : {"GH4", "GH"}) expectSaid(saidAs(serie), {}, {"06"}, {});
    catalogue.limit("E", 2, wide);
    expectSaid(saidAs("GH4"), {}, {"16"}, {});
    expectSaid(saidAs("GH", ", fModelID='10H'"), {}, {"14"}, {});
    expectSaid(saidAs("GH", ", fModelID='10S'"), {}, {"15"}, {});
}

TEST_F(selectionRules, OilLoadBesideTheInjectionLine) {
    given({});
    catalogue.limit("E", 1, "-20,55;15,55;15,60;-20,60;-20,55");
    expectSaid(said(), {}, {"07"}, {});
    expectSaid(saidAs("GH"), {}, {"17"}, {});
    conditions.OilCoolingCalculateMode = OilCoolingMode::none;  // no load, nothing to say
    expectSaid(said("R134A", "GH"), {}, {}, {});
}

TEST_F(selectionRules, InverterFrequencyCeilings) {
    given({{"fSerieID", "'TK-C'"}, {"fhasInverter", "1"}}, {12});
    catalogue.text("messages.message35", "never shown");
    gApplication().populateDictionary("en-EN", "");
    const auto saysAt = [&](float frequency) {
        conditions.InverterFrequency = frequency;
        const ClsSelectionMessages& messages = said("R134A", "TK-C");
        return messages.Error.Count() == 0 ? "" : messages.Error.Item(1).Description();
    };
    EXPECT_EQ(saysAt(50), "");
    EXPECT_EQ(saysAt(50.1F), "<=50 hz");
    catalogue.limit("E", 13, wide);  // a higher line makes the lower ones not looked at
    EXPECT_EQ(saysAt(60), "");
    EXPECT_EQ(saysAt(60.1F), "<=60 hz");
    catalogue.limit("E", 14, wide);
    EXPECT_EQ(saysAt(70), "");
    EXPECT_EQ(saysAt(70.1F), "<= 70 hz");
}

TEST_F(selectionRules, SubcoolingAndSuperheat) {
    given({});
    catalogue.text("messages.message12", "Too much subcooling");
    gApplication().populateDictionary("en-EN", "");
    // The highest subcooling: (45 - 3.195075196) * 0.8 = 33.44393984, shown as 33.44.
    conditions.SubCooling = 33.44;
    expectSaid(said(), {}, {}, {});
    conditions.SubCooling = 33.45;
    conditions.SuperHeat = 20.001;
    expectSaid(said(), {"12", "13"}, {}, {});
    EXPECT_EQ(selections.Item(1).Messages.Error.Item(1).Description(), "Too much subcooling (33.44)");
    EXPECT_NEAR(selections.Item(1).Variables("Sh"), 20.0011, 1e-12);  // added to before the gate
    EXPECT_FALSE(selections.Item(1).Variables.Exist("Tga"));
    conditions.SubCooling = -0.1;
    conditions.SuperHeat = 1000;
    expectSaid(said(), {"12", "13"}, {}, {});
    conditions.SubCooling = 5;
    conditions.SuperHeatType = SuperheatKind::temperature;
    conditions.SuperHeat = 15;
    expectSaid(said(), {}, {}, {});
    conditions.SuperHeat = 15.1;
    expectSaid(said(), {"13"}, {}, {});
    conditions.SuperHeat = -5.1;
    expectSaid(said(), {"13"}, {}, {});
}

TEST_F(selectionRules, PropaneMayBeSuperheatedFurtherAndSaysWhatItIs) {
    given({{"fRefrigerantID", "'R290'"}});
    conditions.SuperHeat = 40;
    expectSaid(said("R290"), {}, {"36"}, {"28", "35"});
    conditions.SuperHeat = 40.1;
    expectSaid(said("R290"), {"13"}, {}, {});
}

TEST_F(selectionRules, ClosingRulesBySeries) {
    catalogue.exec(
        "insert into tRefrigeranti values('R404A'),('R507');"
        "insert into tFluidi values('R404A','R134A.FLD',1),('R507','R134A.FLD',1)");
    given({{"fRefrigerantID", "'R404A'"}});
    catalogueRefrigerant = "R404A";
    expectSaid(saidAs("MV-E"), {}, {"18"}, {});
    expectSaid(saidAs("MV-A(V)"), {}, {"20"}, {"19"});
    expectSaid(saidAs("DZ", ", fModelID='7J100'"), {}, {}, {"34"});
    expectSaid(saidAs("DZ", ", fModelID=' 7k2300'"), {}, {}, {"34"});
    expectSaid(saidAs("DZ", ", fModelID='7K2300X'"), {}, {}, {});
    catalogueRefrigerant = "R507";
    expectSaid(saidAs("MV-A", ", fRefrigerantID='R507'"), {}, {"18"}, {});
}

TEST_F(selectionRules, PowerOfTheModelsOfMvJ) {
    given({{"fSerieID", "'MV-J'"}});
    const auto saysAt = [&](const std::string& model, double power) {
        catalogue.exec("update tCompressors set fModelID='" + model + "'");
        catalogue.exec("update tPolynomials set fC1=" + std::to_string(power) +
                       ", fC2=0, fC3=0 where fType=1");
        return names(said("R134A", "MV-J").Error);
    };
    for (const auto& [model, highest] : {std::pair{"Q40", 51.0}, {"Q50", 52.2}, {"Q60", 58.5}}) {
        EXPECT_EQ(saysAt(model, highest), keys({})) << model;
        EXPECT_EQ(saysAt(model, highest + 0.01), keys({"32"})) << model;
    }
    EXPECT_EQ(saysAt("q40", 60), keys({}));
    // The economizer wants more power: one message for either of the two, and one for both.
    catalogue.exec("update tCompressors set fKForo=1.6, fSez=300");
    conditions.EcoCalculateMode = EconomizerMode::approach;
    conditions.Eco = 10;
    EXPECT_EQ(saysAt("Q40", 50.9), keys({"32"}));
    EXPECT_EQ(saysAt("Q40", 51.1), keys({"32"}));
    EXPECT_EQ(saysAt("Q40", 30), keys({}));
}

}  // namespace
}  // namespace marvello

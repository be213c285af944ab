#include "inputs/SelectionInputs.h"

#include <gtest/gtest.h>

#include "catalogue/Globals.h"
#include "data/clsDatabase.h"
#include "inputs/InputTexts.h"
#include "tests/support/SmallCatalogue.h"

using namespace marvello;

namespace {

/// R134A with the series DZ, of two markets, TK-A and MV-H; R290 with TK-A and NL-H.
class SelectionInputsTest : public ::testing::Test {
  protected:
    SelectionInputsTest() {
        for (const char* serie : {"DZ", "TK-A", "MV-H"}) catalogue.compressor({{"fSerieID", sqlText(serie)}});
        for (const char* serie : {"TK-A", "NL-H"})
            catalogue.compressor({{"fRefrigerantID", "'R290'"}, {"fSerieID", sqlText(serie)}});
    }
    static std::vector<std::string> keysOf(const SelectionInputs& inputs, Input input) {
        std::vector<std::string> keys;
        for (const Choice& choice : inputs[input].choices) keys.push_back(choice.key);
        return keys;
    }

    marvello::testing::SmallCatalogue catalogue;
};

}  // namespace

TEST_F(SelectionInputsTest, ASeriesSwitchesInputsOffAtTheirNeutralKeys) {
    SelectionInputs inputs(fixedSpeed);
    EXPECT_EQ(keysOf(inputs, Input::series), (std::vector<std::string>{"DZ1", "DZ2", "MV-H", "TK-A"}));
    inputs.choose(Input::series, "TK-A");
    inputs.choose(Input::capacityStep, "75");
    inputs.choose(Input::economizerMode, "2");
    EXPECT_TRUE(inputs.isShown(Input::economizer));
    inputs.choose(Input::series, "MV-H");
    EXPECT_EQ(inputs.key(Input::capacityStep), "100");
    EXPECT_FALSE(inputs[Input::capacityStep].isEnabled);
    EXPECT_FALSE(inputs.isShown(Input::economizer));
    EXPECT_TRUE(inputs[Input::motorSize].isEnabled);
    inputs.choose(Input::refrigerant, "R290");
    EXPECT_EQ(inputs.key(Input::series), "NL-H") << "the first, since there is no MV-H";
    EXPECT_TRUE(inputs[Input::motorSpeed].isEnabled);
    EXPECT_FALSE(inputs[Input::motorVoltage].isEnabled);
}

TEST_F(SelectionInputsTest, ConditionsAreMetricInBothSystems) {
    SelectionInputs inputs(fixedSpeed);
    inputs.choose(Input::series, "TK-A");
    inputs.choose(Input::motorVoltage, "460_60");
    inputs.choose(Input::economizerMode, "1");
    inputs.setUnits(UnitSystem::imperial);
    inputs.type(Input::evaporatingDew, 14);  // -10 degrees Celsius
    inputs.type(Input::superheat, 9);        // 5 K
    inputs.type(Input::economizer, 13.5);    // 7.5 K
    const auto conditions = inputs.conditions();
    EXPECT_NEAR(conditions->TEvaporatingDew, -10, 1e-9);
    EXPECT_NEAR(conditions->TCondensationDew, 40, 1e-9);
    EXPECT_NEAR(conditions->SuperHeat, 5, 1e-9);
    EXPECT_NEAR(conditions->SubCooling, 5, 1e-9);
    EXPECT_NEAR(conditions->Eco, 7.5, 1e-9);
    EXPECT_NEAR(conditions->OilCooling, 110, 1e-9);
    EXPECT_EQ(conditions->MotorVoltage, 460);
    EXPECT_EQ(conditions->MotorHz, 60);
    EXPECT_EQ(conditions->MotorRPM, 1450);
    EXPECT_EQ(conditions->StepCapacity, 100);
    inputs.choose(Input::superheatKind, "1");
    inputs.type(Input::superheat, 50);  // 10 degrees Celsius at the suction
    EXPECT_NEAR(inputs.conditions()->SuperHeat, 10, 1e-9);
}

TEST_F(SelectionInputsTest, WhatWasEnteredInASystemIsTheSameAgain) {
    SelectionInputs inputs(fixedSpeed);
    inputs.type(Input::evaporatingDew, 1.1);
    for (const UnitSystem units : {UnitSystem::imperial, UnitSystem::metric}) inputs.setUnits(units);
    EXPECT_EQ(inputs.number(Input::evaporatingDew), 1.1);
}

TEST_F(SelectionInputsTest, ALeaderBeyondTheFluidIsRefusedUntilItIsMended) {
    SelectionInputs inputs(fixedSpeed);
    EXPECT_EQ(inputs.leaderOf(Input::condensingPressure), Input::condensingDew);
    inputs.type(Input::condensingPressure, 60);  // above the critical pressure of R134a, 40.6 bar
    EXPECT_EQ(inputs.leaderOf(Input::condensingDew), Input::condensingPressure);
    ASSERT_TRUE(inputs[Input::condensingPressure].refusal);
    EXPECT_NEAR(inputs[Input::condensingPressure].refusal->saturation->maximum, 101.1, 0.1);
    EXPECT_TRUE(inputs[Input::condensingDew].isUnknown);
    inputs.type(Input::condensingPressure, std::nullopt);  // half a number
    EXPECT_FALSE(inputs[Input::condensingPressure].refusal);
    EXPECT_TRUE(inputs[Input::condensingDew].isUnknown);
    inputs.type(Input::condensingPressure, 10.166);
    EXPECT_NEAR(inputs.number(Input::condensingDew), 40, 0.02);
    EXPECT_TRUE(catalogue.boxes.empty()) << "typing opens no box";
}

// The dew temperature of a mid temperature depends on the liquid.
TEST_F(SelectionInputsTest, AChangeLeavesTheOtherTemperatureThoughAMidTemperatureLeads) {
    catalogue.blendR407C();
    catalogue.compressor({{"fRefrigerantID", "'R407C'"}});
    gPolynomialTEM().c = {2, 1, 0.01};
    SelectionInputs inputs(fixedSpeed);
    inputs.choose(Input::refrigerant, "R407C");
    const auto evaporating = [&] { return inputs.number(Input::evaporatingDew); };
    inputs.type(Input::evaporatingMid, -5);
    double before = evaporating();
    inputs.type(Input::condensingDew, 45);
    ASSERT_NE(evaporating(), before);
    for (const auto& [input, value] : {std::pair{Input::condensingDew, 50.1}, {Input::subcooling, 8.0}}) {
        inputs.type(Input::evaporatingMid, -5);
        before = evaporating();
        inputs.change(input, value);
        EXPECT_EQ(evaporating(), before);
        EXPECT_EQ(inputs.number(input), value);
    }
    inputs.change(Input::evaporatingDew, -3);
    EXPECT_EQ(evaporating(), -3);
}

TEST_F(SelectionInputsTest, EachModeOfTheEconomizerKeepsItsValueForTheNextForm) {
    SelectionInputs inputs(fixedSpeed);
    inputs.choose(Input::series, "TK-A");
    inputs.choose(Input::economizerMode, "2");
    inputs.type(Input::economizer, 120);
    inputs.choose(Input::economizerMode, "1");
    EXPECT_EQ(inputs.number(Input::economizer), 10);
    inputs.type(Input::economizer, -6);
    inputs.settle(Input::economizer, -6);
    EXPECT_EQ(inputs.number(Input::economizer), 6) << "an approach has no sign";
    inputs.setUnits(UnitSystem::imperial);
    EXPECT_NEAR(inputs.number(Input::economizer), 10.8, 1e-9);
    inputs.choose(Input::economizerMode, "2");
    EXPECT_EQ(inputs.number(Input::economizer), 216) << "converted as a difference, like the field itself";
    inputs.setUnits(UnitSystem::metric);
    inputs.choose(Input::economizerMode, "0");

    SelectionInputs next(fixedSpeed);
    next.takeOver(inputs.state());
    EXPECT_EQ(next.key(Input::series), "TK-A");
    next.choose(Input::economizerMode, "2");
    EXPECT_EQ(next.number(Input::economizer), 120);
    next.choose(Input::economizerMode, "1");
    EXPECT_EQ(next.number(Input::economizer), 6);
}

TEST_F(SelectionInputsTest, WhatIsBeyondItsRangeIsSaidAndPutRightForARun) {
    SelectionInputs inputs(fixedSpeed);
    inputs.type(Input::superheat, 25);
    ASSERT_TRUE(inputs.exceededBounds(Input::superheat));
    EXPECT_EQ(inputs.exceededBounds(Input::superheat)->high, 20);
    inputs.type(Input::subcooling, -4);
    EXPECT_TRUE(inputs.prepareRun());
    EXPECT_EQ(inputs.number(Input::superheat), 10);
    EXPECT_EQ(inputs.number(Input::subcooling), 4);
    EXPECT_FALSE(inputs.exceededBounds(Input::superheat));
    inputs.type(Input::evaporatingDew, 41);
    EXPECT_TRUE(inputs.temperaturesCross());
}

TEST_F(SelectionInputsTest, TextsAreThoseOfTheUserAndTypedUnitsAreRead) {
    SelectionInputs inputs(fixedSpeed);
    inputs.setUnits(UnitSystem::imperial);
    const NumberMarks german{.minus = "-", .point = ",", .group = "."};
    EXPECT_EQ(inputText(inputs, Input::evaporatingDew, german), "35,60");
    EXPECT_EQ(unitText(inputs, Input::condensingPressure), "psia");
    EXPECT_EQ(inputText(inputs, Input::capacityStep, german), "100%");
    EXPECT_NEAR(*readInput(inputs, Input::evaporatingDew, "-10 C").value, 14, 1e-9);
    EXPECT_FALSE(readInput(inputs, Input::economizer, "5 K").value) << "a plain number";
}

TEST_F(SelectionInputsTest, ASearchAsksForPressuresWhileItHasOneRefrigerant) {
    SelectionInputs inputs(searching);
    EXPECT_EQ(inputs.key(Input::refrigerants), "R134A;R290");
    EXPECT_EQ(keysOf(inputs, Input::allSeries),
              (std::vector<std::string>{"*", "DZ", "MV-H", "NL-H", "TK-A"}));
    EXPECT_FALSE(inputs.isShown(Input::evaporatingPressure));
    inputs.type(Input::evaporatingDew, -60);
    EXPECT_FALSE(inputs[Input::evaporatingDew].refusal);
    inputs.type(Input::evaporatingDew, 0);
    inputs.choose(Input::allSeries, "MV-H;NL-H");
    inputs.choose(Input::refrigerants, "R290");
    EXPECT_EQ(inputs.key(Input::allSeries), "NL-H") << "there is no MV-H";
    EXPECT_TRUE(inputs.isShown(Input::evaporatingPressure));
    EXPECT_NEAR(inputs.number(Input::evaporatingPressure), 4.745, 0.01) << "of propane at 0 degrees Celsius";
    inputs.choose(Input::refrigerants, "");
    EXPECT_FALSE(inputs.isShown(Input::evaporatingPressure));
    EXPECT_TRUE(inputs.keys(Input::refrigerants).empty());
}

TEST_F(SelectionInputsTest, ASearchKeepsItsLimitsInOrderAndItsCapacityInBothSystems) {
    SelectionInputs inputs(searching);
    inputs.choose(Input::maxMachines, "2");
    inputs.choose(Input::minMachines, "3");
    EXPECT_EQ(inputs.key(Input::maxMachines), "3");
    inputs.choose(Input::maxMachines, "1");
    EXPECT_EQ(inputs.key(Input::minMachines), "1");
    inputs.settle(Input::toleranceBelow, 10);
    EXPECT_EQ(inputs.number(Input::toleranceBelow), -10);
    inputs.type(Input::capacity, 351.6853);
    inputs.setUnits(UnitSystem::imperial);
    EXPECT_NEAR(inputs.number(Input::capacity), 100, 0.01) << "tons of refrigeration";
    EXPECT_EQ(unitText(inputs, Input::capacity), "Tons");
    inputs.setUnits(UnitSystem::metric);
    EXPECT_EQ(inputs.number(Input::capacity), 351.6853);
    for (const double beyond : {0.0, -1.0, 1e6}) {
        inputs.type(Input::capacity, beyond);
        EXPECT_TRUE(inputs.exceededBounds(Input::capacity)) << beyond;
    }
}

TEST_F(SelectionInputsTest, ASearchAndASelectionLeaveEachOtherTheOperatingPoint) {
    SelectionInputs selection(fixedSpeed);
    selection.choose(Input::refrigerant, "R290");
    selection.type(Input::evaporatingDew, -7);
    SelectionInputs search(searching);
    search.type(Input::capacity, 80);
    search.takeOver(selection.state());
    EXPECT_EQ(search.number(Input::evaporatingDew), -7);
    EXPECT_EQ(search.number(Input::capacity), 80);
    EXPECT_EQ(search.key(Input::refrigerants), "R134A;R290");
    search.type(Input::condensingDew, 33);
    SelectionInputs next(fixedSpeed);
    next.takeOver(search.state());
    EXPECT_EQ(next.number(Input::condensingDew), 33);
    EXPECT_EQ(next.key(Input::refrigerant), "R134A") << "several are no choice of one";
}

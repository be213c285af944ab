#include "engine/Comparison.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/Globals.h"
#include "engine/clsSelections.h"
#include "tests/engine/EngineFixture.h"

namespace marvello {
namespace {

/// Compressors of the catalogue that is shipped.
class ComparisonTest : public ::testing::Test {
  protected:
    ComparisonTest() : session_(MARVELLO_APP_FOLDER) {
        openCatalogue();
        catalogue_ = preparedCatalogue(gDatabase());
    }

    static ComparedChoice choice(const char* refrigerant, const char* serie, const char* model,
                                 double ted = 2, double tcd = 40) {
        return {refrigerant, serie, model, conditionsAt(ted, tcd)};
    }

    Comparison compared(const std::vector<ComparedChoice>& choices) {
        return compare(choices, catalogue_, calculator_);
    }

    static const clsCompressor& selected(clsSelections& selections, const ComparedChoice& choice) {
        selections.Selection(std::make_shared<clsProjectConditions>(choice.conditions), choice.serie,
                             choice.model, choice.refrigerant, 0);
        return selections.Item(1);
    }

    Session session_;
    std::shared_ptr<const PreparedCatalogue> catalogue_;
    Calculator calculator_;
};

TEST_F(ComparisonTest, EachMachineIsAPlainSelectionAtConditionsOfItsOwn) {
    std::vector<ComparedChoice> choices{choice("R134A", "TK-A", "255"), choice("R513A", "MV-E", "50-240"),
                                        choice("R134A", "TK-A", "220", -5, 45),
                                        choice("R134A", "TK-A", "220", 40, 45)};
    choices[1].conditions.InverterFrequency = 43.5F;
    choices[2].conditions.EcoCalculateMode = EconomizerMode::approach;
    choices[2].machines = 3;
    const Comparison comparison = compared(choices);
    ASSERT_EQ(comparison.machines.size(), 4U);
    for (const ComparedMachine& machine : comparison.machines) {
        SCOPED_TRACE(machine.choice.model);
        clsSelections selections;
        const clsCompressor& plain = selected(selections, machine.choice);
        ASSERT_TRUE(machine.calculated);
        ASSERT_EQ(machine.calculated->Variables.Count(), plain.Variables.Count());
        for (const char* name : {"Q0", "Pta", "COP", "CA", "Tsca", "Mbase", "Pra", "Fla", "Lra1", "CopEco"}) {
            ASSERT_EQ(machine.calculated->Variables.Exist(name), plain.Variables.Exist(name)) << name;
            if (!plain.Variables.Exist(name)) continue;
            EXPECT_EQ(machine.calculated->Variables.Item(name).number(), plain.Variables.Item(name).number())
                << name;
        }
        EXPECT_EQ(machine.margin, applicationMargin(plain));
    }
    EXPECT_TRUE(comparison.machines[2].performance.economized);
    EXPECT_EQ(comparison.machines[3].performance.state, PointState::outside);
    EXPECT_LT(comparison.machines[3].margin->kelvin, 0);
}

// The steps of TK-A are 100, 75, 50 and 25 %; their capacities are not just these shares of the full one, so
// that each share is met by two neighbouring steps in turns: COP = needed / (mean power).
TEST_F(ComparisonTest, PartLoadIsMetByTheStepsAroundIt) {
    const ComparedChoice full = choice("R134A", "TK-A", "255");
    const Comparison comparison = compared({full});
    std::vector<std::pair<double, double>> steps;  // capacity and power
    for (const int step : {100, 75, 50, 25}) {
        ComparedChoice at = full;
        at.conditions.StepCapacity = step;
        clsSelections selections;
        const clsCompressor& plain = selected(selections, at);
        ASSERT_EQ(plain.Messages.Error.Count(), 0) << step;
        steps.emplace_back(plain.Variables.Item("Q0").number(), plain.Variables.Item("Pta").number());
    }
    for (std::size_t i = 0; i < partLoadShares.size(); ++i) {
        const double needed = partLoadShares.at(i) * steps[0].first;
        std::size_t upper = 0;
        while (upper + 2 < steps.size() && steps[upper + 1].first >= needed) ++upper;
        const auto& [highQ, highP] = steps[upper];
        const auto& [lowQ, lowP] = steps[upper + 1];
        const double share = (needed - lowQ) / (highQ - lowQ);
        const double expected = share >= 0 ? needed / (share * highP + (1 - share) * lowP) : lowQ / lowP;
        ASSERT_TRUE(comparison.machines[0].partLoadCop.at(i));
        EXPECT_NEAR(*comparison.machines[0].partLoadCop.at(i), expected, 1e-2) << i;
    }
}

// All of a column has to be one way to run: a series without an economizer has none in its figures either.
TEST_F(ComparisonTest, WhatASeriesDoesNotOfferIsInNoFigure) {
    const ComparedChoice without = choice("R134A", "MV-G", "50-230");
    ComparedChoice with = without;
    with.conditions.EcoCalculateMode = EconomizerMode::approach;
    const Comparison comparison = compared({without, with});
    const auto& [plain, putBack] = std::pair(comparison.machines[0], comparison.machines[1]);
    ASSERT_TRUE(plain.performance.hasValues());
    EXPECT_FALSE(putBack.performance.economized);
    EXPECT_EQ(putBack.performance.plain.capacity, plain.performance.plain.capacity);
    EXPECT_EQ(putBack.partLoadCop, plain.partLoadCop);
    EXPECT_EQ(putBack.choice, without);
    EXPECT_EQ(putBack.putBack, static_cast<unsigned>(Selector::economizer));
    EXPECT_EQ(plain.putBack, 0U);
}

TEST_F(ComparisonTest, ACompressorThatTheCatalogueLacksKeepsItsPlace) {
    const Comparison comparison =
        compared({choice("R134A", "TK-A", "no such"), choice("R134A", "TK-A", "255")});
    EXPECT_EQ(comparison.machines[0].performance.error, unknownCompressor);
    EXPECT_FALSE(comparison.machines[0].performance.hasValues());
    EXPECT_EQ(comparison.machines[0].limits(), nullptr);
    EXPECT_TRUE(comparison.machines[1].performance.hasValues());
}

TEST_F(ComparisonTest, AMovedPointLeavesTheOptionsOfTheCompressor) {
    std::vector<ComparedChoice> choices{choice("R134A", "TK-A", "255"),
                                        choice("R134A", "TK-A", "255", -10, 30)};
    choices[1].conditions.StepCapacity = 50;
    EXPECT_FALSE(compared(choices).samePoint());
    const OperatingPoint point = pointOf(choices[0].conditions);
    choices[1].conditions = movedTo(choices[1].conditions, point);
    EXPECT_EQ(choices[1].conditions.StepCapacity, 50);
    EXPECT_EQ(choices[1].conditions.TCondensationDew, 40);
    EXPECT_EQ(compared(choices).samePoint(), point);
    choices[1].conditions.SuperHeat += 1;
    EXPECT_FALSE(compared(choices).samePoint());
}

TEST_F(ComparisonTest, ACurveIsPlainSelectionsWithinTheApplicationLimit) {
    const Comparison comparison =
        compared({choice("R134A", "TK-A", "255", 2.3, 40), choice("R134A", "TK-A", "255", 2.3, 90)});
    for (const CurveAxis axis : {CurveAxis::evaporating, CurveAxis::condensing}) {
        const auto curves = curvesOf(comparison, axis, loopWith(calculator_));
        ASSERT_TRUE(curves);
        const Curve& curve = curves->front();
        const double own = axis == CurveAxis::evaporating ? 2.3 : 40;
        EXPECT_EQ(std::ranges::count(curve, own, &CurvePoint::at), 1);
        EXPECT_EQ(std::ranges::count(curve, true, &CurvePoint::beginsPart), 1);
        for (std::size_t i = 0; i < curve.size(); ++i) {
            ComparedChoice at = comparison.machines[0].choice;
            (axis == CurveAxis::evaporating ? at.conditions.TEvaporatingDew
                                            : at.conditions.TCondensationDew) = curve[i].at;
            EXPECT_TRUE(comparison.machines[0]
                            .limits()
                            ->holding(at.conditions.TEvaporatingDew, at.conditions.TCondensationDew)
                            .FindLimitType(limitType::application));
            clsSelections selections;
            const clsCompressor& plain = selected(selections, at);
            ASSERT_TRUE(curve[i].performance.hasValues());
            EXPECT_EQ(valueOf(curve[i].performance, Figure::capacity), plain.Variables.Item("Q0").number());
            const double former = curve[i == 0 ? 0 : i - 1].at;
            EXPECT_LE(curve[i].at - former, 1.0000001);
        }
    }
    const auto evaporating = curvesOf(comparison, CurveAxis::evaporating, loopWith(calculator_));
    EXPECT_TRUE(evaporating->back().empty()) << "no evaporating temperature is within the limit at 90";
    // The limit of this compressor is from -15 to 15 at 40; see its row of tLimits.
    EXPECT_NEAR(evaporating->front().front().at, -15, 1e-3);
    EXPECT_NEAR(evaporating->front().back().at, 15, 1e-3);
    EXPECT_FALSE(curvesOf(comparison, CurveAxis::condensing, loopWith(calculator_, [] { return false; })));
}

/// An envelope with a notch, and compressors on it.
class NotchedCurveTest : public testing::EngineFixture {};

TEST_F(NotchedCurveTest, ACurveHasAGapWhereTheLimitHasANotch) {
    catalogue.compressor();
    catalogue.completeDefault();
    catalogue.exec("DELETE FROM tLimits");
    catalogue.limit("E", limitType::over, "(-60,0;40,0;40,90;-60,90)");
    // A notch from -2 to 2 reaches down to 30.
    catalogue.limit("E", limitType::application, "(-20,20;10,20;10,60;2,60;2,30;-2,30;-2,60;-20,60)");
    Calculator calculator;
    const auto prepared = preparedCatalogue(gDatabase());
    const PreparedCompressor& first = prepared->compressors().front();
    const Comparison comparison =
        compare(std::vector<ComparedChoice>{{first.Refrigerant, first.Serie, first.Model, conditions}},
                prepared, calculator);
    const auto curves = curvesOf(comparison, CurveAxis::evaporating, loopWith(calculator));
    ASSERT_TRUE(curves);
    std::vector<double> begins;
    for (const CurvePoint& point : curves->front()) {
        if (point.beginsPart) begins.push_back(point.at);
        EXPECT_FALSE(point.at > -2 && point.at < 2) << point.at;
    }
    ASSERT_EQ(begins.size(), 2U);
    EXPECT_NEAR(begins[0], -20, 1e-3);
    EXPECT_NEAR(begins[1], 2, 1e-3);
}

}  // namespace
}  // namespace marvello

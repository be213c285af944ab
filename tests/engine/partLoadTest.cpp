#include "engine/PartLoad.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "catalogue/Globals.h"
#include "catalogue/PreparedCatalogue.h"
#include "data/CollectedBoxes.h"
#include "data/Session.h"
#include "tests/engine/PlainSelection.h"
#include "tests/support/RandomConditions.h"

namespace marvello {
namespace {

using Kind = LoadRun::Kind;

CapacityState stateOf(double capacity, double power) {
    CapacityState state;
    state.performance.state = PointState::ok;
    state.performance.plain = {.capacity = capacity, .power = power, .cop = capacity / power};
    state.performance.massFlow = capacity * 20;
    return state;
}

CapacityState withError() {
    CapacityState state;
    state.performance = {.state = PointState::error, .error = "messages.message29"};
    return state;
}

/// 100 kW with 25 kW and 60 kW with 18 kW; the step between them has an error.
const std::vector<CapacityState> steps{stateOf(100, 25), withError(), stateOf(60, 18)};

TEST(MeetLoad, RunsSteadilyAtAStep) {
    const LoadRun run = meetLoad(60, steps, {});
    EXPECT_EQ(run.kind, Kind::steady);
    ASSERT_EQ(run.running.size(), 1U);
    EXPECT_EQ(run.running[0].share, 1);
    EXPECT_EQ(run.capacity, 60);
    EXPECT_EQ(run.power, 18);
    EXPECT_EQ(run.cop, steps[2].performance.plain.cop);
}

TEST(MeetLoad, BlendsTwoStepsByTime) {
    // 70 = 0.25 x 100 + 0.75 x 60; 0.25 x 25 + 0.75 x 18 = 19.75 kW; 70 / 19.75 = 3.5443.
    const LoadRun run = meetLoad(70, steps, {.form = Degradation::Form::condensingUnit, .coefficient = 0.25});
    EXPECT_EQ(run.kind, Kind::blended);
    ASSERT_EQ(run.running.size(), 2U);
    EXPECT_DOUBLE_EQ(run.running[0].share, 0.25);
    EXPECT_EQ(run.running[0].state.performance.plain.capacity, 100);
    EXPECT_DOUBLE_EQ(run.running[1].share, 0.75);
    EXPECT_DOUBLE_EQ(run.capacity, 70);
    EXPECT_DOUBLE_EQ(run.power, 19.75) << "blending costs nothing";
    EXPECT_NEAR(run.cop, 3.5443, 5e-5);
    EXPECT_DOUBLE_EQ(run.massFlow, 1400);
}

TEST(MeetLoad, RunsIntermittentlyBelowTheLowestStep) {
    // Half of the time at 60 kW with 18 kW: 9 kW. The two rules divide by 1 - 0.25 x 0.5 = 0.875 and by
    // 0.5 / (0.9 x 0.5 + 0.1) = 0.9091.
    const auto powerWith = [](const Degradation& degradation) {
        const LoadRun run = meetLoad(30, steps, degradation);
        EXPECT_EQ(run.kind, Kind::intermittent);
        EXPECT_EQ(run.running.size(), 1U);
        EXPECT_EQ(run.running.at(0).share, 0.5);
        EXPECT_EQ(run.capacity, 30);
        EXPECT_DOUBLE_EQ(run.cop, 30 / run.power);
        return run.power;
    };
    EXPECT_EQ(powerWith({}), 9);
    EXPECT_NEAR(powerWith({.form = Degradation::Form::condensingUnit, .coefficient = 0.25}), 10.285714, 1e-6);
    EXPECT_NEAR(powerWith({.form = Degradation::Form::chiller, .coefficient = 0.9}), 9.9, 1e-12);
}

TEST(MeetLoad, SaysWhatItCannotMeet) {
    const LoadRun run = meetLoad(130, steps, {});
    EXPECT_EQ(run.kind, Kind::tooSmall);
    EXPECT_EQ(run.capacity, 100);
    EXPECT_EQ(run.power, 25);
    EXPECT_EQ(meetLoad(50, std::vector{withError()}, {}).kind, Kind::none);
}

class PartLoadTest : public ::testing::Test {
  protected:
    PartLoadTest() : session_(MARVELLO_APP_FOLDER) {
        openCatalogue();
        catalogue_ = preparedCatalogue(gDatabase());
    }

    /// Mostly of the machines that have steps or an inverter, with and without a rule.
    PartLoadPlan randomPlan() {
        while (true) {
            const PreparedCompressor& compressor = random_.compressorOf(*catalogue_);
            const bool isPlain = !compressor.hasInvert && stepsOf(compressor).size() == 1;
            if (isPlain && random_.number() % 8 != 0) continue;
            PartLoadPlan plan{.compressor = &compressor, .conditions = random_.conditionsFor(compressor)};
            if (random_.number() % 10 != 0) plan.conditions.EcoCalculateMode = EconomizerMode::none;
            if (random_.number() % 2 == 0)
                plan.condensing = CondensingRule{
                    .difference = random_.between(3, 15),
                    .minimum = std::min(random_.between(20, 30), plan.conditions.TCondensationDew),
                    .isScaled = true};
            return plan;
        }
    }

    void expectSelectionsAndMeans(const PartLoadPlan& plan, const PartLoad& load);

    Session session_;
    CollectedBoxes boxes_;  // what an economizer says of a point that has none
    std::shared_ptr<const PreparedCatalogue> catalogue_;
    Calculator calculator_;
    testing::RandomConditions random_{23};
    std::array<int, 5> kinds_{};
};

/// Each state is a plain selection, and the means are those of the states.
void PartLoadTest::expectSelectionsAndMeans(const PartLoadPlan& plan, const PartLoad& load) {
    double capacity = 0;
    double power = 0;
    double time = 0;
    for (const auto& [state, share] : load.run.running) {
        testing::expectPlainSelection(*plan.compressor, state.at.conditions, state.performance);
        EXPECT_EQ(state.at.conditions.TCondensationDew, load.condensing);
        capacity += share * *valueOf(state.performance, Figure::capacity);
        power += share * *valueOf(state.performance, Figure::power);
        time += share;
    }
    ++kinds_.at(static_cast<std::size_t>(load.run.kind));
    if (load.run.kind == Kind::none) {
        EXPECT_FALSE(load.error.empty());
        return;
    }
    EXPECT_NEAR(load.run.capacity, capacity, 1e-9 * capacity);
    EXPECT_NEAR(load.run.power, power, 1e-9 * power);
    if (load.run.kind == Kind::intermittent) {
        EXPECT_LT(time, 1);
    } else {
        EXPECT_DOUBLE_EQ(time, 1);
    }
    if (load.run.kind != Kind::tooSmall) {
        EXPECT_NEAR(load.run.capacity / load.needed, 1, 1.001e-3);
    }
}

TEST_F(PartLoadTest, EachShareIsMetByPlainSelections) {
    int machines = 0;
    while (machines < 400 && !HasFailure()) {
        const PartLoadPlan plan = randomPlan();
        const MachineLoads loads(calculator_, plan);
        if (!loads.full().isPossible()) continue;
        ++machines;
        const PartLoad full = loads.at(calculator_, 1);
        EXPECT_EQ(full.run.kind, Kind::steady);
        EXPECT_EQ(full.run.capacity, loads.fullCapacity());
        EXPECT_EQ(full.condensing, plan.conditions.TCondensationDew) << "that of the operating point";
        for (const double share : {1.0, 0.75, 0.5, 0.25, random_.between(0.02, 1)})
            expectSelectionsAndMeans(plan, loads.at(calculator_, share));
    }
    for (const Kind kind : {Kind::steady, Kind::blended, Kind::intermittent})
        EXPECT_GT(kinds_.at(static_cast<std::size_t>(kind)), 20);
}

TEST_F(PartLoadTest, AStepCondensesAsItsOwnLoadDoes) {
    int states = 0;
    while (states < 200 && !HasFailure()) {
        const PartLoadPlan plan = randomPlan();
        const MachineLoads loads(calculator_, plan);
        if (!loads.full().isPossible()) continue;
        const double outdoor =
            plan.conditions.TCondensationDew - (plan.condensing ? *plan.condensing->difference : 0);
        const auto expectState = [&](const SteadyLoad& steady) {
            const clsProjectConditions& at = steady.state.at.conditions;
            testing::expectPlainSelection(*plan.compressor, at, steady.state.performance);
            if (!steady.share) {
                EXPECT_FALSE(steady.state.isPossible());
                return;
            }
            EXPECT_EQ(*steady.share, *valueOf(steady.state.performance, Figure::capacity) /
                                         *valueOf(loads.full().performance, Figure::capacity));
            const double condensing = plan.condensing
                                          ? std::max(outdoor + *plan.condensing->difference * *steady.share,
                                                     *plan.condensing->minimum)
                                          : plan.conditions.TCondensationDew;
            EXPECT_NEAR(at.TCondensationDew, condensing, 2e-6) << plan.compressor->Model;
            ++states;
        };
        if (plan.compressor->hasInvert) {
            for (const float hertz : {20.F, 37.5F, 50.F}) expectState(loads.atFrequency(calculator_, hertz));
        } else {
            for (const int step : stepsOf(*plan.compressor)) expectState(loads.atStep(calculator_, step));
        }
    }
}

TEST_F(PartLoadTest, FullLoadOfAnInverterIsItsHighestFrequency) {
    const PreparedCompressor* inverter = nullptr;
    for (const PreparedCompressor& compressor : catalogue_->compressors())
        if (compressor.hasInvert && compressor.Refrigerant == "R134A") inverter = &compressor;
    ASSERT_NE(inverter, nullptr);
    const PartLoadPlan plan{.compressor = inverter, .conditions = conditionsAt(0, 40)};
    const MachineLoads loads(calculator_, plan);
    ASSERT_TRUE(loads.full().isPossible());
    EXPECT_EQ(loads.full().at.conditions.InverterFrequency, frequencyRange(*inverter, plan.conditions).high);
    const PartLoad half = loads.at(calculator_, 0.5);
    EXPECT_EQ(half.run.kind, Kind::steady);
    EXPECT_NEAR(half.run.capacity, loads.fullCapacity() / 2, 1e-4);
    EXPECT_EQ(loads.at(calculator_, 0.1).run.kind, Kind::intermittent);
    EXPECT_EQ(loads.at(calculator_, 0.1).run.running[0].state.at.conditions.InverterFrequency, 20);
}

TEST_F(PartLoadTest, ATableHasStepsAndSharesOrSaysWhyNot) {
    PartLoadQuestion question{
        .plan = {.compressor = catalogue_->find("R134A", "TK-A", "220"), .conditions = conditionsAt(2, 40)},
        .shares = {1, 0.6}};
    ASSERT_NE(question.plan.compressor, nullptr);
    const auto table = partLoadTable(question, loopWith(calculator_));
    ASSERT_TRUE(table);
    ASSERT_EQ(table->states.size(), 4U);
    EXPECT_EQ(table->states[0].share, 1);
    EXPECT_EQ(table->states[3].state.step(), 25);
    // Errors alone, such as a step that the limits do not allow here.
    for (const SteadyLoad& load : table->states)
        EXPECT_EQ(load.messages.Error.Count() > 0, !load.state.isPossible());
    ASSERT_EQ(table->shares.size(), 2U);
    EXPECT_DOUBLE_EQ(table->shares[1].run.capacity,
                     0.6 * *valueOf(table->full.state.performance, Figure::capacity));
    question.plan.conditions.TCondensationDew = 90;
    const auto outside = partLoadTable(question, loopWith(calculator_));
    ASSERT_TRUE(outside);
    EXPECT_EQ(outside->full.state.performance.error, outsideEnvelope);
    EXPECT_EQ(outside->full.messages.Error.Item(1).Name, outsideEnvelope);
    EXPECT_TRUE(outside->states.empty());
    EXPECT_TRUE(outside->shares.empty());
    EXPECT_FALSE(partLoadTable(question, loopWith(calculator_, [] { return false; })));
}

}  // namespace
}  // namespace marvello

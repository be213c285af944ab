#include "engine/CapacityStates.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <set>
#include <string>

#include "catalogue/Globals.h"
#include "catalogue/PreparedCatalogue.h"
#include "data/CollectedBoxes.h"
#include "data/Session.h"
#include "tests/engine/PlainSelection.h"
#include "tests/support/RandomConditions.h"

namespace marvello {
namespace {

class CapacityStatesTest : public ::testing::Test {
  protected:
    CapacityStatesTest() : session_(MARVELLO_APP_FOLDER) {
        openCatalogue();
        catalogue_ = preparedCatalogue(gDatabase());
    }

    const PreparedCompressor& randomCompressor(bool hasInverter) {
        while (true) {
            const PreparedCompressor& compressor = random_.compressorOf(*catalogue_);
            if (compressor.hasInvert == hasInverter) return compressor;
        }
    }

    Session session_;
    CollectedBoxes boxes_;  // what an economizer says of a point that has none
    std::shared_ptr<const PreparedCatalogue> catalogue_;
    Calculator calculator_;
    testing::RandomConditions random_{22};
};

TEST_F(CapacityStatesTest, EachStepIsAPlainSelection) {
    const std::set<std::string> withSteps{"TK-A", "TK-A(P)", "TK-A(Q)", "TK-A(V)"};
    std::array<std::size_t, 101> possible{};
    for (int i = 0; i < 400 && !HasFailure(); ++i) {
        const PreparedCompressor& compressor = randomCompressor(false);
        ASSERT_EQ(stepsOf(compressor).size(), withSteps.contains(compressor.Serie) ? 4U : 1U);
        // The form of the series offers nothing else, such as another mains frequency.
        clsProjectConditions conditions =
            permittedConditions(compressor, random_.conditionsFor(compressor)).conditions;
        const auto states = stepStates(calculator_, compressor, conditions, stepsOf(compressor));
        for (std::size_t step = 0; step < states.size(); ++step) {
            conditions.StepCapacity = 100 - 25 * static_cast<int>(step);
            EXPECT_EQ(states[step].step(), conditions.StepCapacity);
            testing::expectPlainSelection(compressor, conditions, states[step].performance);
            if (states[step].isPossible()) ++possible.at(static_cast<std::size_t>(conditions.StepCapacity));
        }
        if (states.front().performance.state == PointState::outside)
            EXPECT_EQ(states.size(), 1U);
        else
            EXPECT_EQ(states.size(), stepsOf(compressor).size());
    }
    for (const int step : capacitySteps) EXPECT_GT(possible.at(static_cast<std::size_t>(step)), 5U) << step;
}

TEST_F(CapacityStatesTest, AFrequencyIsSolvedAndIsAPlainSelection) {
    std::size_t solved = 0;
    for (int i = 0; i < 60 && !HasFailure(); ++i) {
        const PreparedCompressor& compressor = randomCompressor(true);
        clsProjectConditions conditions = random_.conditionsFor(compressor);
        conditions.EcoCalculateMode = EconomizerMode::none;
        const auto kind = random_.oneOf(std::array{CapacityKind::cooling, CapacityKind::heating});
        InverterStates states(calculator_, compressor, conditions, kind);
        if (!states.isPossible()) {
            EXPECT_FALSE(states.first().isPossible());
            continue;
        }
        const double low = capacityOf(states.lowest().performance, kind);
        const double high = capacityOf(states.highest().performance, kind);
        const double wanted = low + (high - low) * random_.between(0.05, 0.95);
        const CapacityState& state = states.forCapacity(wanted);
        EXPECT_NEAR(capacityOf(state.performance, kind) / wanted, 1, 1e-6) << compressor.Model;
        conditions.StepCapacity = 100;
        conditions.InverterFrequency = *frequencyOf(compressor, state.at.conditions);
        testing::expectPlainSelection(compressor, conditions, state.performance);
        EXPECT_EQ(capacityOf(states.forCapacity(low / 2).performance, kind), low);
        EXPECT_EQ(capacityOf(states.forCapacity(high * 2).performance, kind), high);
        ++solved;
    }
    EXPECT_GT(solved, 15U);
}

TEST_F(CapacityStatesTest, TheLineOfTheEnvelopeLimitsTheFrequency) {
    std::set<float> ends;
    for (int i = 0; i < 200; ++i) {
        const PreparedCompressor& compressor = randomCompressor(true);
        clsProjectConditions conditions = random_.conditionsFor(compressor);
        conditions.EcoCalculateMode = EconomizerMode::none;
        const FrequencyRange range = frequencyRange(compressor, conditions);
        EXPECT_EQ(range.low, 20);
        ends.insert(range.high);
        const HoldingLimits around =
            compressor.envelope->limits.holding(conditions.TEvaporatingDew, conditions.TCondensationDew);
        for (const auto& [type, hertz] : {std::pair(14, 70), {13, 60}, {12, 50}}) {
            if (!around.FindLimitType(type)) continue;
            EXPECT_EQ(range.high, static_cast<float>(hertz));
            break;
        }
    }
    EXPECT_EQ(ends, (std::set<float>{50, 60, 70}));
}

}  // namespace
}  // namespace marvello

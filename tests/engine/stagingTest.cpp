#include "engine/Staging.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace marvello {
namespace {

constexpr Degradation none{};
constexpr Degradation quarter{Degradation::Form::condensingUnit, 0.25};

/// With steps of 50 and 100 %: 60 kW for 20 kW, and 100 kW for 30 kW.
StagedMachines stepped(int count = 1) { return {.count = count, .states = {{60, 20, 50}, {100, 30, 100}}}; }

/// 40 to 120 kW for a third of it and 2 kW more; a hertz for two kilowatts.
StagedMachines inverter() {
    const auto at = [](double capacity) {
        return RunningState{
            .capacity = capacity, .power = capacity / 3 + 2, .frequency = static_cast<float>(capacity / 2)};
    };
    return {.states = {at(40), at(120)}, .solve = at};
}

StagedLoad stage(std::vector<StagedMachines> group, double needed, Staging staging = Staging::power,
                 const Degradation& degradation = none) {
    return sharedLoad(group, needed, staging, degradation);
}

TEST(Staging, AMachineAlternatesBetweenNeighbouringSteps) {
    const StagedLoad met = stage({stepped()}, 70);
    // A quarter of the way from 60 to 100 kW, and from 20 to 30 kW.
    ASSERT_EQ(met.running.size(), 2U);
    EXPECT_EQ(met.running[0].state.step, 100);
    EXPECT_DOUBLE_EQ(met.running[0].share, 0.25);
    EXPECT_EQ(met.running[1].state.step, 50);
    EXPECT_DOUBLE_EQ(met.running[1].share, 0.75);
    EXPECT_DOUBLE_EQ(met.capacity(), 70);
    EXPECT_DOUBLE_EQ(met.power(), 22.5);
    EXPECT_EQ(met.machines(), 1);
    EXPECT_EQ(met.intermittent(), 0);
}

TEST(Staging, LastBitsOfALoadNeedNoSecondState) {
    for (const double needed : {60 * (1 - 1e-13), 60.0, 60 * (1 + 1e-13)}) {
        const StagedLoad met = stage({stepped()}, needed);
        ASSERT_EQ(met.running.size(), 1U);
        EXPECT_EQ(met.running[0].share, 1);
        EXPECT_EQ(met.intermittent(), 0);
    }
}

TEST(Staging, BelowItsLowestStepAMachineRunsIntermittently) {
    // Half of 60 kW: half of the time, and a COP of 3 * (1 - 0.25 * 0.5) = 2.625.
    const StagedLoad met = stage({stepped()}, 30, Staging::power, quarter);
    ASSERT_EQ(met.running.size(), 1U);
    EXPECT_DOUBLE_EQ(met.running[0].share, 0.5);
    EXPECT_DOUBLE_EQ(met.running[0].degradation, 0.875);
    EXPECT_DOUBLE_EQ(met.capacity(), 30);
    EXPECT_DOUBLE_EQ(met.power(), 30 / 2.625);
    EXPECT_DOUBLE_EQ(met.intermittent(), 0.5);
    EXPECT_DOUBLE_EQ(stage({stepped()}, 30).power(), 10);
    // The other form: 0.5 / (0.9 * 0.5 + 0.1) = 0.90909 of the COP.
    EXPECT_NEAR(stage({stepped()}, 30, Staging::power, {Degradation::Form::chiller, 0.9}).power(), 11, 1e-12);
}

TEST(Staging, AnInverterTakesTheFrequencyThatIsMissing) {
    const StagedLoad met = stage({inverter()}, 90);
    ASSERT_EQ(met.running.size(), 1U);
    EXPECT_EQ(met.running[0].state.frequency, 45);
    EXPECT_DOUBLE_EQ(met.power(), 32);
    const StagedLoad below = stage({inverter()}, 10, Staging::power, quarter);
    EXPECT_EQ(below.running[0].state.frequency, 20);
    EXPECT_DOUBLE_EQ(below.running[0].share, 0.25);
}

// Where frequencies have errors the nearest one is no answer: 60 kW lie between 45 and 120 kW.
TEST(Staging, AnInverterAlternatesWhereNoFrequencyFits) {
    StagedMachines machines = inverter();
    const auto solve = machines.solve;
    machines.solve = [solve](double capacity) {
        return solve(capacity < 45 ? capacity : capacity < 65 ? 45 : std::max(capacity, 85.0));
    };
    const StagedLoad met = stage({machines}, 60);
    ASSERT_EQ(met.running.size(), 2U);
    // 60 = 0.2 * 120 + 0.8 * 45.
    EXPECT_DOUBLE_EQ(met.running[0].state.capacity, 120);
    EXPECT_DOUBLE_EQ(met.running[0].share, 0.2);
    EXPECT_DOUBLE_EQ(met.running[1].state.capacity, 45);
    EXPECT_DOUBLE_EQ(met.capacity(), 60);
    EXPECT_EQ(met.machines(), 1);
}

TEST(Staging, AGroupRunsAtLeastPower) {
    // 160 kW of two machines and an inverter. Two machines at 100 and 60 kW take 50 kW. One at 100 kW and the
    // inverter at 60 kW take 30 + 22 = 52 kW.
    const StagedLoad two = stage({stepped(2), inverter()}, 160);
    EXPECT_DOUBLE_EQ(two.power(), 50);
    EXPECT_EQ(two.machines(), 2);
    ASSERT_EQ(two.running.size(), 2U);
    EXPECT_EQ(two.running[0].state.capacity, 100);
    EXPECT_EQ(two.running[1].state.capacity, 60);
    // 210 kW: 100 and 110 kW by the inverter take 30 + 38.667 kW; with two at 100 kW and the inverter a
    // quarter of its lowest capacity 60 + 0.25 * 15.333 = 63.833 kW.
    const StagedLoad three = stage({stepped(2), inverter()}, 210);
    EXPECT_NEAR(three.power(), 63.8333333333, 1e-9);
    EXPECT_EQ(three.running[0].count, 2);
    EXPECT_EQ(three.machines(), 3);
}

TEST(Staging, TheSequenceLoadsOneAfterTheOther) {
    const StagedLoad met = stage({inverter(), stepped(2)}, 250, Staging::sequence);
    ASSERT_EQ(met.running.size(), 3U);
    EXPECT_EQ(met.running[0].state.frequency, 60);
    EXPECT_EQ(met.running[1].state.capacity, 100);
    EXPECT_DOUBLE_EQ(met.running[2].share, 0.5);  // of 60 kW
    EXPECT_DOUBLE_EQ(met.power(), 42 + 30 + 10);
    EXPECT_EQ(stage({stepped(3)}, 200, Staging::sequence).running[0].count, 2);
}

TEST(Staging, WhatCannotBeMetIsMissing) {
    for (const Staging staging : {Staging::power, Staging::sequence}) {
        const StagedLoad met = stage({stepped(2), inverter()}, 400, staging);
        EXPECT_DOUBLE_EQ(met.capacity(), 320);
        EXPECT_DOUBLE_EQ(met.unmet, 80);
        EXPECT_DOUBLE_EQ(met.power(), 102);
        EXPECT_TRUE(stage({stepped()}, 0, staging).running.empty());
        EXPECT_TRUE(stage({StagedMachines{}}, 10, staging).running.empty());
        EXPECT_EQ(stage({StagedMachines{}}, 10, staging).unmet, 10);
        EXPECT_EQ(stage({stepped(), inverter()}, 220, staging).unmet, 0);
        EXPECT_DOUBLE_EQ(stage({StagedMachines{.count = 2}, stepped()}, 100, staging).power(), 30);
    }
}

TEST(Staging, OfEqualPowerFewerMachinesRunAndTheFirstOnes) {
    const StagedMachines whole{.states = {{100, 30}}};
    const StagedMachines half{.states = {{50, 15}}};
    EXPECT_EQ(stage({half, half, whole}, 100).machines(), 1);
    const StagedLoad first = stage({whole, whole, half}, 100);
    ASSERT_EQ(first.running.size(), 1U);
    EXPECT_EQ(first.running[0].kind, 0U);
    EXPECT_EQ(stage({half, whole, whole}, 150).running[1].kind, 1U);
}

/// A group of machines, each on its own.
struct Unit {
    std::vector<RunningState> states;
    bool isInverter = false;
    double offset = 0, slope = 0, bend = 0;  // power of an inverter over its capacity

    double powerAt(double capacity) const { return offset + slope * capacity + bend * capacity * capacity; }
};

/// What a machine takes that covers a part of the load on its own; infinite if it cannot.
double trimmingPower(const Unit& unit, double load, const Degradation& degradation) {
    if (load == 0) return 0;
    const RunningState& low = unit.states.front();
    if (load < low.capacity) {
        const double ratio = load / low.capacity;
        return load / (low.capacity / low.power * degradation.factor(ratio));
    }
    if (load > unit.states.back().capacity * (1 + 1e-12)) return std::numeric_limits<double>::infinity();
    if (unit.isInverter) return unit.powerAt(load);
    for (std::size_t i = 1; i < unit.states.size(); ++i) {
        const RunningState& a = unit.states[i - 1];
        const RunningState& b = unit.states[i];
        if (load <= b.capacity * (1 + 1e-12))
            return a.power + (b.power - a.power) * (load - a.capacity) / (b.capacity - a.capacity);
    }
    return low.power;
}

/// All states of all machines but one, one after the other.
double bruteForce(const std::vector<Unit>& units, std::size_t trimming, std::size_t index, double left,
                  double power, const Degradation& degradation) {
    if (std::abs(left) < 1e-9) left = 0;
    if (left < 0) return std::numeric_limits<double>::infinity();
    if (index == units.size()) return power + trimmingPower(units[trimming], left, degradation);
    double best = bruteForce(units, trimming, index + 1, left, power, degradation);  // off
    if (index == trimming) return best;
    const std::vector<RunningState>& states = units[index].states;
    for (std::size_t i = 0; i < states.size(); ++i) {
        if (units[index].isInverter && i != 0 && i + 1 != states.size()) continue;
        best = std::min(best, bruteForce(units, trimming, index + 1, left - states[i].capacity,
                                         power + states[i].power, degradation));
    }
    return best;
}

class RandomGroup {
  public:
    explicit RandomGroup(unsigned seed) : random_(seed) {
        const int kinds = 1 + static_cast<int>(seed % 4);
        for (int kind = 0; kind < kinds; ++kind) {
            const bool isInverter = kind == 1 && seed % 3 != 0;
            add(isInverter ? anInverter() : aStepped(), isInverter ? 1 : 1 + static_cast<int>(seed / 4 % 2));
        }
    }

    double between(double low, double high) { return std::uniform_real_distribution(low, high)(random_); }
    double maxCapacity() const {
        double sum = 0;
        for (const Unit& unit : units) sum += unit.states.back().capacity;
        return sum;
    }

    std::vector<Unit> units;
    std::vector<StagedMachines> group;

  private:
    Unit aStepped() {
        Unit unit;
        double capacity = 0;
        const int steps = 1 + static_cast<int>(between(0, 3.99));
        for (int i = 0; i < steps; ++i) {
            capacity += between(5, 40);
            unit.states.push_back({capacity, capacity * between(0.2, 0.45)});
        }
        return unit;
    }
    Unit anInverter() {
        Unit unit{.states = {},
                  .isInverter = true,
                  .offset = between(0, 6),
                  .slope = between(0.15, 0.3),
                  .bend = between(-0.0005, 0.002)};
        const double low = between(10, 30);
        const double high = low * between(1.5, 3.5);
        for (int i = 0; i < 4; ++i) {
            const double capacity = low + (high - low) * i / 3;
            unit.states.push_back({.capacity = capacity, .power = unit.powerAt(capacity), .frequency = 50});
        }
        return unit;
    }
    void add(const Unit& unit, int count) {
        StagedMachines machines{.count = count, .states = unit.states};
        if (unit.isInverter)
            machines.solve = [unit](double capacity) {
                return RunningState{.capacity = capacity, .power = unit.powerAt(capacity), .frequency = 50};
            };
        group.push_back(machines);
        units.insert(units.end(), static_cast<std::size_t>(count), unit);
    }

    std::mt19937 random_;
};

TEST(Staging, IsAsGoodAsAllCombinations) {
    for (unsigned seed = 0; seed < 200; ++seed) {
        SCOPED_TRACE(seed);
        RandomGroup random(seed);
        const Degradation degradation = seed % 5 == 0   ? none
                                        : seed % 5 == 1 ? Degradation{Degradation::Form::chiller, 0.9}
                                                        : quarter;
        // A year puts one load after the other to the same group, which keeps what was solved.
        for (int load = 0; load < 3; ++load) {
            double needed = random.maxCapacity() * random.between(0.02, 0.999);
            // Now and then exactly what one machine has at its highest state.
            if (seed % 10 == 0 && load == 0) needed = random.units.front().states.back().capacity;
            double best = std::numeric_limits<double>::infinity();
            for (std::size_t trimming = 0; trimming < random.units.size(); ++trimming)
                best = std::min(best, bruteForce(random.units, trimming, 0, needed, 0, degradation));
            const StagedLoad met = sharedLoad(random.group, needed, Staging::power, degradation);
            EXPECT_NEAR(met.power(), best, 1e-8 * best);
            EXPECT_NEAR(met.capacity(), needed, 1e-9 * needed);
            const StagedLoad sequence = sharedLoad(random.group, needed, Staging::sequence, degradation);
            EXPECT_NEAR(sequence.capacity(), needed, 1e-9 * needed);
            EXPECT_GE(sequence.power(), best * (1 - 1e-9));
        }
    }
}

}  // namespace
}  // namespace marvello

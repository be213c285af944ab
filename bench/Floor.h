#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <ctime>
#include <utility>
#include <vector>

namespace marvello::bench {

/// Seconds of the processor, so that a busy machine does not count.
double processorSecondsOf(const auto& work) {
    const std::clock_t begun = std::clock();
    work();
    return static_cast<double>(std::clock() - begun) / CLOCKS_PER_SEC;
}

inline double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

/// What something costs next to its floor: the least that it could cost. "ratio" is the one over the other.
/// `floorName` tells what the floor is; `each` is how many of the thing a turn does.
class AgainstFloor {
  public:
    AgainstFloor(benchmark::State& state, const char* floorName, int each = 1) : state_(state), each_(each) {
        state.SetLabel(floorName);
    }
    ~AgainstFloor() {
        if (works_.empty()) return;
        const double microseconds = 1e6 / each_;
        state_.counters["work_us"] = microseconds * median(works_);
        state_.counters["floor_us"] = microseconds * median(floors_);
        state_.counters["ratio"] = median(works_) / median(floors_);
    }
    AgainstFloor(const AgainstFloor&) = delete;
    AgainstFloor& operator=(const AgainstFloor&) = delete;

    void add(double workSeconds, double floorSeconds) {
        state_.SetIterationTime(workSeconds);
        works_.push_back(workSeconds);
        floors_.push_back(floorSeconds);
    }

    /// Both by turns, so that both see the same machine.
    void run(const auto& work, const auto& floor) {
        for ([[maybe_unused]] auto turn : state_) {
            const double taken = processorSecondsOf(work);
            add(taken, processorSecondsOf(floor));
        }
    }

  private:
    benchmark::State& state_;
    int each_;
    std::vector<double> works_;
    std::vector<double> floors_;
};

}  // namespace marvello::bench

#include "engine/FrequencySearch.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

namespace marvello {

FrequencySearch::FrequencySearch(float from, float to, Calculate calculate)
    : calculate_(std::move(calculate)) {
    const bool isWhole = at(from).isPossible && at(to).isPossible;
    if (!isWhole && from < to) sample(from, to);
}

bool FrequencySearch::isPossible() const {
    return std::ranges::any_of(trials_, [](const auto& trial) { return trial.second.isPossible; });
}

const FrequencySearch::Trial& FrequencySearch::at(float frequency) {
    const auto [trial, isNew] = trials_.try_emplace(frequency);
    if (isNew) trial->second = calculate_(frequency);
    return trial->second;
}

/// Looks where in the range there is no error.
void FrequencySearch::sample(float from, float to) {
    constexpr int parts = 10;
    for (int i = 1; i < parts; ++i) at(from + (to - from) * static_cast<float>(i) / parts);
    std::vector<std::pair<float, float>> borders;  // possible, failing
    for (auto next = trials_.begin(), last = next++; next != trials_.end(); last = next++) {
        if (last->second.isPossible && !next->second.isPossible)
            borders.emplace_back(last->first, next->first);
        else if (!last->second.isPossible && next->second.isPossible)
            borders.emplace_back(next->first, last->first);
    }
    for (const auto& [possible, failing] : borders) narrowToError(possible, failing);
}

void FrequencySearch::narrowToError(float possible, float failing) {
    constexpr float width = 0.001F;  // Hz
    while (std::abs(failing - possible) > width) {
        const float middle = (possible + failing) / 2;
        (at(middle).isPossible ? possible : failing) = middle;
    }
}

float FrequencySearch::solve(double wanted) {
    std::optional<std::pair<float, float>> around;
    for (auto next = trials_.begin(), last = next++; next != trials_.end() && !around; last = next++) {
        const auto isAbove = [&](const auto& trial) { return trial->second.capacity > wanted; };
        if (last->second.isPossible && next->second.isPossible && isAbove(last) != isAbove(next))
            around.emplace(last->first, next->first);
    }
    if (around) refine(around->first, around->second, wanted);
    return nearest(wanted);
}

/// Secants between two frequencies that hold the solution, with the weight of an end halved that stays twice
/// (the Illinois method), and a halving now and then for a capacity that has a step.
void FrequencySearch::refine(float low, float high, double wanted) {
    constexpr int maxPasses = 40;
    constexpr double tolerance = 1e-9;
    double missedLow = at(low).capacity - wanted;
    double missedHigh = at(high).capacity - wanted;
    bool wasLow = false;
    bool wasHigh = false;
    for (int pass = 1; pass <= maxPasses; ++pass) {
        const double share = pass % 4 == 0 ? 0.5 : missedLow / (missedLow - missedHigh);
        float middle = low + (high - low) * static_cast<float>(share);
        middle = std::clamp(middle, std::nextafter(low, high), std::nextafter(high, low));
        if (middle <= low || middle >= high) return;  // neighbours
        const Trial& trial = at(middle);
        if (!trial.isPossible) return;
        const double missed = trial.capacity - wanted;
        if (std::abs(missed) <= tolerance * wanted) return;
        if ((missed > 0) == (missedLow > 0)) {
            low = middle;
            missedLow = missed;
            if (std::exchange(wasLow, true)) missedHigh /= 2;
            wasHigh = false;
        } else {
            high = middle;
            missedHigh = missed;
            if (std::exchange(wasHigh, true)) missedLow /= 2;
            wasLow = false;
        }
    }
}

float FrequencySearch::nearest(double wanted) const {
    const auto missed = [wanted](const auto& trial) {
        return trial.second.isPossible ? std::abs(trial.second.capacity - wanted) : HUGE_VAL;
    };
    return std::ranges::min_element(trials_, {}, missed)->first;
}

}  // namespace marvello

#include "fluids/StateArrays.h"

#include <algorithm>

namespace marvello::fluids {
namespace {

constexpr std::size_t mostKeys = 256;

}  // namespace

void StateArrays::find(Property property, std::span<const double> pressures, std::span<const double> values,
                       double zero) {
    property_ = property;
    pressures_ = pressures;
    values_ = values;
    zero_ = zero;
    if (!fluid_->phase().residual().fitsLanes()) {
        for (std::size_t i = 0; i < pressures.size(); ++i) sink_->leave(i);
        return;
    }
    for (first_ = 0; first_ < pressures.size(); first_ += blockSize)
        findBlock(std::min(blockSize, pressures.size() - first_));
}

void StateArrays::findBlock(std::size_t size) {
    const IsobarTable& isobars = fluid_->isobars();
    none_ = static_cast<Index>(isobars.cellCount() * IsobarTable::stretchCount);
    for (std::size_t i = 0; i < size; ++i) {
        const auto place = isobars.placeOf(pressures_[first_ + i]);
        keys_[i] = place ? static_cast<Index>(place->cell * IsobarTable::stretchCount) : none_;
        within_[i] = place ? place->within : 0;
    }
    sort(size);
    forEachRun(size, [this](std::span<const Index> states) {
        if (keys_[states.front()] < none_) chooseStretches(states);
    });
    sort(size);
    forEachRun(size, [this](std::span<const Index> states) {
        if (keys_[states.front()] < none_) {
            search(states);
        } else {
            for (const Index i : states) sink_->leave(first_ + i);
        }
    });
}

/// By the keys, counting.
void StateArrays::sort(std::size_t size) {
    std::array<Index, mostKeys + 1> ends{};
    for (std::size_t i = 0; i < size; ++i) ++ends[keys_[i] + 1U];
    for (std::size_t key = 1; key <= none_; ++key) ends[key] = static_cast<Index>(ends[key] + ends[key - 1]);
    for (std::size_t i = 0; i < size; ++i) order_[ends[keys_[i]]++] = static_cast<Index>(i);
}

/// Calls `run` with states of the same key, at most laneCount.
template <class Run>
void StateArrays::forEachRun(std::size_t size, Run run) {
    for (std::size_t from = 0; from < size;) {
        std::size_t end = from + 1;
        while (end < size && end - from < laneCount && keys_[order_[end]] == keys_[order_[from]]) ++end;
        run(std::span<const Index>(&order_[from], end - from));
        from = end;
    }
}

/// The lanes of states; those that are left over repeat the last one.
void StateArrays::fill(std::span<const Index> states, Query& query) const {
    for (std::size_t lane = 0; lane < laneCount; ++lane) {
        const Index i = states[std::min(lane, states.size() - 1)];
        query.within[lane] = within_[i];
        query.pressure[lane] = pressures_[first_ + i];
        query.value[lane] = values_[first_ + i] - zero_;
    }
}

/// Adds the stretch to the key, which was that of the cell.
void StateArrays::chooseStretches(std::span<const Index> states) {
    Query query;
    fill(states, query);
    IsobarTable::StretchOfLane stretches;
    const std::size_t cell = keys_[states.front()] / IsobarTable::stretchCount;
    fluid_->isobars().stretchesOf(cell, property_, query.within, query.value, stretches);
    for (std::size_t lane = 0; lane < states.size(); ++lane) {
        const bool isNone = stretches[lane] == IsobarTable::stretchCount;
        keys_[states[lane]] = isNone ? none_ : static_cast<Index>(keys_[states[lane]] + stretches[lane]);
    }
}

void StateArrays::search(std::span<const Index> states) {
    Query query;
    fill(states, query);
    const std::size_t key = keys_[states.front()];
    PhaseLaneSearch::Task task;
    task.pressure = query.pressure;
    task.wanted = query.value;
    fluid_->isobars().onePhaseAt(key / IsobarTable::stretchCount, key % IsobarTable::stretchCount, property_,
                                 query.within, query.value, task.temperature, task.density);
    PhaseLanes found;
    LaneBits isFound;
    fluid_->lanes().find(property_, task, found, isFound);
    for (std::size_t lane = 0; lane < states.size(); ++lane) {
        const std::size_t place = first_ + states[lane];
        if (isFound[lane] == 0) {
            sink_->leave(place);
        } else {
            sink_->take(place, found, lane);
        }
    }
}

}  // namespace marvello::fluids

#include "thermo/StateMemory.h"

#include <bit>

namespace marvello {

namespace {

/// More than a run of all compressors of a refrigerant at one condition asks for, and less than a cache
/// holds.
constexpr std::size_t mostStates = 2048;
constexpr std::size_t leastPlaces = 64;

std::uint32_t tagOf(std::uint64_t hash) { return static_cast<std::uint32_t>(hash >> 32); }

}  // namespace

std::uint64_t StateCall::hash() const {
    constexpr std::uint64_t multiplier = 0x9E3779B97F4A7C15ULL;
    const auto mix = [](std::uint64_t hash, std::uint64_t part) {
        hash = (hash ^ part) * multiplier;
        return hash ^ (hash >> 29);
    };
    const std::uint64_t side = mix(static_cast<std::uint64_t>(function), static_cast<std::uint64_t>(kph));
    return mix(mix(side, std::bit_cast<std::uint64_t>(first)), std::bit_cast<std::uint64_t>(second));
}

/// Where the call is, or the free place where it belongs.
StateMemory::Place& StateMemory::placeOf(const StateCall& call, std::uint64_t hash) {
    const std::size_t mask = places_.size() - 1;
    const std::uint32_t tag = tagOf(hash);
    for (std::size_t at = hash & mask;; at = (at + 1) & mask) {
        Place& place = places_[at];
        if (place.turn != turn_ || (place.tag == tag && kept_[place.number].call == call)) return place;
    }
}

const RefpropState* StateMemory::find(const StateCall& call, std::uint64_t hash) {
    if (count_ == 0) return nullptr;
    const Place& place = placeOf(call, hash);
    return place.turn == turn_ ? &kept_[place.number].state : nullptr;
}

void StateMemory::keep(const StateCall& call, std::uint64_t hash, const RefpropState& state) {
    if (count_ == mostStates) clear();
    if (2 * count_ >= places_.size()) grow();
    if (count_ == kept_.size()) kept_.emplace_back();
    kept_[count_] = {call, state};
    put(count_++, hash);
}

void StateMemory::put(std::size_t number, std::uint64_t hash) {
    placeOf(kept_[number].call, hash) = {tagOf(hash), turn_, static_cast<std::uint16_t>(number)};
}

void StateMemory::clear() {
    count_ = 0;
    if (++turn_ != 0) return;
    places_.clear();  // all turns were used: none of the places may look taken
    turn_ = 1;
}

/// Doubles the places, and puts the states of this turn into them.
void StateMemory::grow() {
    places_.assign(places_.empty() ? leastPlaces : 2 * places_.size(), {});
    for (std::size_t number = 0; number < count_; ++number) put(number, kept_[number].call.hash());
}

}  // namespace marvello

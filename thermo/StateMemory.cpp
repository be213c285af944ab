#include "thermo/StateMemory.h"

#include <bit>

namespace marvello {

namespace {

/// More than a run of all compressors of a refrigerant at one condition asks for, and less than a cache
/// holds.
constexpr std::size_t mostStates = 2048;
constexpr std::size_t leastPlaces = 64;

std::uint64_t hashOf(const StateCall& call) {
    constexpr std::uint64_t multiplier = 0x9E3779B97F4A7C15ULL;
    const auto mix = [](std::uint64_t hash, std::uint64_t part) {
        hash = (hash ^ part) * multiplier;
        return hash ^ (hash >> 29);
    };
    const std::uint64_t hash =
        mix(static_cast<std::uint64_t>(call.function), static_cast<std::uint64_t>(call.kph));
    return mix(mix(hash, std::bit_cast<std::uint64_t>(call.first)),
               std::bit_cast<std::uint64_t>(call.second));
}

}  // namespace

/// Where the call is, or the free place where it belongs.
StateMemory::Place& StateMemory::placeOf(const StateCall& call) {
    const std::size_t mask = places_.size() - 1;
    std::size_t place = hashOf(call) & mask;
    while (places_[place].turn == turn_ && kept_[places_[place].number].call != call)
        place = (place + 1) & mask;
    return places_[place];
}

const RefpropState* StateMemory::find(const StateCall& call) {
    if (count_ == 0) return nullptr;
    const Place& place = placeOf(call);
    return place.turn == turn_ ? &kept_[place.number].state : nullptr;
}

void StateMemory::keep(const StateCall& call, const RefpropState& state) {
    if (count_ == mostStates) clear();
    if (2 * count_ >= places_.size()) grow();
    placeOf(call) = {turn_, static_cast<std::uint32_t>(count_)};
    if (count_ == kept_.size()) kept_.emplace_back();
    kept_[count_++] = {call, state};
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
    for (std::size_t number = 0; number < count_; ++number)
        placeOf(kept_[number].call) = {turn_, static_cast<std::uint32_t>(number)};
}

}  // namespace marvello

#include "thermo/StateMemory.h"

#include <utility>

namespace marvello {

namespace {

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
std::size_t StateMemory::placeOf(const StateCall& call) const {
    const std::size_t mask = places_.size() - 1;
    std::size_t place = hashOf(call) & mask;
    while (places_[place].turn == turn_ && places_[place].call != call) place = (place + 1) & mask;
    return place;
}

const RefpropState* StateMemory::find(const StateCall& call) const {
    if (count_ == 0) return nullptr;
    const Place& place = places_[placeOf(call)];
    return place.turn == turn_ ? &place.state : nullptr;
}

void StateMemory::keep(const StateCall& call, const RefpropState& state) {
    if (count_ == mostStates) clear();
    if (2 * count_ >= places_.size()) grow();
    Place& place = places_[placeOf(call)];
    place.turn = turn_;
    place.call = call;
    place.state = state;
    ++count_;
}

void StateMemory::clear() {
    count_ = 0;
    if (++turn_ != 0) return;
    places_.clear();  // all turns were used: none of the places may look taken
    turn_ = 1;
}

void StateMemory::grow() {
    constexpr std::size_t least = 64;
    std::vector<Place> before(places_.empty() ? least : 2 * places_.size());
    std::swap(before, places_);
    for (Place& place : before) {
        if (place.turn == turn_) places_[placeOf(place.call)] = std::move(place);
    }
}

}  // namespace marvello

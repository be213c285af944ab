#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "fluids/RefpropSession.h"

namespace marvello {

/// A call of the property library for a state.
struct StateCall {
    enum class Function : std::uint8_t { satt, satp, tpflsh, tsflsh, phflsh, psflsh };

    Function function{};
    std::int32_t kph = 0;  ///< Side of saturation; 0 for the others.
    double first = 0;
    double second = 0;
    bool operator==(const StateCall&) const = default;

    std::uint64_t hash() const;
};

/// The states that the property library was asked for lately. Room is made as it is needed, up to a fixed
/// count of states, with which a memory begins anew. To find a state, or to keep one where there is room,
/// allocates nothing.
class StateMemory {
  public:
    /// The state of a call, or null. `hash` is that of the call, here and below.
    const RefpropState* find(const StateCall& call, std::uint64_t hash);
    /// Keeps the state of a call that is not kept yet.
    void keep(const StateCall& call, std::uint64_t hash, const RefpropState& state);
    void clear();

  private:
    struct Kept {
        StateCall call;
        RefpropState state;
    };
    /// Where a state is in `kept_`, if the turn is the present one. The tag, a part of the call's hash, tells
    /// most calls apart without a look there.
    struct Place {
        std::uint32_t tag = 0;
        std::uint16_t turn = 0;
        std::uint16_t number = 0;
    };

    Place& placeOf(const StateCall& call, std::uint64_t hash);
    void put(std::size_t number, std::uint64_t hash);
    void grow();

    std::vector<Kept> kept_;     ///< Those of former turns are written over.
    std::size_t count_ = 0;      ///< Of this turn.
    std::vector<Place> places_;  ///< By the hash of the call; a power of two.
    std::uint16_t turn_ = 1;
};

}  // namespace marvello

#pragma once

#include <bit>
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
};

/// The states that the property library was asked for lately. Its places are made as they are needed, up to a
/// fixed count; a full memory begins anew. To keep a state or to find it allocates nothing once the places
/// are there.
class StateMemory {
  public:
    /// The state of a call, or null.
    const RefpropState* find(const StateCall& call) const;
    /// Keeps the state of a call that is not kept yet.
    void keep(const StateCall& call, const RefpropState& state);
    void clear();

  private:
    struct Place {
        std::uint32_t turn = 0;  ///< Taken, if it is the present one.
        StateCall call;
        RefpropState state;
    };
    /// More states than a run of the whole catalogue at one condition asks for, in twice the places.
    static constexpr std::size_t mostStates = 8192;

    std::size_t placeOf(const StateCall& call) const;
    void grow();

    std::vector<Place> places_;  ///< A power of two.
    std::size_t count_ = 0;
    std::uint32_t turn_ = 1;
};

}  // namespace marvello

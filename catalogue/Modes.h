#pragma once

#include <cstdint>
#include <type_traits>

namespace marvello {

// The choices of a calculation with their codes, as the catalogue, the lists of the forms and files keep
// them. Any other code is kept as it is.

/// What the economizer is calculated for; any other code counts as `capacity` without its limits.
enum class EconomizerMode : int { none = 0, approach = 1, capacity = 2 };

/// Which limit of the discharge temperature asks for oil cooling.
enum class OilCoolingMode : int { none = 0, catalogueLimit = 1, givenLimit = 2 };

/// What was entered for the suction gas; any other code is a temperature.
enum class SuperheatKind : int { difference = 0, temperature = 1 };

/// Which motor of a compressor, if it has two. `standard` is only to ask for.
enum class MotorChoice : int { standard = -1, small = 0, full = 1 };

/// The markets of tCompressors, as bits; 0 is any.
enum class Market : std::uint8_t { any = 0, european = 1, farEast = 2 };

template <class Mode>
constexpr std::underlying_type_t<Mode> codeOf(Mode mode) {
    return static_cast<std::underlying_type_t<Mode>>(mode);
}

}  // namespace marvello

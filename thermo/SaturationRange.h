#pragma once

#include <cstdint>
#include <string>

namespace marvello {

/// The dew temperatures of a refrigerant, degrees Celsius: from the lowest that its equations of state reach
/// to the critical temperature, or the highest dew temperature of a blend.
struct SaturationRange {
    double minimum = 0;
    double maximum = 0;

    bool contains(double t) const { return t >= minimum && t <= maximum; }
};

/// Returns `range`, in any unit, rounded inwards to tenths: both ends can be written down and are permitted.
SaturationRange inTenths(const SaturationRange& range);

/// Returns the range of `refrigerant`, a key of tRefrigeranti, within 0.01 K on its inner side: both ends
/// have a dew pressure. It is searched for once for each set-up of the property library. Throws
/// FluidLibraryError and DatabaseError; throws std::runtime_error with the library's sentence if the
/// refrigerant cannot be set up.
SaturationRange saturationRange(const std::string& refrigerant);

/// What is wrong with a pair of dew temperatures, the first that holds.
enum class TemperatureFault : std::uint8_t {
    none,
    evaporatingOutside,          ///< The evaporating temperature is outside the range.
    condensingOutside,           ///< The condensing temperature is outside the range.
    evaporatingAboveCondensing,  ///< Both are in the range, in the wrong order.
};

/// Judges an evaporating and a condensing dew temperature, degrees Celsius. Equal ones are in order: no rule
/// forbids them, and the envelope says more.
TemperatureFault judgeTemperatures(const SaturationRange& range, double evaporating, double condensing);

}  // namespace marvello

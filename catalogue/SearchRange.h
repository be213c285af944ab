#pragma once

/// What can be asked of a search for a needed capacity, and what it begins with.
namespace marvello::searchRange {

inline constexpr double minCapacity = 0.1;  ///< kW, and tons of refrigeration where those are used
inline constexpr double maxCapacity = 100000;
inline constexpr double maxBelow = 100;  ///< Deviation of the capacity, percent.
inline constexpr double maxAbove = 1000;
inline constexpr double usualBelow = 5;
inline constexpr double usualAbove = 20;
inline constexpr int maxMachines = 4;  ///< In parallel.

}  // namespace marvello::searchRange

#pragma once

namespace marvello {

inline constexpr double zeroCelsius = 273.15;           ///< K
inline constexpr double standardAtmosphere = 0.101325;  ///< MPa; gauge pressures begin there

/// Flows are kept in kg/h, capacity and power in kW.
inline constexpr double secondsPerHour = 3600;

}  // namespace marvello

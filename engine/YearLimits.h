#pragma once

namespace marvello {

/// What can be entered for a year, both ends included.
struct YearLimit {
    double minimum, maximum;

    constexpr bool holds(double value) const { return value >= minimum && value <= maximum; }
};

namespace yearLimits {

inline constexpr YearLimit designLoad{0.1, 100'000};           ///< kW
inline constexpr YearLimit price{0, 1000};                     ///< For a kWh, in any currency.
inline constexpr YearLimit grid{0, 3};                         ///< kg CO2e/kWh
inline constexpr YearLimit charge{0, 100'000};                 ///< kg
inline constexpr YearLimit percent{0, 100};                    ///< Of the charge.
inline constexpr YearLimit life{1, 100};                       ///< Years.
inline constexpr YearLimit degradation{0, 1};                  ///< Coefficient.
inline constexpr YearLimit condensingDifference{-60, 60};      ///< K
inline constexpr YearLimit condensingTemperature{-100, 200};   ///< degrees Celsius, wide enough for water
inline constexpr YearLimit evaporatingTemperature{-100, 100};  ///< degrees Celsius
inline constexpr YearLimit outdoorTemperature{-80, 70};        ///< degrees Celsius
inline constexpr YearLimit binHours{0, 8784};                  ///< Those of a leap year.

}  // namespace yearLimits

}  // namespace marvello

#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "catalogue/clsProjectConditions.h"
#include "engine/Calculator.h"

namespace marvello {

/// The key of the error of an operating point outside of all limits.
inline constexpr std::string_view outsideEnvelope = "messages.message01";

/// What a calculation says of an operating point as a whole.
enum class PointState : std::uint8_t {
    ok,
    warning,
    error,   ///< Has no values.
    outside  ///< Of all limits; has no values.
};

/// Returns "ok", "warning", "error" or "outside".
std::string_view nameOf(PointState state);

/// What the calculation of a compressor comes to at an operating point, in the figures that selections show.
struct Performance {
    /// The figures that an economizer changes.
    struct Duty {
        double capacity = 0;              ///< Cooling capacity, kW.
        double power = 0;                 ///< Power input, kW.
        double condenserLoad = 0;         ///< kW
        double cop = 0;                   ///< As the calculation has it, which rounds both first.
        std::optional<double> current{};  ///< A; none without motor data.
        /// With oil cooling at most its limit, degrees Celsius. Without it that which the calculation ends
        /// with: an economizer determines it anew, without the correction of the compressor.
        double dischargeTemperature = 0;
    };
    PointState state = PointState::outside;
    std::string error{};               ///< The key of the error's message, or failureName; empty without one.
    Duty plain{};                      ///< Without the economizer.
    std::optional<Duty> economized{};  ///< As a whole, with what the economizer adds.
    double massFlow = 0;               ///< Through the evaporator, kg/h.

    bool hasValues() const { return state == PointState::ok || state == PointState::warning; }
    /// Of the economized cycle if there is one.
    const Duty& duty() const { return economized ? *economized : plain; }
};

/// Returns what a calculated compressor comes to.
Performance performanceOf(const clsCompressor& calculated);

/// Calculates a compressor at conditions as they are. A failure is an error of the point. Throws
/// FluidLibraryError.
Performance performanceAt(Calculator& calculator, const PreparedCompressor& compressor,
                          const clsProjectConditions& conditions);

/// The figures that maps and tables over the operating point show.
enum class Figure : std::uint8_t { capacity, power, cop, current, massFlow, dischargeTemperature };

/// All figures, in the order of files.
std::span<const Figure> figures();

/// Returns a figure of a point; of the economized cycle, as a whole, if there is one. None without values.
std::optional<double> valueOf(const Performance& performance, Figure figure);

}  // namespace marvello

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "catalogue/PreparedCompressor.h"
#include "catalogue/clsProjectConditions.h"
#include "engine/Performance.h"
#include "engine/PointLoop.h"

namespace marvello {

/// A range of both dew temperatures, degrees Celsius.
struct TemperatureBox {
    double tedLow = 0, tedHigh = 0;
    double tcdLow = 0, tcdHigh = 0;
};

/// Returns the box around the application limit of a compressor; none without such a limit.
std::optional<TemperatureBox> applicationBox(const PreparedCompressor& compressor, EconomizerMode mode);

/// Returns the multiples of `step`, which is above 0, from `low` to `high`.
std::vector<double> multiplesOf(double step, double low, double high);

/// Puts a value to others that ascend and returns its index. One that is there already but for its last bits
/// is replaced.
std::size_t insertValue(std::vector<double>& ascending, double value);

/// What the columns of a rating table are.
enum class RatingAcross : std::uint8_t {
    evaporating,  ///< Evaporating dew temperature.
    frequency     ///< Frequency of an inverter, at the evaporating temperature of the operating point.
};

/// A compressor over a range of operating points. Each cell is a selection at the conditions with the
/// temperature of its row and what its column says.
struct RatingPlan {
    const PreparedCompressor* compressor = nullptr;
    clsProjectConditions conditions;
    RatingAcross across = RatingAcross::evaporating;
    std::vector<double> columns{};  ///< degrees Celsius, or Hz
    std::vector<double> rows{};     ///< Condensing dew temperatures, degrees Celsius.

    std::size_t count() const { return columns.size() * rows.size(); }
    /// Of a cell; cells are counted row by row.
    clsProjectConditions conditionsOf(std::size_t cell) const;
};

/// Calculates all cells, row by row. None if the loop was given up. Throws FluidLibraryError.
std::optional<std::vector<Performance>> rate(const RatingPlan& plan, const PointLoop& loop);

}  // namespace marvello

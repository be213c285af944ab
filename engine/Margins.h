#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "catalogue/clsCompressor.h"
#include "catalogue/clsLimits.h"
#include "catalogue/clsProjectConditions.h"

namespace marvello {

/// A change of one of the two dew temperatures, the other left as it is.
enum class Direction { tedUp, tedDown, tcdUp, tcdDown };

/// Returns "ted+", "ted-", "tcd+" or "tcd-".
std::string_view nameOf(Direction direction);

/// How far an operating point is from the lines of one type.
struct Margin {
    int limitType;                            ///< see limitType
    double kelvin;                            ///< The smallest change that crosses a line, with a sign.
    Direction direction;                      ///< Of that change.
    Severity severity = Severity::attention;  ///< Of the message at the lines.

    bool operator==(const Margin&) const = default;
};

/// Returns the smallest change of one dew temperature (degrees Celsius) that leaves the application limit or,
/// from outside, as a negative number, the one that leads into it: 0 on an edge. There clsLimits::holding
/// changes its answer, but for the rounding of its angles (below 1e-6 K in the envelopes of the catalogue);
/// parts of a line narrower than 1e-5 K do not count. No value without such a limit, or if no change of one
/// temperature alone leads into it.
std::optional<Margin> applicationMargin(const clsLimits& limits, double ted, double tcd);

/// The same at the operating point of a calculated compressor.
std::optional<Margin> applicationMargin(const clsCompressor& calculated);

/// Returns the margin to each other limit that raises or ends a message of this compressor at the conditions
/// it was calculated for, nearest first: positive while the message is not raised, negative while it is.
std::vector<Margin> limitMargins(const clsCompressor& calculated, const clsProjectConditions& conditions);

/// Returns the name of a type of limit for files and scripts, such as "application" or "oilCooling"; empty
/// for a number that is no type.
std::string_view limitName(int type);

}  // namespace marvello

#pragma once

#include <string>
#include <vector>

#include "data/Numbers.h"
#include "engine/Margins.h"
#include "results/Messages.h"
#include "thermo/UnitSystem.h"

namespace marvello {

/// The distance of an operating point from the lines of one type, as people read it.
struct ShownMargin {
    int limitType = 0;
    std::string name;       ///< "Application limit"
    std::string distance;   ///< "9.8 K", or "over by 0.5 K" where its error or warning is raised
    std::string direction;  ///< "T. C. higher"
};

/// Returns what crosses a line: "T. C. higher".
std::string directionText(Direction direction);

/// Returns the distances of a compressor's operating point from the lines that are drawn, up to 20 K, nearest
/// first: from the application limit, and from those at which a message comes or goes at the conditions.
std::vector<ShownMargin> shownMargins(const clsCompressor& compressor, const clsProjectConditions& conditions,
                                      UnitSystem units, const NumberMarks& marks);

/// Returns the distance from the application limit alone; empty without such a limit.
std::string marginText(const clsCompressor& compressor, UnitSystem units, const NumberMarks& marks);

/// Returns the distance from the application limit in a sentence; empty without such a limit.
std::string marginLine(const clsCompressor& compressor, UnitSystem units, const NumberMarks& marks);

/// Returns by how much a message of a compressor is missed, such as "0.5 K beyond the limit"; empty for a
/// message that has no such number.
std::string distanceText(const clsCompressor& compressor, const ShownMessage& message, UnitSystem units,
                         const NumberMarks& marks);

}  // namespace marvello

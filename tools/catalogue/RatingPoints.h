#pragma once

#include <string>
#include <vector>

#include "data/Faults.h"

namespace marvello {

/// One value over the rating points, with the line of each point.
struct RatingColumn {
    std::string name;
    std::vector<double> values;
};

/// Rating points of a compressor: dew temperatures in degrees Celsius and what was measured or promised
/// there.
struct RatingPoints {
    std::vector<double> evaporating;
    std::vector<double> condensing;
    std::vector<int> lines;
    std::vector<RatingColumn> columns;
};

/// Which columns to read, without regard to case; no `values` is all the others.
struct RatingNames {
    std::string evaporating = "evaporating";
    std::string condensing = "condensing";
    // NOLINTNEXTLINE(readability-redundant-member-init): GCC asks for it where a caller leaves it out
    std::vector<std::string> values{};
};

/// Reads a CSV text. Empty lines and lines that begin with "#" are passed over. What cannot be read is a
/// fault of `file`.
RatingPoints readRatingPoints(const std::string& text, const std::string& file, const RatingNames& names,
                              Faults& faults);

}  // namespace marvello

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "data/Numbers.h"
#include "engine/PartLoad.h"

namespace marvello {

/// Returns how a machine runs as people name it: "Step 75 %", or "43.2 Hz" on an inverter.
std::string stateText(const PreparedCompressor& compressor, const CapacityState& state,
                      const NumberMarks& marks = {});

/// Returns how a load is met, such as "By turns: Step 100 % (25 % of the time), Step 75 %". What is said if
/// no state is possible is the error's matter: then it is empty.
std::string runText(const PreparedCompressor& compressor, const LoadRun& run, const NumberMarks& marks = {});

/// Returns the name of a kind in files and scripts, such as "blended".
std::string_view nameOf(LoadRun::Kind kind);

/// Returns a share in whole percent, such as "75 %".
std::string percentText(double share, const NumberMarks& marks = {});

/// Returns states and shares as CSV with a heading, in metric units. A figure without a value is an empty
/// field. Numbers read back exactly.
std::string partLoadCsv(const PreparedCompressor& compressor, const PartLoadTable& table);

}  // namespace marvello

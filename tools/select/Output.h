#pragma once

#include <string>
#include <vector>

#include "tools/select/Run.h"

namespace marvello::select {

/// The runs as aligned columns to read.
std::string asTable(const std::vector<Run>& runs);
/// One line a compressor, separated by commas, numbers with "." and read back exactly.
std::string asCsv(const std::vector<Run>& runs);
/// One object a run, an array of them for a batch; numbers read back exactly.
std::string asJson(const std::vector<Run>& runs, bool batch);

/// The list of a run in metric units, byte for byte as a form exports it. CSV has the decimal mark of the
/// user's locale.
std::string asListXml(const Run& run);
std::string asListCsv(const Run& run);

}  // namespace marvello::select

#pragma once

#include <optional>

#include "catalogue/clsProjectConditions.h"
#include "reports/ReportContent.h"
#include "thermo/UnitSystem.h"

namespace marvello {

class clsCompressor;

/// Returns the rating tables of a compressor for its report: all figures, in steps that fit on the paper.
/// None without an application limit. Throws FluidLibraryError.
std::optional<ReportTables> ratingSection(const clsCompressor& compressor,
                                          const clsProjectConditions& conditions, UnitSystem units);

}  // namespace marvello

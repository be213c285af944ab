#pragma once

#include <optional>

#include "catalogue/clsProjectConditions.h"
#include "inputs/SelectionInputs.h"
#include "reports/ReportContent.h"

namespace marvello {

class clsCompressor;

/// Returns the rating tables of a compressor as a section of its report: all figures, in steps that fit on
/// the paper. None without an application limit. Throws FluidLibraryError.
std::optional<ReportSection> ratingSection(const clsCompressor& compressor,
                                           const clsProjectConditions& conditions,
                                           const SelectionInputs& inputs);

}  // namespace marvello

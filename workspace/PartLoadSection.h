#pragma once

#include <optional>

#include "catalogue/clsCompressor.h"
#include "catalogue/clsProjectConditions.h"
#include "reports/ReportContent.h"
#include "thermo/UnitSystem.h"
#include "workspace/PartLoadRule.h"

namespace marvello {

/// Returns the part load of a calculated compressor for paper, by the rule of its page; none if it cannot run
/// at full load. The conditions are those at full load.
std::optional<ReportPartLoad> partLoadSection(const clsCompressor& compressor,
                                              const clsProjectConditions& conditions,
                                              const PartLoadRule& rule, UnitSystem units);

}  // namespace marvello

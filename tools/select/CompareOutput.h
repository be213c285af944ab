#pragma once

#include <optional>
#include <string>

#include "results/ComparisonTable.h"
#include "tools/select/CompareQuestion.h"

namespace marvello::select {

/// Returns a comparison as its format has it, in metric units. JSON and CSV have all digits.
std::string comparisonText(const Comparison& comparison, std::optional<std::size_t> reference,
                           CompareFormat format);

}  // namespace marvello::select

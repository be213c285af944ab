#pragma once

#include <QString>
#include <vector>

#include "controls/Look.h"
#include "results/CalculationSheet.h"

namespace marvello {

/// Returns a calculation sheet as rich text in the colours of a look: a table for each section, with symbol
/// and meaning, the formula above its numbers, and the result.
QString sheetHtml(const std::vector<SheetSection>& sections, const Look& look);

}  // namespace marvello

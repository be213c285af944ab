#pragma once

#include "controls/RowDetail.h"
#include "thermo/UnitSystem.h"

namespace marvello {

/// Returns what a list of refrigerants says of one: safety class and GWP, and all its facts as tool tip. Of
/// a refrigerant without facts it is unknownFact alone.
RowDetail refrigerantDetail(const QString& refrigerant, UnitSystem units);

}  // namespace marvello

#pragma once

#include "controls/RowDetail.h"
#include "thermo/UnitSystem.h"

namespace marvello {

/// Returns what a list of refrigerants says of one: safety class and GWP, and all its facts as tool tip.
RowDetail refrigerantDetail(const QString& refrigerant, UnitSystem units);

}  // namespace marvello

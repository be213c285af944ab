#pragma once

#include <string>

#include "data/Numbers.h"
#include "results/Messages.h"
#include "thermo/UnitSystem.h"

namespace marvello {

/// Returns by how much a message of a compressor is missed, such as "0.5 K beyond the limit"; empty for a
/// message that has no such number.
std::string distanceText(const clsCompressor& compressor, const ShownMessage& message, UnitSystem units,
                         const NumberMarks& marks);

}  // namespace marvello

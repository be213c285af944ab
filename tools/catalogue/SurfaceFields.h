#pragma once

#include <vector>

#include "tools/catalogue/Index.h"
#include "tools/catalogue/Rows.h"

namespace marvello {

/// The values of fField by which the program may ask for a compressor's capacity and power: capacity steps in
/// percent, speeds per minute of series NL-H, ten times the volume ratios of series TK-D.
std::vector<double> fieldsOf(const Content& content, const Index& index, const Row& compressor);

}  // namespace marvello

#pragma once

#include <optional>

#include "catalogue/clsCompressor.h"
#include "workspace/CycleDiagram.h"

namespace marvello {

/// The cycle of a calculated compressor with the diagram of its refrigerant. None with an error, and where
/// the property service cannot calculate them: the messages say why.
std::optional<CycleDiagram::Content> cycleContent(const clsCompressor& compressor, UnitSystem units);

}  // namespace marvello

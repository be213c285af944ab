#pragma once

#include <memory>

#include "catalogue/PreparedCompressor.h"
#include "catalogue/clsProjectConditions.h"
#include "engine/Trace.h"

namespace marvello {

/// A calculated compressor with what its calculation did.
struct Explanation {
    std::unique_ptr<const clsCompressor> compressor;
    Trace trace;
};

/// Calculates a compressor as a selection does, to the same bits, and writes down how. Throws what
/// Calculator::calculate throws.
Explanation explain(const PreparedCompressor& compressor, const clsProjectConditions& conditions);

}  // namespace marvello

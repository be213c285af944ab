#pragma once

#include "catalogue/PreparedCompressor.h"
#include "catalogue/clsProjectConditions.h"

namespace marvello {

/// Whether the form of a compressor's series offers an input; that of compressors on an inverter offers all.
bool permits(const PreparedCompressor& compressor, Selector selector);

/// Conditions as the form of a compressor permits them.
struct PermittedConditions {
    clsProjectConditions conditions;
    unsigned putBack = 0;  ///< Mask of `Selector`: what was asked for and is not permitted.
};

/// Puts back what the form of the compressor's series does not offer to what a new form has.
PermittedConditions permittedConditions(const PreparedCompressor& compressor,
                                        const clsProjectConditions& conditions);

}  // namespace marvello

#pragma once

#include "fluids/PureFluid.h"

namespace marvello::fluids {

class JsonField;
struct FluidText;

/// Reads a fluid file (docs/fluids.md describes its layout). Throws PropertyError with the file, the line or
/// the field, and the reason, when it is no fluid file or holds a value that makes no sense.
PureFluid readFluidFile(const FluidText& file);

/// Reads one term of a residual part or of a departure function; throws as readFluidFile() does.
ResidualTerm readResidualTerm(const JsonField& field);

}  // namespace marvello::fluids

#pragma once

#include <filesystem>

#include "fluids/PureFluid.h"

namespace marvello::fluids {

class JsonField;

/// Reads a fluid file (docs/fluids.md describes its layout). Throws PropertyError with the file, the line or
/// the field, and the reason, when the file is missing, is no fluid file, or holds a value that makes no
/// sense.
PureFluid readFluidFile(const std::filesystem::path& path);

/// Reads one term of a residual part or of a departure function; throws as readFluidFile() does.
ResidualTerm readResidualTerm(const JsonField& field);

}  // namespace marvello::fluids

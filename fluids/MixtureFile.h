#pragma once

#include <string>
#include <vector>

#include "fluids/PairInteraction.h"

namespace marvello::fluids {

struct FluidText;

/// What a mixture needs next to its components.
struct MixtureModel {
    double gasConstant = 0;              ///< J/(mol K)
    std::vector<PairInteraction> pairs;  ///< in the order (0,1), (0,2), ..., (1,2), ...
};

/// Reads from a mixture file (docs/fluids.md describes its layout) the pairs of the components named, which
/// are the names of fluid files without regard to case. A pair that the file has in the other order is
/// reversed; a fluid named twice has nothing but 1 with itself. Throws PropertyError with the file, the line
/// or the field, and the reason, when it is no mixture file, holds a value that makes no sense, has a pair
/// twice, or lacks one of those asked for.
MixtureModel readMixtureFile(const FluidText& file, const std::vector<std::string>& fluids);

}  // namespace marvello::fluids

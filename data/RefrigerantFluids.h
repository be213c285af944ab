#pragma once

#include <string>
#include <vector>

#include "data/clsDatabase.h"

namespace marvello {

/// A component of a refrigerant.
struct FluidShare {
    std::string file;         ///< of the fluid, as the catalogue has it
    double massFraction = 0;  ///< of 1
};

/// Returns the components of a refrigerant; none for one that the catalogue lacks. Throws DatabaseError.
std::vector<FluidShare> fluidsOf(clsDatabase& db, const std::string& refrigerant);

}  // namespace marvello

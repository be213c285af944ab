#include "inputs/EconomizerValues.h"

namespace marvello {

void EconomizerValues::keep(const std::string& mode, double value, UnitSystem system) {
    kept_[mode] = {value, system};
}

// As a difference in every mode, like the field itself.
double EconomizerValues::valueOf(const std::string& mode, UnitSystem system) const {
    const auto found = kept_.find(mode);
    return found == kept_.end() ? 0 : convertedDifference(found->second.value, found->second.system, system);
}

}  // namespace marvello

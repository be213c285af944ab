#include "workspace/EconomizerValues.h"

namespace marvello {

void EconomizerValues::keep(const std::string& mode, double value, MeasureSystem system) {
    kept_[mode] = {value, system};
}

// As a difference in every mode, like the field itself.
double EconomizerValues::valueOf(const std::string& mode, MeasureSystem system) const {
    const auto found = kept_.find(mode);
    return found == kept_.end() ? 0 : convertedDifference(found->second.value, found->second.system, system);
}

}  // namespace marvello

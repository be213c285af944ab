#include "engine/LoadSplit.h"

#include <cmath>
#include <optional>

namespace marvello {

LoadSplit splitLoad(double needed, std::span<const double> capacities, double tolerance) {
    std::optional<std::size_t> above;  // the smallest that is enough
    std::optional<std::size_t> below;  // the largest that is not
    for (std::size_t i = 0; i < capacities.size(); ++i) {
        const double capacity = capacities[i];
        if (capacity <= 0) continue;
        if (std::abs(capacity - needed) <= tolerance * needed)
            return {.kind = LoadSplit::Kind::steady, .state = i};
        if (capacity > needed) {
            if (!above || capacity < capacities[*above]) above = i;
        } else if (!below || capacity > capacities[*below]) {
            below = i;
        }
    }
    if (above && below) {
        const double low = capacities[*below];
        const double share = (needed - low) / (capacities[*above] - low);
        return {.kind = LoadSplit::Kind::blended, .state = *above, .share = share, .other = *below};
    }
    if (above)
        return {.kind = LoadSplit::Kind::intermittent, .state = *above, .share = needed / capacities[*above]};
    if (below) return {.kind = LoadSplit::Kind::tooSmall, .state = *below};
    return {};
}

}  // namespace marvello

#pragma once

#include <algorithm>
#include <cstddef>
#include <map>

namespace marvello::fluids {

/// Lays the polynomial through the (at most) four nodes that are nearest to `place`: calls use(node's value,
/// weight) for each. What is interpolated is the sum of the values times their weights.
template <class Value, class Use>
void overNearest(const std::map<double, Value>& nodes, double place, Use use) {
    constexpr std::ptrdiff_t most = 4;
    const auto used = std::min(most, static_cast<std::ptrdiff_t>(nodes.size()));
    auto from = nodes.lower_bound(place);
    for (std::ptrdiff_t i = 0; i < used / 2 && from != nodes.begin(); ++i) --from;
    auto end = from;
    for (std::ptrdiff_t i = 0; i < used; ++i) {
        if (end == nodes.end())
            --from;
        else
            ++end;
    }
    for (auto node = from; node != end; ++node) {
        double weight = 1;
        for (auto other = from; other != end; ++other)
            if (other != node) weight *= (place - other->first) / (node->first - other->first);
        use(node->second, weight);
    }
}

}  // namespace marvello::fluids

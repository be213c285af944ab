#pragma once

#include <optional>
#include <string>
#include <vector>

namespace marvello {

/// Which models of the catalogue; what is empty or none filters nothing. Names are compared without regard to
/// case.
struct ModelFilter {
    std::optional<bool> onInverter{};
    std::optional<std::string> refrigerant{};
    std::optional<std::string> series{};
    std::string models{};         ///< joined with ";"; "*" is all of them
    std::optional<int> market{};  ///< bits of `Market`: those of no other market
};

struct ModelName {
    std::string refrigerant;
    std::string series;
    std::string model;
};

/// Return what the catalogue has, in its order, each name once. Throw DatabaseError.
std::vector<std::string> refrigerantsOf(const ModelFilter& filter = {});
std::vector<std::string> seriesOf(const ModelFilter& filter);
std::vector<ModelName> modelsOf(const ModelFilter& filter);

/// Returns the statement that gives whole rows of tCompressors, in the same order.
std::string selectionSql(const ModelFilter& filter);

}  // namespace marvello

#pragma once

#include <string>
#include <vector>

namespace marvello::select {

/// The values that the forms of the catalogue offer, in their order.
struct Choices {
    std::vector<int> superheatTypes, economizerModes, oilCoolingModes, motorSizes, speeds, voltages,
        frequencies;
};

/// Reads the lists of choices from the parameter sets of the open catalogue. Throws DatabaseError if a list
/// is missing.
Choices catalogueChoices();

}  // namespace marvello::select

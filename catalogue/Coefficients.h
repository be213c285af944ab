#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "data/clsDatabase.h"

namespace marvello {

/// Reads the columns fC1, fC2, ... of the current row. Throws DatabaseError.
template <std::size_t count>
void readCoefficients(const RecordSet& row, std::array<double, count>& c) {
    for (std::size_t i = 0; i < count; ++i) c[i] = row.number("fC" + std::to_string(i + 1));
}

}  // namespace marvello

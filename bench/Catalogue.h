#pragma once

#include <string>
#include <vector>

namespace marvello::bench {

/// A series of a refrigerant.
struct Series {
    std::string refrigerant;
    std::string name;
};

/// The series of the open catalogue, those of a refrigerant in a row.
std::vector<Series> seriesOfCatalogue();

}  // namespace marvello::bench

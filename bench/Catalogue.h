#pragma once

#include <functional>
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

/// The main function of a bench: runs the benchmarks in a session of the application folder, whose catalogue
/// `open` opens. Returns the exit status.
int runOnCatalogue(int argc, char** argv, const std::function<void()>& open);

}  // namespace marvello::bench

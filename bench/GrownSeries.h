#pragma once

#include <string>

namespace marvello::bench {

/// Makes `file` a copy of the shipped catalogue in which R134A has the 10 models of TK-A so many times over,
/// each under a name of its own.
void growSeries(const std::string& file, int copies);

}  // namespace marvello::bench

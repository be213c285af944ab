#pragma once

#include <string>

namespace marvello::select {

/// Returns a line for standard error.
inline std::string complaint(const std::string& sentence) { return "marvello-select: " + sentence + "\n"; }

}  // namespace marvello::select

#pragma once

#include <string>

#include "engine/Explanation.h"

namespace marvello::select {

/// Returns a calculation as JSON: "steps" in their order, "rules" with their tests and messages, and all
/// "messages". The numbers of a formula are written so that they read back exactly.
std::string explanationJson(const Explanation& explanation);

}  // namespace marvello::select

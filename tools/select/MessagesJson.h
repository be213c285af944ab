#pragma once

#include <nlohmann/json.hpp>
#include <vector>

#include "results/Messages.h"

namespace marvello::select {

/// Returns "error", "attention" or "information".
const char* wordOf(Severity severity);

/// Returns messages as an array of objects with severity, name and description, and the cause if there is
/// one.
nlohmann::ordered_json messagesJson(const std::vector<ShownMessage>& messages);

}  // namespace marvello::select

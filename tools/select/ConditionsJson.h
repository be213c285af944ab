#pragma once

#include <nlohmann/json.hpp>

#include "tools/select/Request.h"

namespace marvello::select {

/// Returns what a request asks for, under the names of the variables.
nlohmann::ordered_json conditionsJson(const Request& request);

}  // namespace marvello::select

#pragma once

#include <string>
#include <vector>

#include "tools/select/Request.h"

namespace marvello::select {

/// The requests of a batch: one a line of the CSV text, the columns named as the options. An option of `base`
/// holds for every line that does not state it. Raises BadRequest with `file` and the line.
std::vector<Request> readBatch(const std::string& text, const std::string& file, const Request& base);

}  // namespace marvello::select

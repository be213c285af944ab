#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/select/Request.h"

namespace marvello::select {

/// The columns of a batch, an option each.
using BatchColumns = std::vector<const RequestOption*>;

/// Reads the columns from a line with the names of options, separated by commas. None for an empty line.
/// Throws BadRequest if a name is no option or is there twice.
std::optional<BatchColumns> readColumns(std::string_view line);

/// Reads a line of a batch, a record of CSV with a field for each column. Each line is read for itself, so
/// that a quote without end spoils no other one. An option of `base` holds where the line does not state it.
/// None for an empty line. Throws BadRequest for what cannot be calculated.
std::optional<Request> readRequest(std::string_view line, const BatchColumns& columns, const Request& base,
                                   const Choices& choices);

}  // namespace marvello::select

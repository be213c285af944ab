#pragma once

#include <string>

namespace marvello {

/// Returns the decimal mark of the locale that the user has set, whatever that of the process; "." if there
/// is none. Changes the locale of the process for a moment: only for a process without other threads.
std::string userDecimalMark();

}  // namespace marvello

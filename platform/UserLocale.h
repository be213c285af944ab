#pragma once

#include <string>

namespace marvello {

/// Returns the decimal mark of the user's locale, whatever the locale of the process; "." if there is none.
std::string userDecimalMark();

}  // namespace marvello

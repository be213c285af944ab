#pragma once

#include <string>
#include <string_view>

namespace marvello {

/// Returns the text of a dictionary key in the user's language. A key that the catalogue lacks is its own
/// text, so that the gap can be seen.
std::string dictionaryText(std::string_view key);

/// As above, but "" for a key that the catalogue lacks.
std::string dictionaryTextIfAny(std::string_view key);

}  // namespace marvello

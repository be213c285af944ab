#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace marvello {

/// Returns the text of a dictionary key in the user's language. A key that the catalogue lacks is its own
/// text, so that the gap can be seen.
std::string dictionaryText(std::string_view key);
/// The same with "{0}", "{1}", ... in the text replaced by the arguments.
std::string dictionaryText(std::string_view key, const std::vector<std::string>& arguments);

/// As above, but "" for a key that the catalogue lacks.
std::string dictionaryTextIfAny(std::string_view key);

struct Language {
    std::string key;   ///< such as "en-EN"
    std::string name;  ///< in the language itself
};

/// Returns the languages of the catalogue. Throws DatabaseError.
std::vector<Language> catalogueLanguages();

}  // namespace marvello

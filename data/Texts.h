#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace marvello {

std::string trimmed(std::string_view text);

/// An ASCII letter in lower case; any other byte of UTF-8 as it is.
constexpr char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
/// ASCII letters to lower or upper case; other bytes of UTF-8 stay.
std::string lowered(std::string_view text);
std::string uppered(std::string_view text);
bool equalIgnoringCase(std::string_view a, std::string_view b);

/// The pieces between separators; one empty piece for an empty text.
std::vector<std::string> splitText(std::string_view text, char separator);

/// Replaces every occurrence of `from`; a blank `from` replaces nothing.
void replaceAll(std::string& text, std::string_view from, std::string_view to);

/// The caption of `key` in a list "key|caption;key|caption", keys compared trimmed and without regard to
/// case; "" when no entry has it. Empty entries are skipped.
std::string ListLookup(std::string_view key, std::string_view list);

/// Reads a stored decimal text, "." as the mark whatever the locale, blanks around it allowed. Nothing when
/// it is not wholly a finite number.
std::optional<double> storedNumber(std::string_view text);

/// The shortest text that reads back as the same double, with ".".
std::string storedText(double value);

/// A number as the user reads it: at most 15 significant digits and the locale's decimal mark.
std::string localText(double value);

/// The text with every "." replaced by the locale's decimal mark.
std::string ToLocalDecimal(std::string_view text);

/// Reads a number that a person wrote: ".", "," and the locale's mark are decimal marks, U+2212 is a minus.
std::optional<double> localNumber(std::string_view text);

}  // namespace marvello

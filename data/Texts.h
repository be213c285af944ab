#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace marvello {

/// Returns the text without the white space around it.
std::string trimmed(std::string_view text);
std::string_view withoutBlanks(std::string_view text);

/// An ASCII letter in lower case; any other byte of UTF-8 as it is.
constexpr char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
/// ASCII letters to lower or upper case; other bytes of UTF-8 stay.
std::string lowered(std::string_view text);
std::string uppered(std::string_view text);
bool equalIgnoringCase(std::string_view a, std::string_view b);

/// The pieces between separators; one empty piece for an empty text.
std::vector<std::string> splitText(std::string_view text, char separator);

/// Returns the count of letters of a text in UTF-8, and the text with blanks up to so many letters: after it,
/// or before it if it is to be on the right.
std::size_t letterCount(std::string_view text);
std::string padded(std::string text, std::size_t letters, bool isRight);

/// Replaces every occurrence of `from`; a blank `from` replaces nothing.
void replaceAll(std::string& text, std::string_view from, std::string_view to);

/// A key of a list of choices, and what the user reads for it.
struct Choice {
    std::string key;
    std::string caption;
    bool operator==(const Choice&) const = default;
};

/// Returns the choices of a list "key|caption;key|caption", the keys without blanks around them. Blank
/// entries are skipped; an entry without "|" has no caption.
std::vector<Choice> choicesIn(std::string_view list);

/// The caption of `key` in a list "key|caption;key|caption", keys compared trimmed and without regard to
/// case; "" if no entry has it.
std::string ListLookup(std::string_view key, std::string_view list);

}  // namespace marvello

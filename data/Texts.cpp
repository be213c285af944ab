#include "data/Texts.h"

#include <algorithm>

namespace marvello {

namespace {

constexpr char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

}  // namespace

std::string_view withoutBlanks(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n\f\v";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string trimmed(std::string_view text) { return std::string(withoutBlanks(text)); }

std::string lowered(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), lower);
    return result;
}

std::string uppered(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), upper);
    return result;
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, lower, lower);
}

std::vector<std::string> splitText(std::string_view text, char separator) {
    std::vector<std::string> pieces;
    for (std::size_t start = 0;;) {
        const auto end = text.find(separator, start);
        pieces.emplace_back(text.substr(start, end - start));
        if (end == std::string_view::npos) return pieces;
        start = end + 1;
    }
}

std::size_t letterCount(std::string_view text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

std::string padded(std::string text, std::size_t letters, bool isRight) {
    const std::size_t missing = letters - std::min(letters, letterCount(text));
    return text.insert(isRight ? 0 : text.size(), missing, ' ');
}

void replaceAll(std::string& text, std::string_view from, std::string_view to) {
    if (from.empty()) return;
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

std::vector<Choice> choicesIn(std::string_view list) {
    std::vector<Choice> choices;
    for (const std::string& entry : splitText(list, ';')) {
        if (withoutBlanks(entry).empty()) continue;
        const auto bar = std::min(entry.find('|'), entry.size());
        choices.push_back({trimmed(entry.substr(0, bar)), entry.substr(std::min(bar + 1, entry.size()))});
    }
    return choices;
}

std::string ListLookup(std::string_view key, std::string_view list) {
    for (const Choice& choice : choicesIn(list))
        if (equalIgnoringCase(choice.key, withoutBlanks(key))) return choice.caption;
    return {};
}

}  // namespace marvello

#include "data/Texts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

#include "data/clsSystem.h"

namespace marvello {

namespace {

constexpr char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

std::string_view withoutBlanks(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n\f\v";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

template <class... Format>
std::string written(double value, Format... format) {
    std::array<char, 64> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format...);
    return {buffer.data(), end};
}

}  // namespace

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

void replaceAll(std::string& text, std::string_view from, std::string_view to) {
    if (from.empty()) return;
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

std::string ListLookup(std::string_view key, std::string_view list) {
    const auto wanted = withoutBlanks(key);
    while (!list.empty()) {
        const auto end = std::min(list.find(';'), list.size());
        const auto entry = list.substr(0, end);
        list.remove_prefix(std::min(end + 1, list.size()));
        if (entry.empty()) continue;

        const auto bar = entry.find('|');
        if (!equalIgnoringCase(withoutBlanks(entry.substr(0, bar)), wanted)) continue;
        return bar == std::string_view::npos ? std::string() : std::string(entry.substr(bar + 1));
    }
    return {};
}

std::optional<double> storedNumber(std::string_view text) {
    text = withoutBlanks(text);
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::string storedText(double value) { return written(value); }

std::string localText(double value) {
    constexpr int significantDigits = 15;
    const double shown = value == 0 ? 0 : value;  // never "-0"
    return ToLocalDecimal(written(shown, std::chars_format::general, significantDigits));
}

std::string ToLocalDecimal(std::string_view text) {
    std::string result(text);
    replaceAll(result, ".", clsSystem().DecimalSeparator());
    return result;
}

std::optional<double> localNumber(std::string_view text) {
    std::string plain(text);
    replaceAll(plain, clsSystem().DecimalSeparator(), ".");
    replaceAll(plain, ",", ".");
    replaceAll(plain, "\u2212", "-");
    return storedNumber(plain);
}

}  // namespace marvello

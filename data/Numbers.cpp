#include "data/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <system_error>

#include "data/Texts.h"
#include "data/clsSystem.h"

namespace marvello {

namespace {

template <class... Format>
std::string written(double value, Format... format) {
    std::array<char, 64> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format...);
    return {buffer.data(), end};
}

struct Pattern {
    int decimals = 0;          // most decimals
    int requiredDecimals = 0;  // decimals written even when they are zero
    bool leadingZero = false;
    bool grouped = false;
};

Pattern parsed(std::string_view text) {
    Pattern pattern;
    const std::string_view whole = text.substr(0, text.find('.'));
    pattern.leadingZero = whole.find('0') != whole.npos;
    pattern.grouped = whole.find(',') != whole.npos;
    for (const char sign : text.substr(whole.size())) {
        if (sign != '0' && sign != '#') continue;
        ++pattern.decimals;
        if (sign == '0') pattern.requiredDecimals = pattern.decimals;
    }
    return pattern;
}

/// A magnitude as decimal digits: 0.d1d2d3... times ten to `exponent`.
struct Decimal {
    std::string digits;
    int exponent = 0;
};

Decimal decimalOf(double magnitude) {
    constexpr int seenDigits = 15;
    const std::string text = written(magnitude, std::chars_format::scientific, seenDigits - 1);
    const std::size_t mark = text.find('e');  // d.dddddddddddddde+XX
    return {text.substr(0, 1) + text.substr(2, mark - 2), std::atoi(text.c_str() + mark + 1) + 1};
}

/// The digits of round(magnitude * 10^decimals), half away from zero.
std::string scaledDigits(double magnitude, int decimals) {
    const Decimal value = decimalOf(magnitude);
    const int kept = value.exponent + decimals;
    if (kept < 0) return "0";
    std::string digits = value.digits;
    if (kept >= static_cast<int>(digits.size()))
        return digits.append(static_cast<std::size_t>(kept) - digits.size(), '0');
    const bool up = digits[static_cast<std::size_t>(kept)] >= '5';
    digits = "0" + digits.substr(0, static_cast<std::size_t>(kept));
    for (std::size_t i = digits.size(); up && i-- > 0;) {
        if (digits[i] != '9') {
            ++digits[i];
            break;
        }
        digits[i] = '0';
    }
    return digits;
}

/// `value` as std::to_chars writes its magnitude, with the marks: the same in every locale but for its
/// decimal mark and minus sign.
template <class... Format>
std::string marked(double value, const NumberMarks& marks, Format... format) {
    std::string text = written(std::abs(value), format...);
    replaceAll(text, ".", marks.point);
    return value < 0 ? marks.minus + text : text;
}

std::string grouped(const std::string& whole, const std::string& mark) {
    std::string result;
    for (std::size_t i = 0; i < whole.size(); ++i) {
        if (i > 0 && (whole.size() - i) % 3 == 0) result += mark;
        result += whole[i];
    }
    return result;
}

}  // namespace

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

std::string plainText(double value, std::string_view point) {
    const double magnitude = std::abs(value);
    const bool isPlain = magnitude == 0 || (magnitude >= 1e-5 && magnitude < 1e15);
    std::string text = written(value, isPlain ? std::chars_format::fixed : std::chars_format::scientific);
    replaceAll(text, ".", point);
    return text;
}

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

std::string formatNumber(double value, std::string_view pattern, const NumberMarks& marks) {
    if (!std::isfinite(value)) return {};
    if (withoutBlanks(pattern).empty()) return marked(value, marks, std::chars_format::general, 15);

    const Pattern shape = parsed(pattern);
    std::string digits = scaledDigits(std::abs(value), shape.decimals);
    const auto decimals = static_cast<std::size_t>(shape.decimals);
    if (digits.size() <= decimals) digits.insert(0, decimals + 1 - digits.size(), '0');
    std::string whole = digits.substr(0, digits.size() - decimals);
    std::string fraction = digits.substr(digits.size() - decimals);
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
    while (static_cast<int>(fraction.size()) > shape.requiredDecimals && fraction.back() == '0')
        fraction.pop_back();
    if (whole.empty() && shape.leadingZero) whole = "0";

    const bool isZero = (whole + fraction).find_first_not_of('0') == std::string::npos;
    std::string result = shape.grouped ? grouped(whole, marks.group) : whole;
    if (!fraction.empty()) result += marks.point + fraction;
    return value < 0 && !isZero ? marks.minus + result : result;
}

double shownValue(double value, std::string_view pattern) {
    if (withoutBlanks(pattern).empty()) return storedNumber(formatNumber(value, pattern)).value_or(value);
    const int decimals = parsed(pattern).decimals;
    // A whole number and a power of ten, so that their quotient is the double next to the decimal number.
    const double scaled = storedNumber(scaledDigits(std::abs(value), decimals)).value_or(0);
    return (value < 0 && scaled != 0 ? -scaled : scaled) / std::pow(10.0, decimals);
}

std::string exponentText(double value, const NumberMarks& marks) {
    return uppered(marked(value, marks, std::chars_format::scientific));
}

}  // namespace marvello

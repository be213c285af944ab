#include "reports/pdf/PdfNumber.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <stdexcept>

namespace marvello {

namespace {

void appendWhole(std::string& line, std::int64_t value) {
    char digits[24];
    line.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}

/// From here on the thousandths of a double are no longer whole numbers of 53 bits.
constexpr double largestWithFraction = 9e12;

void appendLarge(std::string& line, double value) {
    char digits[320];
    const auto end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed).ptr;
    line.append(digits, end);
}

}  // namespace

void appendNumber(std::string& line, double value) {
    if (!std::isfinite(value)) {
        throw std::domain_error("An infinity or not a number cannot be written to a PDF file.");
    }
    if (std::fabs(value) >= largestWithFraction) return appendLarge(line, value);

    auto thousandths = static_cast<std::int64_t>(std::nearbyint(value * 1000));
    if (thousandths < 0) {
        line += '-';
        thousandths = -thousandths;
    }
    appendWhole(line, thousandths / 1000);
    auto rest = static_cast<int>(thousandths % 1000);
    if (rest == 0) return;
    line += '.';
    for (int place = 100; rest > 0; place /= 10) {
        line += static_cast<char>('0' + rest / place);
        rest %= place;
    }
}

std::string numberText(double value) {
    std::string text;
    appendNumber(text, value);
    return text;
}

}  // namespace marvello

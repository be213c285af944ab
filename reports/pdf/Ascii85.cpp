#include "reports/pdf/Ascii85.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace marvello {

namespace {

/// The digits of up to four bytes, filled up with zero bytes.
std::array<char, 5> digitsOf(std::string_view group) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        value = value << 8 | (i < group.size() ? static_cast<unsigned char>(group[i]) : 0U);
    }
    std::array<char, 5> digits{};
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        *digit = static_cast<char>('!' + value % 85);
        value /= 85;
    }
    return digits;
}

}  // namespace

std::string ascii85(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size() / 4 * 5 + 5);
    for (; !bytes.empty(); bytes.remove_prefix(std::min<std::size_t>(4, bytes.size()))) {
        const std::string_view group = bytes.substr(0, 4);
        const auto digits = digitsOf(group);
        if (group == std::string_view("\0\0\0\0", 4)) {
            text += 'z';
        } else {
            text.append(digits.data(), group.size() + 1);
        }
    }
    return text;
}

}  // namespace marvello

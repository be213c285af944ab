#pragma once

#include <array>
#include <charconv>
#include <string>

namespace marvello::generate {

/// The shortest text that reads back as `value`.
inline std::string text(double value) {
    std::array<char, 40> buffer{};
    return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr};
}

inline std::string text(double value, int decimals) {
    std::array<char, 40> buffer{};
    return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                         std::chars_format::fixed, decimals)
                               .ptr};
}

inline std::string text(bool value) { return value ? "True" : "False"; }

}  // namespace marvello::generate

#pragma once

#include <array>
#include <charconv>
#include <string>

#include "data/Numbers.h"

namespace marvello::generate {

inline std::string text(double value) { return storedText(value); }

inline std::string text(double value, int decimals) {
    std::array<char, 40> buffer{};
    return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                         std::chars_format::fixed, decimals)
                               .ptr};
}

inline std::string text(bool value) { return value ? "True" : "False"; }

}  // namespace marvello::generate

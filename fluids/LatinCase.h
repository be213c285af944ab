#pragma once

#include <algorithm>
#include <string_view>

namespace marvello::fluids {

/// A capital Latin letter as a small one, whatever the locale; any other character as it is.
constexpr char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// Whether two texts differ in nothing but the case of Latin letters.
constexpr bool sameButCase(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return lower(a) == lower(b); });
}

}  // namespace marvello::fluids

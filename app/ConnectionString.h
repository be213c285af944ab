#pragma once

#include <string>
#include <string_view>

namespace marvello {

/// The text behind a string of decimal digits, three digits a character code. Throws std::invalid_argument
/// when the digits are no whole groups of codes up to 255.
std::string textOfDigits(std::string_view digits);

/// The connection string of the catalogue in a folder, with the program's credentials.
std::string catalogueConnectionString(const std::string& folder);

}  // namespace marvello

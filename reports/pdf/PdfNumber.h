#pragma once

#include <string>

namespace marvello {

/// Appends a number as PDF writes it: rounded to 3 decimals, half to even, without zeros at the end and
/// without exponent, with "." whatever the locale. Throws std::domain_error for an infinity or not a number.
void appendNumber(std::string& line, double value);

/// The number alone.
std::string numberText(double value);

}  // namespace marvello

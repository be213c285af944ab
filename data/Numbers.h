#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace marvello {

// Numbers to text and back. Which function is for what:
//
//   a number in a file, a table, a parameter set   storedText, storedNumber     "." in every locale
//   a number in a file for other programs          plainText                    "." or ","
//   a number in a list, a field or a report         formatNumber, exponentText   by a pattern and marks
//   what such a text shows, as a number             shownValue
//   a number in a message                           localText                    mark of the process locale
//   a text that a person wrote, in the core         localNumber
//   a text that a person typed into a field         typedNumber (controls/NumberText.h)

/// Reads a stored decimal text, "." as the mark whatever the locale, blanks around it allowed. Returns no
/// value unless all of it is a finite number.
std::optional<double> storedNumber(std::string_view text);

/// Returns the shortest text that reads back as the same double, with ".".
std::string storedText(double value);

/// Returns the fewest digits that read back as the same double, with an exponent only below 1e-5 and from
/// 1e15 on, and the decimal mark `point`.
std::string plainText(double value, std::string_view point = ".");

/// Returns a number as the user reads it: at most 15 significant digits and the decimal mark of the process
/// locale.
std::string localText(double value);

/// Returns the text with every "." replaced by the decimal mark of the process locale.
std::string ToLocalDecimal(std::string_view text);

/// Reads a number that a person wrote: ".", "," and the mark of the process locale are decimal marks, U+2212
/// is a minus.
std::optional<double> localNumber(std::string_view text);

/// The marks with which numbers are written, UTF-8.
struct NumberMarks {
    std::string minus = "-";
    std::string point = ".";
    std::string group = ",";
};

/// Returns `value` through a pattern such as "#0.00" or "#,#": the digits after "." are the decimals ("#"
/// drops trailing zeros), a "0" before it is a digit that is always written, "," asks for grouping. Rounds
/// half away from zero on the 15 digits that a person would see. A blank pattern gives the value with at most
/// 15 significant digits, with an exponent such as "5e-05" if that is shorter. Returns "" unless `value` is
/// finite.
std::string formatNumber(double value, std::string_view pattern, const NumberMarks& marks = {});

/// Returns the number that formatNumber shows with the same pattern.
double shownValue(double value, std::string_view pattern);

/// Returns `value` with the fewest digits that tell it from every other double, always with an exponent:
/// "-1.2E+00".
std::string exponentText(double value, const NumberMarks& marks);

}  // namespace marvello

#pragma once

#include <string>
#include <vector>

#include "catalogue/ClsSelectionMessages.h"
#include "data/Numbers.h"
#include "engine/Explanation.h"

namespace marvello {

/// A line of a calculation sheet, in the user's language; numbers in the units of the calculation, which are
/// metric.
struct SheetLine {
    enum class Kind { value, test, message };
    Kind kind = Kind::value;
    std::string symbol{};   ///< Of a value: "Hga".
    std::string meaning{};  ///< Of a value, and the rule that a test belongs to.
    std::string formula{};  ///< With names; the test of a test.
    std::string numbers{};  ///< The formula with its numbers; empty if that says no more.
    std::string result{};   ///< A number or a text, "yes" or "no", or what a message says.
    std::string unit{};
    Severity severity = Severity::information;  ///< Of a message.
};

/// What belongs together: a stage of the calculation, or rules.
struct SheetSection {
    std::string title;
    std::vector<SheetLine> lines;
};

/// Returns the calculation of a compressor stage by stage, in its order. Numbers have six significant digits.
std::vector<SheetSection> calculationSheet(const Explanation& explanation, const NumberMarks& marks = {});

/// The headings of the columns: symbol, meaning, formula, with numbers, result, unit.
std::vector<std::string> sheetHeadings();

}  // namespace marvello

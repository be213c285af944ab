#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "data/Numbers.h"
#include "engine/EvaporatingRule.h"
#include "engine/LoadProfile.h"
#include "thermo/UnitSystem.h"

namespace marvello {

// What people type for a year, in their units and with "." or "," as decimal mark.

/// Reads a temperature, or a table such as "-10:-8;30:-12". Throws std::invalid_argument.
EvaporatingRule evaporatingRuleIn(std::string_view text, UnitSystem units);
/// Returns the text that reads back as the rule, to the hundredth of a degree.
std::string enteredText(const EvaporatingRule& rule, UnitSystem units, const NumberMarks& marks);

/// The columns of a table of bins: the outdoor temperature, the hours, and the load in percent.
enum class BinColumn { outdoor, hours, load };
inline constexpr int binColumns = 3;

/// Returns a value of a bin as it is shown, in the units of its column.
double shownValue(const LoadBin& bin, BinColumn column, UnitSystem units);

/// Enters a text into a bin. Throws LoadProfileFault, and the bin stays.
void enter(LoadBin& bin, BinColumn column, const std::string& text, UnitSystem units);

/// Enters lines with fields separated by tabs or ";", as a spreadsheet has them, from a place on. Lines
/// beyond the last bin make new ones, and a first line of words is passed over. Returns the bins, in the same
/// order. Throws LoadProfileFault with the line of the text.
std::vector<LoadBin> pasted(std::vector<LoadBin> bins, std::size_t row, BinColumn column,
                            std::string_view text, UnitSystem units);

/// Returns what comes after the last bin: 5 K warmer, without hours, at full load.
LoadBin nextBin(const std::vector<LoadBin>& bins);

/// Puts bins in the order of a profile, the coldest first. Returns where the one at `row` is then.
std::size_t sortBins(std::vector<LoadBin>& bins, std::size_t row);

/// Returns bins as a text that loadProfileIn() reads back exactly.
std::string binsText(const std::vector<LoadBin>& bins);

}  // namespace marvello

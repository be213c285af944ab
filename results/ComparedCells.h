#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/Numbers.h"

namespace marvello {

/// A value of one machine.
struct ComparedCell {
    std::string text = "-";         ///< as it is shown
    std::optional<double> value{};  ///< all digits of a number, in the unit of its row; none for words
    std::optional<double> shown{};  ///< the number that the text shows
    bool isBest = false;            ///< of its row, and better than another one as shown
    std::string difference{};       ///< from the reference, of the shown numbers: "+4.2 %"; may be empty

    bool isEmpty() const { return text == "-"; }
};

struct ComparedRow {
    std::string_view name;  ///< in files, such as "capacity"
    std::string caption;
    std::string unit{};
    std::vector<ComparedCell> cells{};  ///< in the order of the machines

    /// "Capacity kW".
    std::string captionWithUnit() const { return unit.empty() ? caption : caption + ' ' + unit; }
};

/// Which values of a row are the better ones, without doubt.
enum class Better : std::uint8_t { neither, lower, higher };

/// Returns a cell with a number through a pattern; "-" for none.
ComparedCell numberCell(std::optional<double> value, std::string_view pattern, const NumberMarks& marks);

/// Marks the better ones of a row, unless all show the same.
void markBest(ComparedRow& row, Better better);

}  // namespace marvello

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/Numbers.h"
#include "engine/Comparison.h"
#include "results/Messages.h"
#include "thermo/UnitSystem.h"

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

struct ComparedGroup {
    std::string caption;
    std::vector<ComparedRow> rows;
};

/// What a machine is called.
struct ComparedHead {
    std::string name;     ///< "TK-A-255"
    std::string facts;    ///< "2 × · R134A · 50 Hz"
    PointState state{};   ///< of its operating point
    std::string error{};  ///< why it has no values, as a sentence; empty if it has some
    std::vector<ShownMessage> messages{};

    /// "TK-A-255 (2 × · R134A · 50 Hz)".
    std::string label() const { return name + " (" + facts + ")"; }
};

/// Machines next to each other as windows, paper and files show them.
struct ComparisonTable {
    std::vector<ComparedHead> heads;
    /// The first is that of the operating point. None has rows in which no machine has a value, but for the
    /// first one where all machines have errors.
    std::vector<ComparedGroup> groups;
};

struct ComparisonStyle {
    UnitSystem units = UnitSystem::metric;
    NumberMarks marks{};
    std::optional<std::size_t> reference{};  ///< of the differences; none without differences
};

/// Returns the table of a comparison in the user's language. Capacity, power, condenser and oil cooler load,
/// mass flow and currents are those of all machines of a choice together.
ComparisonTable comparisonTable(const Comparison& comparison, const ComparisonStyle& style);

/// Returns an operating point: "2.0 / 40.0 °C".
std::string pointText(const OperatingPoint& point, const ComparisonStyle& style);
/// Returns superheat, or suction gas temperature, and subcooling: "superheat 10 K · subcooling 5 K".
std::string gasText(const OperatingPoint& point, const ComparisonStyle& style);

/// Returns the table as CSV, separated by ";": name, caption and unit of a row, the values of all machines
/// with all digits, and behind them their differences if there is a reference. Captions and words are in
/// quotes.
std::string comparisonCsv(const ComparisonTable& table, bool hasDifferences, std::string_view point = ".");

}  // namespace marvello

#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/Numbers.h"
#include "engine/Cycle.h"
#include "engine/PhDiagram.h"
#include "thermo/UnitSystem.h"

namespace marvello {

/// What a state of a cycle has, in the order of the table of states.
enum class StateProperty : std::uint8_t {
    temperature,
    pressure,
    enthalpy,
    entropy,
    density,
    quality,
    massFlow
};

/// All of them.
std::span<const StateProperty> stateProperties();

/// Returns the unit of a property, such as "kJ/kg"; empty for the quality.
std::string unitOf(StateProperty property, UnitSystem units);

/// Converts a metric value of a property.
double valueIn(StateProperty property, double metric, UnitSystem units);

/// Returns a metric value as the user reads it.
std::string textOf(StateProperty property, double metric, UnitSystem units, const NumberMarks& marks = {});

/// Returns the symbol of a property, such as "ρ", and what it is called: "Density".
std::string_view symbolOf(StateProperty property);
std::string nameOf(StateProperty property);

/// Returns the metric value of a property of a state; no quality in one phase.
std::optional<double> valueOf(const CycleState& state, StateProperty property);

/// Returns what a state is called. That of a tank has other names than that of a plate.
std::string nameOfState(CyclePoint point, EconomizerKind economizer);

/// The table of the states of a cycle.
struct CycleTable {
    struct Column {
        std::string symbol;
        std::string name;
        std::string unit;
    };
    struct Row {
        std::string number;  ///< From 1, as in the diagram.
        std::string name;
        std::vector<std::string> values{};  ///< By column; "-" for none.
    };
    std::string state;  ///< The name of the column with the names.
    std::vector<Column> columns{};
    std::vector<Row> rows{};
};
CycleTable tableOf(const Cycle& cycle, UnitSystem units, const NumberMarks& marks = {});

/// A figure with its caption, as the user reads them.
struct CaptionedValue {
    std::string caption;
    std::string value;
};
/// Returns the figures of a cycle, and of compressor and condenser what the gas takes in or gives off, and
/// what of their power and load is not in it: two that belong together follow each other.
std::vector<CaptionedValue> figuresOf(const Cycle& cycle, UnitSystem units, const NumberMarks& marks = {});

/// Returns what the refrigerant is at a point of the diagram, in lines; pressure and enthalpy alone where it
/// has no state. Throws ArithmeticFault.
std::string readingAt(clsRefprop& refprop, const PhPoint& point, UnitSystem units,
                      const NumberMarks& marks = {});

/// Returns the table and the figures as text with tabs, for spreadsheets.
std::string copiedText(const Cycle& cycle, UnitSystem units, const NumberMarks& marks = {});

}  // namespace marvello

#include "results/CycleTexts.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "data/DictionaryTexts.h"
#include "results/FigureTexts.h"
#include "results/ReportLines.h"
#include "thermo/EnteredQuantity.h"

namespace marvello {

namespace {

constexpr std::array properties{StateProperty::temperature, StateProperty::pressure, StateProperty::enthalpy,
                                StateProperty::entropy,     StateProperty::density,  StateProperty::quality,
                                StateProperty::massFlow};

constexpr std::string_view nothing = "-";

/// Null for what is the same in every system.
UnitRule ruleOf(StateProperty property) {
    constexpr std::array<UnitRule, properties.size()> rules{
        convertedTemperature, convertedPressure, convertedEnthalpy, convertedEntropy,
        convertedDensity,     nullptr,           convertedMassFlow};
    return rules.at(static_cast<std::size_t>(property));
}

std::string_view patternOf(StateProperty property, double shown) {
    constexpr double large = 1000;  // a density with two decimals would not fit its column
    switch (property) {
        case StateProperty::pressure:
            return "#0.00";
        case StateProperty::entropy:
            return "#0.0000";
        case StateProperty::density:
            return std::abs(shown) < large ? "#0.00" : "#0.0";
        case StateProperty::quality:
            return "#0.000";
        case StateProperty::massFlow:
            return "#0";
        case StateProperty::temperature:
        case StateProperty::enthalpy:
            break;
    }
    return "#0.0";
}

/// The captions and values of a cycle in one system of units.
class Figures {
  public:
    Figures(const Cycle& cycle, UnitSystem units, const NumberMarks& marks)
        : cycle_(cycle), units_(units), marks_(marks) {}

    std::vector<CaptionedValue> all() {
        const CycleFigures& figures = cycle_.figures;
        add("frmselection.cycle.effect", inUnits(StateProperty::enthalpy, figures.refrigeratingEffect));
        add("frmselection.cycle.ratio", formatNumber(figures.pressureRatio, "#0.00", marks_));
        if (figures.economizerGain) {
            add("frmselection.cycle.gain", figureText(Figure::capacity, *figures.economizerGain));
            add("frmselection.cycle.port", inUnits(StateProperty::pressure, *figures.portPressure));
        }
        const bool hasEconomizer = cycle_.economizer != EconomizerKind::none;
        add(hasEconomizer ? "variables.qeco.name" : "variables.q0.name",
            figureText(Figure::capacity, figures.duty.capacity));
        add("frmselection.cycle.efficiency",
            withUnit(formatNumber(100 * figures.isentropicEfficiency, "#0.0", marks_), "%"));
        add(hasEconomizer ? "variables.ptaeco.name" : "variables.pta.name",
            figureText(Figure::power, figures.duty.power));
        add(hasEconomizer ? "variables.copeco.name" : "variables.cop.name",
            figureText(Figure::cop, figures.duty.cop));
        addBalance(CycleBalance::Part::compressor, "frmselection.cycle.compressor");
        addBalance(CycleBalance::Part::condenser, "frmselection.cycle.condenser");
        if (figures.oilCoolerLoad > 0) add("variables.pra.description", powerText(figures.oilCoolerLoad));
        return std::move(values_);
    }

  private:
    void add(std::string_view key, std::string value) {
        values_.push_back({dictionaryText(key), std::move(value)});
    }
    void addBalance(CycleBalance::Part part, std::string_view key) {
        const auto balance = std::ranges::find(cycle_.balances, part, &CycleBalance::part);
        add(key, powerText(balance->states));
        add("frmselection.cycle.notinthegas", powerText(balance->difference()));
    }
    std::string inUnits(StateProperty property, double metric) const {
        return withUnit(textOf(property, metric, units_, marks_), unitOf(property, units_));
    }
    std::string figureText(Figure figure, double metric) const {
        return withUnit(shownFigure(figure, metric, units_, marks_).text, unitOf(figure, units_));
    }
    std::string powerText(double kilowatts) const {
        return withUnit(formatNumber(kilowatts, "#0.0", marks_), unitOf(Figure::power, units_));
    }

    const Cycle& cycle_;
    const UnitSystem units_;
    const NumberMarks& marks_;
    std::vector<CaptionedValue> values_;
};

}  // namespace

std::span<const StateProperty> stateProperties() { return properties; }

std::string unitOf(StateProperty property, UnitSystem units) {
    const bool isImperial = units == UnitSystem::imperial;
    switch (property) {
        case StateProperty::temperature:
            return unitText(Quantity::temperature, units);
        case StateProperty::pressure:
            return unitText(Quantity::pressure, units);
        case StateProperty::enthalpy:
            return isImperial ? "Btu/lb" : "kJ/kg";
        case StateProperty::entropy:
            return isImperial ? "Btu/(lb °R)" : "kJ/(kg K)";
        case StateProperty::density:
            return isImperial ? "lb/ft³" : "kg/m³";
        case StateProperty::massFlow:
            return unitOf(Figure::massFlow, units);
        case StateProperty::quality:
            break;
    }
    return {};
}

double valueIn(StateProperty property, double metric, UnitSystem units) {
    const UnitRule rule = ruleOf(property);
    return rule == nullptr ? metric : rule(metric, UnitSystem::metric, units);
}

std::string textOf(StateProperty property, double metric, UnitSystem units, const NumberMarks& marks) {
    const double shown = valueIn(property, metric, units);
    return formatNumber(shown, patternOf(property, shown), marks);
}

std::string_view symbolOf(StateProperty property) {
    constexpr std::array<std::string_view, properties.size()> symbols{"T", "p", "h", "s", "ρ", "x", "ṁ"};
    return symbols.at(static_cast<std::size_t>(property));
}

std::string nameOf(StateProperty property) {
    switch (property) {
        case StateProperty::temperature:
            return dictionaryText("frmselection.cycle.temperature");
        case StateProperty::pressure:
            return dictionaryText("frmselection.cycle.pressure");
        case StateProperty::enthalpy:
            return dictionaryText("frmselection.cycle.enthalpy");
        case StateProperty::entropy:
            return dictionaryText("frmselection.cycle.entropy");
        case StateProperty::density:
            return dictionaryText("frmselection.cycle.density");
        case StateProperty::quality:
            return dictionaryText("frmselection.cycle.quality");
        case StateProperty::massFlow:
            break;
    }
    return dictionaryText("variables.mbase.name");
}

std::optional<double> valueOf(const CycleState& state, StateProperty property) {
    const FluidState& fluid = state.state;
    const std::array<std::optional<double>, properties.size()> values{
        fluid.t, fluid.p, fluid.h, fluid.s, fluid.density, fluid.quality, state.massFlow};
    return values.at(static_cast<std::size_t>(property));
}

std::string nameOfState(CyclePoint point, EconomizerKind economizer) {
    const bool isTank = economizer == EconomizerKind::tank;
    switch (point) {
        case CyclePoint::suction:
            return dictionaryText("frmselection.cycle.suction");
        case CyclePoint::portBeforeMixing:
            return dictionaryText("frmselection.cycle.portbeforemixing");
        case CyclePoint::portMixed:
            return dictionaryText("frmselection.cycle.portmixed");
        case CyclePoint::discharge:
            return dictionaryText("frmselection.cycle.discharge");
        case CyclePoint::condenserDew:
            return dictionaryText("frmselection.cycle.condenserdew");
        case CyclePoint::condenserBubble:
            return dictionaryText("frmselection.cycle.condenserbubble");
        case CyclePoint::liquid:
            return dictionaryText("frmselection.cycle.liquid");
        case CyclePoint::liquidAfterEconomizer:
            return dictionaryText(isTank ? "frmselection.cycle.tankliquid"
                                         : "frmselection.cycle.liquidaftereconomizer");
        case CyclePoint::evaporatorInlet:
            return dictionaryText("frmselection.cycle.evaporatorinlet");
        case CyclePoint::economizerInlet:
            return dictionaryText(isTank ? "frmselection.cycle.tankinlet"
                                         : "frmselection.cycle.economizerinlet");
        case CyclePoint::economizerOutlet:
            return dictionaryText(isTank ? "frmselection.cycle.tankgas"
                                         : "frmselection.cycle.economizeroutlet");
        case CyclePoint::dischargeUncooled:
            break;
    }
    return dictionaryText("frmselection.cycle.dischargeuncooled");
}

CycleTable tableOf(const Cycle& cycle, UnitSystem units, const NumberMarks& marks) {
    CycleTable table{.state = dictionaryText("frmselection.cycle.state")};
    for (const StateProperty property : properties)
        table.columns.push_back({std::string(symbolOf(property)), nameOf(property), unitOf(property, units)});
    for (const CycleState& state : cycle.states) {
        CycleTable::Row row{.number = std::to_string(table.rows.size() + 1),
                            .name = nameOfState(state.point, cycle.economizer)};
        for (const StateProperty property : properties) {
            const auto value = valueOf(state, property);
            row.values.push_back(value ? textOf(property, *value, units, marks) : std::string(nothing));
        }
        table.rows.push_back(std::move(row));
    }
    return table;
}

std::vector<CaptionedValue> figuresOf(const Cycle& cycle, UnitSystem units, const NumberMarks& marks) {
    return Figures(cycle, units, marks).all();
}

std::string readingAt(clsRefprop& refprop, const PhPoint& point, UnitSystem units, const NumberMarks& marks) {
    const auto part = [&](StateProperty property, double metric) {
        return std::string(symbolOf(property)) + " " +
               withUnit(textOf(property, metric, units, marks), unitOf(property, units));
    };
    const std::string place =
        part(StateProperty::pressure, point.p) + "   " + part(StateProperty::enthalpy, point.h);
    const auto state = refprop.StateAtEnthalpy(point.p, point.h);
    if (!state) return place;
    std::string text = place + "\n" + part(StateProperty::temperature, state->t);
    if (state->quality) text += "   " + part(StateProperty::quality, *state->quality);
    return text + "\n" + part(StateProperty::entropy, state->s) + "   " +
           part(StateProperty::density, state->density);
}

std::string copiedText(const Cycle& cycle, UnitSystem units, const NumberMarks& marks) {
    const CycleTable table = tableOf(cycle, units, marks);
    std::string text = "\t" + table.state;
    for (const CycleTable::Column& column : table.columns)
        text += "\t" + column.name + (column.unit.empty() ? "" : " (" + column.unit + ")");
    for (const CycleTable::Row& row : table.rows) {
        text += "\n" + row.number + "\t" + row.name;
        for (const std::string& value : row.values) text += "\t" + value;
    }
    text += "\n";
    for (const CaptionedValue& figure : figuresOf(cycle, units, marks))
        text += "\n\t" + figure.caption + "\t" + figure.value;
    return text + "\n";
}

}  // namespace marvello

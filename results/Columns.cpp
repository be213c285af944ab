#include "results/Columns.h"

#include <algorithm>
#include <array>

#include "data/DictionaryTexts.h"
#include "data/ParameterSets.h"
#include "data/Texts.h"
#include "engine/Margins.h"
#include "thermo/clsConvert.h"

namespace marvello {

namespace {

constexpr std::string_view marginColumn = "@margin";

/// The visibilities of a column that the user alone shows, and of one that is shown in any case.
constexpr int onDemand = 5;
constexpr int always = 0;

std::string_view patternOf(std::string_view key) {
    if (key == "cop" || key == "copeco") return "#0.00";
    if (key == "eer" || key == "ikw/ton") return "#0.000";
    if (key == "q0btu" || key == "qecobtu") return "#,#";
    return "#0.0";
}

bool needsEconomizerPort(std::string_view key) {
    constexpr std::array<std::string_view, 7> keys{"qeco",  "qecobtu", "ptaeco", "copeco",
                                                   "caeco", "meco",    "peco"};
    return std::ranges::find(keys, key) != keys.end();
}

double withEconomizer(const clsCompressor& compressor) {
    return compressor.Variables[var::Q0] + compressor.Variables[var::Qeco];
}

/// The power input per ton of refrigeration, which only the list knows.
double powerPerTon(const clsCompressor& compressor) {
    const double tons = clsConvert().ConvertValue(compressor.Variables[var::Q0], conversion::kilowattsToTons);
    if (tons == 0) throw VariableError("There is no capacity.");
    return compressor.Variables[var::Pta] / tons;
}

/// To the application limit; below 0 outside of it.
double marginOf(const clsCompressor& compressor) {
    const auto margin = applicationMargin(compressor);
    if (!margin) throw VariableError("There is no margin.");
    return margin->kelvin;
}

/// The columns that are not a variable of the calculation as it is.
struct OwnColumn {
    std::string_view key;
    double (*value)(const clsCompressor& compressor);
};
constexpr std::array<OwnColumn, 8> ownColumns{{
    {"q0btu", [](const clsCompressor& c) { return c.Variables[var::Q0]; }},
    {"qecobtu", withEconomizer},
    {"qeco", withEconomizer},
    {"ikw/ton", powerPerTon},
    {"@fla", [](const clsCompressor& c) { return c.Fla; }},
    {"@lra1", [](const clsCompressor& c) { return c.Variables[var::Lra1]; }},
    {"@lra2", [](const clsCompressor& c) { return c.Variables[var::Lra2]; }},
    {marginColumn, marginOf},
}};

/// Throws VariableError for a value that is not there.
double metricValue(const clsCompressor& compressor, const std::string& key) {
    const auto* const own = std::ranges::find(ownColumns, key, &OwnColumn::key);
    return own == ownColumns.end() ? compressor.Variables(key) : own->value(compressor);
}

/// How a column goes to the imperial system.
struct ImperialColumn {
    int conversion = 0;         ///< of clsConvert
    std::string_view unit{};    ///< "F" for degrees Fahrenheit
    bool isDifference = false;  ///< of temperatures, which clsConvert does not know
};

struct NamedColumn {
    std::string_view key;
    ImperialColumn column;
};

// Kept: pressures ask for a conversion that changes nothing, so they are in bar under "psia", as lists and
// files have always had them.
constexpr std::array<NamedColumn, 14> namedColumns{{{"q0", {conversion::kilowattsToTons, "Tons"}},
                                                    {"qeco", {conversion::kilowattsToTons, "Tons"}},
                                                    {"pra", {conversion::kilowattsToTons, "Tons"}},
                                                    {"q0btu", {conversion::kilowattsToTons, "Btu/h"}},
                                                    {"qecobtu", {conversion::kilowattsToTons, "Btu/h"}},
                                                    {"mbase", {conversion::kilogramsToPounds, "lb/h"}},
                                                    {"meco", {conversion::kilogramsToPounds, "lb/h"}},
                                                    {"peco", {conversion::unchanged, "psia"}},
                                                    {"p9", {conversion::unchanged, "psia"}},
                                                    {"pliq", {conversion::unchanged, "psia"}},
                                                    {"tsca", {conversion::celsiusToFahrenheit, "F"}},
                                                    {"t31", {conversion::celsiusToFahrenheit, "F"}},
                                                    {"t3", {conversion::celsiusToFahrenheit, "F"}},
                                                    {"tsat", {conversion::celsiusToFahrenheit, "F"}}}};

/// By the unit of a column; the power input of a compressor stays in kW in both systems.
std::optional<ImperialColumn> columnOfUnit(std::string_view key, std::string_view unit) {
    const bool isPowerInput = key.starts_with("pta");
    const bool isCelsius =
        unit == "C" || unit == "\u00B0C" || unit == dictionaryTextIfAny("general.variable03") + "C";
    if (isCelsius) return ImperialColumn{conversion::celsiusToFahrenheit, "F"};
    if (unit == "K") return ImperialColumn{conversion::unchanged, "F", true};
    if (unit == "kW" && !isPowerInput) return ImperialColumn{conversion::kilowattsToTons, "Tons"};
    if (unit == "kg/h") return ImperialColumn{conversion::kilogramsToPounds, "lb/h"};
    if (unit == "kg") return ImperialColumn{conversion::kilogramsToPounds, "lb"};
    return std::nullopt;
}

/// None for a column that stays metric.
std::optional<ImperialColumn> imperialColumn(const clsOutput& output) {
    const std::string key = lowered(output.Key);
    const auto* const found = std::ranges::find(namedColumns, key, &NamedColumn::key);
    if (found != namedColumns.end()) return found->column;
    return columnOfUnit(key, withoutBlanks(output.UmDescription));
}

double imperialValue(double value, const clsOutput& output) {
    const auto column = imperialColumn(output);
    if (!column) return value;
    if (column->isDifference) return convertedDifference(value, UnitSystem::metric, UnitSystem::imperial);
    clsConvert convert;
    const double converted = convert.ConvertValue(value, column->conversion);
    const std::string key = lowered(output.Key);
    if (key != "q0btu" && key != "qecobtu") return converted;
    // From the tons as they are shown.
    return convert.ConvertValue(shownValue(converted, "#.#"), conversion::tonsToBtu);
}

ShownValue calculatedValue(const clsCompressor& compressor, const clsOutput& column, UnitSystem units,
                           const NumberMarks& marks) {
    const std::string key = lowered(column.Key);
    if (compressor.Variables.Exist(key)) {
        const clsVariable& variable = compressor.Variables.Item(key);
        if (!variable.isNumber()) return {.text = variable.text()};
    }
    const bool isAbsent = needsEconomizerPort(key) && !compressor.Economizer.hasPort();
    double value = isAbsent ? 0 : metricValue(compressor, key);
    if (units == UnitSystem::imperial && !isAbsent) value = imperialValue(value, column);
    if (value == 0 && (key == "pra" || key == marginColumn)) return {0, "0"};
    if (value == 0) return {.text = "-"};
    return {shownValue(value, patternOf(key)), formatNumber(value, patternOf(key), marks)};
}

}  // namespace

clsOutputs catalogueColumns() {
    // Both forms have the columns of one.
    for (const auto& [object, property, value] : readParameterSet("frm", "frmselection", "populate"))
        if (equalIgnoringCase(object, "lvCps") && equalIgnoringCase(property, "Tag"))
            return readOutputs(value);
    return {};
}

clsOutputs readOutputs(std::string_view text) {
    clsOutputs outputs;
    for (const std::string& piece : splitText(text, ';')) {
        const std::vector<std::string> parts = splitText(piece, '|');
        if (parts.size() < 5) continue;
        const std::string key = trimmed(parts[0]);
        if (key.empty() || outputs.Exist(key)) continue;
        const int visibility = static_cast<int>(storedNumber(parts[4]).value_or(0));
        outputs.add(key, trimmed(parts[1]), trimmed(parts[3]), trimmed(parts[2]), {}, visibility);
    }
    return outputs;
}

bool isOwnColumn(std::string_view key) {
    return std::ranges::find(ownColumns, lowered(key), &OwnColumn::key) != ownColumns.end();
}

bool isShown(int visibility, UnitSystem units, bool hasEconomizer) {
    const bool isImperial = units == UnitSystem::imperial;
    switch (visibility) {
        case 1:
            return hasEconomizer;
        case 2:
            return !hasEconomizer;
        case 3:
            return isImperial;
        case 4:
            return isImperial && hasEconomizer;
        case onDemand:
            return false;
        default:
            return true;
    }
}

bool isOffered(int visibility, UnitSystem units, bool hasEconomizer) {
    return visibility == onDemand || isShown(visibility, units, hasEconomizer);
}

clsOutputs withSwitched(const clsOutputs& columns, const std::vector<std::string>& keys) {
    clsOutputs switched;
    for (const clsOutput& column : columns) {
        const bool isSwitched = std::ranges::any_of(
            keys, [&](const std::string& key) { return equalIgnoringCase(key, column.Key); });
        const int other = column.Visibility == onDemand ? always : onDemand;
        switched.add(column.Key, column.Name, column.Description, column.UmDescription, column.value,
                     isSwitched ? other : column.Visibility);
    }
    return switched;
}

std::string unitText(const clsOutput& column, UnitSystem units) {
    const auto imperial = units == UnitSystem::imperial ? imperialColumn(column) : std::nullopt;
    if (!imperial) return column.UmDescription;
    const std::string unit(imperial->unit);
    return unit == "F" ? dictionaryText("general.variable03") + unit : unit;
}

ShownValue valueIn(const clsCompressor& compressor, const clsOutput& column, UnitSystem units,
                   const NumberMarks& marks) {
    try {
        return calculatedValue(compressor, column, units, marks);
    } catch (const std::exception&) {
        return blankValue;  // a column of the catalogue that this calculation has no value for
    }
}

}  // namespace marvello

#include "workspace/ResultsList.h"

#include <QStringList>
#include <algorithm>
#include <array>
#include <optional>

#include "controls/NumberText.h"
#include "thermo/clsConvert.h"
#include "workspace/MeasureSystem.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

/// True when the economized cycle found no solution for the compressor.
bool isStoppedByEconomizer(const clsCompressor& compressor) {
    return compressor.Variables.isSet(var::EcoOK) && compressor.Variables[var::EcoOK] == -1;
}

QString patternOf(const QString& key) {
    if (key == u"cop" || key == u"copeco") return QStringLiteral("#0.00");
    if (key == u"eer" || key == u"ikw/ton") return QStringLiteral("#0.000");
    if (key == u"q0btu" || key == u"qecobtu") return QStringLiteral("#,#");
    return QStringLiteral("#0.0");
}

bool needsEconomizerPort(const QString& key) {
    static const QStringList keys{"qeco", "qecobtu", "ptaeco", "copeco", "caeco", "meco", "peco"};
    return keys.contains(key);
}

double valueOf(clsCompressor& compressor, const QString& key) {
    const clsVariables& variables = compressor.Variables;
    if (needsEconomizerPort(key) && !compressor.Economizer.hasPort()) return 0;
    if (key == u"q0btu") return variables[var::Q0];
    if (key == u"qeco" || key == u"qecobtu") return variables[var::Q0] + variables[var::Qeco];
    if (key == u"@fla") return compressor.Fla;
    if (key == u"@lra1") return variables[var::Lra1];
    if (key == u"@lra2") return variables[var::Lra2];
    return variables(toCore(key));
}

/// How a column goes to the imperial system.
struct ImperialColumn {
    int conversion = 0;         ///< of clsConvert
    const char* unit = "";      ///< "F" for degrees Fahrenheit
    bool isDifference = false;  ///< of temperatures, which clsConvert does not know
};

struct NamedColumn {
    const char* key;
    ImperialColumn column;
};

// Kept: pressures ask for a conversion that changes nothing, so that they stand in bar under "psia".
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
std::optional<ImperialColumn> columnOfUnit(const QString& key, const QString& unit) {
    const bool isPowerInput = key.startsWith(u"pta");
    const bool isDegrees = unit.size() <= 2 && unit.endsWith(u'C');
    if (isDegrees) return ImperialColumn{conversion::celsiusToFahrenheit, "F"};
    if (unit == u"K") return ImperialColumn{conversion::unchanged, "F", true};
    if (unit == u"kW" && !isPowerInput) return ImperialColumn{conversion::kilowattsToTons, "Tons"};
    if (unit == u"kg/h") return ImperialColumn{conversion::kilogramsToPounds, "lb/h"};
    if (unit == u"kg") return ImperialColumn{conversion::kilogramsToPounds, "lb"};
    return std::nullopt;
}

/// Nothing for a column that stays metric.
std::optional<ImperialColumn> imperialColumn(const clsOutput& output) {
    const QString key = fromCore(output.Key).toLower();
    const auto* const found = std::ranges::find_if(
        namedColumns, [&key](const NamedColumn& named) { return key == QLatin1String(named.key); });
    if (found != namedColumns.end()) return found->column;
    return columnOfUnit(key, fromCore(output.UmDescription).trimmed());
}

double imperialValue(double value, const clsOutput& output) {
    const auto column = imperialColumn(output);
    if (!column) return value;
    if (column->isDifference)
        return convertedDifference(value, MeasureSystem::metric, MeasureSystem::imperial);
    clsConvert convert;
    const double converted = convert.ConvertValue(value, column->conversion);
    const QString key = fromCore(output.Key).toLower();
    if (key != u"q0btu" && key != u"qecobtu") return converted;
    // From the tons as they are shown.
    const auto shown = typedNumber(formatNumber(converted, u"#.#", QLocale::c()));
    return convert.ConvertValue(shown.value_or(0), conversion::tonsToBtu);
}

/// Adds the power per ton of refrigeration, which only this list knows.
void addPowerPerTon(clsCompressor& compressor) {
    if (compressor.Variables.Exist("ikw/ton")) return;
    const double tons = clsConvert().ConvertValue(compressor.Variables[var::Q0], conversion::kilowattsToTons);
    if (tons != 0) compressor.Variables.add("ikw/ton", compressor.Variables[var::Pta] / tons);
}

}  // namespace

clsOutputs readOutputs(const QString& text) {
    clsOutputs outputs;
    for (const QString& piece : text.split(u';', Qt::SkipEmptyParts)) {
        const QStringList parts = piece.split(u'|');
        if (parts.size() < 5) continue;
        const std::string key = toCore(parts[0].trimmed());
        if (key.empty() || outputs.Exist(key)) continue;
        outputs.add(key, toCore(parts[1].trimmed()), toCore(parts[3].trimmed()), toCore(parts[2].trimmed()),
                    {}, parts[4].trimmed().toInt());
    }
    return outputs;
}

bool isShown(int visibility, bool isImperial, bool hasEconomizer) {
    switch (visibility) {
        case 1:
            return hasEconomizer;
        case 2:
            return !hasEconomizer;
        case 3:
            return isImperial;
        case 4:
            return isImperial && hasEconomizer;
        default:
            return true;
    }
}

QString markOf(const clsCompressor& compressor) {
    QString mark = QStringLiteral("ledgreen");
    if (compressor.Messages.Attention.Count() > 0) mark = QStringLiteral("ledorange");
    if (isBlank(compressor)) mark = QStringLiteral("ledred");
    return mark;
}

bool isBlank(const clsCompressor& compressor) {
    return compressor.Messages.Error.Count() > 0 || isStoppedByEconomizer(compressor);
}

QString unitText(const clsOutput& column, bool isImperial) {
    const auto imperial = isImperial ? imperialColumn(column) : std::nullopt;
    if (!imperial) return fromCore(column.UmDescription);
    const QString unit(QLatin1String(imperial->unit));
    return unit == u"F" ? dictionaryText(QStringLiteral("general.variable03")) + unit : unit;
}

QString resultText(clsCompressor& compressor, const clsOutput& column, bool isImperial,
                   const QLocale& locale) {
    const QString name = fromCore(column.Key).toLower();
    if (isImperial) addPowerPerTon(compressor);
    if (compressor.Variables.Exist(toCore(name))) {
        const clsVariable& variable = compressor.Variables.Item(toCore(name));
        if (!variable.isNumber()) return fromCore(variable.text());
    }
    double value = valueOf(compressor, name);
    if (isImperial && !(needsEconomizerPort(name) && !compressor.Economizer.hasPort()))
        value = imperialValue(value, column);
    if (value == 0) return name == u"pra" ? QStringLiteral("0") : QStringLiteral("-");
    return formatNumber(value, patternOf(name), locale);
}

QString nameOf(const clsCompressor& compressor) {
    return fromCore(compressor.Serie) + u'-' + fromCore(compressor.Model);
}

QString nameWithRefrigerant(const clsCompressor& compressor) {
    return nameOf(compressor) + u'-' + fromCore(compressor.Refrigerant);
}

}  // namespace marvello

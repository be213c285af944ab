#include "workspace/ResultsList.h"

#include <QStringList>
#include <algorithm>
#include <array>

#include "controls/NumberText.h"
#include "thermo/clsConvert.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

/// True when the economized cycle found no solution for the compressor.
bool isStoppedByEconomizer(const clsCompressor& compressor) {
    if (!compressor.Variables.Exist("EcoOK")) return false;
    const clsVariable& variable = compressor.Variables.Item("EcoOK");
    return variable.isNumber() && variable.number() == -1;
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
    if (key == u"q0btu") return variables("q0");
    if (key == u"qeco" || key == u"qecobtu") return variables("Q0") + variables("qeco");
    if (key == u"@fla") return compressor.Fla;
    if (key == u"@lra1") return variables("lra1");
    if (key == u"@lra2") return variables("lra2");
    return variables(toCore(key));
}

/// How a column goes to the imperial system.
struct ImperialColumn {
    const char* key;
    int conversion;    ///< of clsConvert
    const char* unit;  ///< "F" for degrees Fahrenheit; empty where the column keeps its own
};

// Kept: pressures ask for a conversion that changes nothing, so that they stand in bar under "psia", and T3
// is converted under its own unit.
constexpr std::array<ImperialColumn, 14> imperialColumns{{{"q0", conversion::kilowattsToTons, "Tons"},
                                                          {"qeco", conversion::kilowattsToTons, "Tons"},
                                                          {"pra", conversion::kilowattsToTons, "Tons"},
                                                          {"q0btu", conversion::kilowattsToTons, "Btu"},
                                                          {"qecobtu", conversion::kilowattsToTons, "Btu"},
                                                          {"mbase", conversion::kilogramsToPounds, "lb/h"},
                                                          {"meco", conversion::kilogramsToPounds, "lb/h"},
                                                          {"peco", conversion::unchanged, "psia"},
                                                          {"p9", conversion::unchanged, "psia"},
                                                          {"pliq", conversion::unchanged, "psia"},
                                                          {"tsca", conversion::celsiusToFahrenheit, "F"},
                                                          {"t31", conversion::celsiusToFahrenheit, "F"},
                                                          {"t3", conversion::celsiusToFahrenheit, ""},
                                                          {"tsat", conversion::celsiusToFahrenheit, "F"}}};

/// Nothing for a column that stays metric; `key` in lower case.
const ImperialColumn* imperialColumn(const QString& key) {
    const auto* const found = std::ranges::find_if(
        imperialColumns, [&key](const ImperialColumn& column) { return key == QLatin1String(column.key); });
    return found == imperialColumns.end() ? nullptr : found;
}

double imperialValue(double value, const QString& key) {
    const ImperialColumn* const column = imperialColumn(key);
    if (!column) return value;
    clsConvert convert;
    const double converted = convert.ConvertValue(value, column->conversion);
    if (key != u"q0btu" && key != u"qecobtu") return converted;
    // From the tons as they are shown.
    const auto shown = typedNumber(formatNumber(converted, u"#.#", QLocale::c()));
    return convert.ConvertValue(shown.value_or(0), conversion::tonsToBtu);
}

/// Adds the power per ton of refrigeration, which only this list knows.
void addPowerPerTon(clsCompressor& compressor) {
    if (compressor.Variables.Exist("ikw/ton")) return;
    const double tons = clsConvert().ConvertValue(compressor.Variables("q0"), conversion::kilowattsToTons);
    if (tons != 0) compressor.Variables.add("ikw/ton", compressor.Variables("Pta") / tons);
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

QString imperialUnit(const QString& key) {
    const ImperialColumn* const column = imperialColumn(key.toLower());
    return column ? QString(QLatin1String(column->unit)) : QString();
}

QString resultText(clsCompressor& compressor, const QString& key, bool isImperial, const QLocale& locale) {
    const QString name = key.toLower();
    if (isImperial) addPowerPerTon(compressor);
    if (compressor.Variables.Exist(toCore(name))) {
        const clsVariable& variable = compressor.Variables.Item(toCore(name));
        if (!variable.isNumber()) return fromCore(variable.text());
    }
    double value = valueOf(compressor, name);
    if (isImperial && !(needsEconomizerPort(name) && !compressor.Economizer.hasPort()))
        value = imperialValue(value, name);
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

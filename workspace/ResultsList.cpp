#include "workspace/ResultsList.h"

#include <QHash>
#include <QStringList>
#include <cmath>
#include <stdexcept>

#include "controls/NumberText.h"
#include "thermo/clsConvert.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

/// True when the economised cycle found no solution for the compressor.
bool isStoppedByEconomiser(const clsCompressor& compressor) {
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

bool needsEconomiserPort(const QString& key) {
    static const QStringList keys{"qeco", "qecobtu", "ptaeco", "copeco", "caeco", "meco", "peco"};
    return keys.contains(key);
}

double valueOf(clsCompressor& compressor, const QString& key) {
    const clsVariables& variables = compressor.Variables;
    if (needsEconomiserPort(key) && !compressor.Economizer.hasPort()) return 0;
    if (key == u"q0btu") return variables("q0");
    if (key == u"qeco" || key == u"qecobtu") return variables("Q0") + variables("qeco");
    if (key == u"@fla") return compressor.Fla;
    if (key == u"@lra1") return variables("lra1");
    if (key == u"@lra2") return variables("lra2");
    return variables(toCore(key));
}

/// How the value of a column goes to the imperial system: a conversion of clsConvert, or none.
int imperialConversion(const QString& key) {
    constexpr int none = -1;
    static const QHash<QString, int> conversions{
        {"q0", 0},   {"qeco", 0}, {"pra", 0},  {"q0btu", 0}, {"qecobtu", 0}, {"mbase", 1}, {"meco", 1},
        {"peco", 7}, {"p9", 7},   {"pliq", 7}, {"tsca", 2},  {"t31", 2},     {"t3", 2},    {"tsat", 2}};
    return conversions.value(key, none);
}

double imperialValue(double value, const QString& key) {
    constexpr int tonsToBtu = 9;
    const int conversion = imperialConversion(key);
    if (conversion < 0) return value;
    clsConvert convert;
    const double converted = convert.ConvertValue(value, conversion);
    if (key != u"q0btu" && key != u"qecobtu") return converted;
    // From the tons as they are shown.
    const auto shown = typedNumber(formatNumber(converted, u"#.#", QLocale::c()));
    return convert.ConvertValue(shown.value_or(0), tonsToBtu);
}

/// Adds the power per ton of refrigeration, which only this list knows.
void addPowerPerTon(clsCompressor& compressor) {
    constexpr int kilowattsToTons = 0;
    if (compressor.Variables.Exist("ikw/ton")) return;
    const double tons = clsConvert().ConvertValue(compressor.Variables("q0"), kilowattsToTons);
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

bool isShown(int visibility, bool isImperial, bool hasEconomiser) {
    switch (visibility) {
        case 1:
            return hasEconomiser;
        case 2:
            return !hasEconomiser;
        case 3:
            return isImperial;
        case 4:
            return isImperial && hasEconomiser;
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
    return compressor.Messages.Error.Count() > 0 || isStoppedByEconomiser(compressor);
}

QString imperialUnit(const QString& key) {
    static const QHash<QString, QString> units{
        {"q0", "Tons"},    {"qeco", "Tons"}, {"pra", "Tons"},  {"q0btu", "Btu"}, {"qecobtu", "Btu"},
        {"mbase", "lb/h"}, {"meco", "lb/h"}, {"peco", "psia"}, {"p9", "psia"},   {"pliq", "psia"},
        {"tsca", "F"},     {"t31", "F"},     {"tsat", "F"}};
    return units.value(key.toLower());
}

QString resultText(clsCompressor& compressor, const QString& key, bool isImperial, const QLocale& locale) {
    const QString name = key.toLower();
    if (isImperial) addPowerPerTon(compressor);
    if (compressor.Variables.Exist(toCore(name))) {
        const clsVariable& variable = compressor.Variables.Item(toCore(name));
        if (!variable.isNumber()) return fromCore(variable.text());
    }
    double value = valueOf(compressor, name);
    if (isImperial && !(needsEconomiserPort(name) && !compressor.Economizer.hasPort()))
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

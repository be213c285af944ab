#include "workspace/UnitTexts.h"

#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <cmath>

#include "controls/AdvanceText.h"
#include "controls/NumberText.h"
#include "thermo/UnitFamilies.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

const QString noBreak(QChar(0xA0));

/// Returns `text` with each match replaced by what `make` makes of it.
template <class Make>
QString replaced(const QString& text, const QRegularExpression& expression, Make make) {
    QString result;
    qsizetype end = 0;
    for (auto matches = expression.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        result += text.mid(end, match.capturedStart() - end) + make(match);
        end = match.capturedEnd();
    }
    return result + text.mid(end);
}

/// A unit of the technical data and what takes its place, with their names in the unit families.
struct TechnicalUnit {
    const char* metric;
    const char* imperial;
    const char* family;
    const char* from;
    const char* to;
    double perTime = 1;  ///< minutes in an hour
};
constexpr std::array<TechnicalUnit, 3> technicalUnits{{{"m³/h", "cfm", "V", "M^3", "FT^3", 60},
                                                       {"kg", "lb", "M", "KG", "LB"},
                                                       {"l", "gal", "V", "LITER", "GAL"}}};

double inImperial(double value, const TechnicalUnit& unit) {
    const double base = convertInFamily(value, unit.family, unit.from, 0, UnitPass::toBase);
    return convertInFamily(base, unit.family, unit.to, 0, UnitPass::fromBase) / unit.perTime;
}

QString inThreeDigits(double value, const QLocale& locale) {
    const int whole = value > 0 ? static_cast<int>(std::floor(std::log10(value))) + 1 : 1;
    const QString decimals(std::clamp(3 - whole, 0, 2), u'#');
    return formatNumber(value, decimals.isEmpty() ? QStringLiteral("#0") : QStringLiteral("#0.") + decimals,
                        locale);
}

}  // namespace

QString withUnit(const QString& value, const QString& unit) {
    return unit.trimmed().isEmpty() ? value : value + u' ' + unit.trimmed();
}

QString withUnit(const AdvanceText& field) { return withUnit(field.TextText(), field.UnitCaptiontext()); }

QString inUnits(const QString& text, MeasureSystem system, const QLocale& locale) {
    static const QRegularExpression place(QStringLiteral("\\{([TD]):(\\+?)(-?[0-9.]+)\\}"));
    const QString degree = dictionaryText(QStringLiteral("general.variable03"));
    const bool isImperial = system == MeasureSystem::imperial;
    return replaced(text, place, [&](const QRegularExpressionMatch& match) {
        const bool isDifference = match.captured(1) == u"D";
        const UnitRule rule = isDifference ? convertedDifference : convertedTemperature;
        const double value = rule(match.captured(3).toDouble(), MeasureSystem::metric, system);
        const QString unit = isImperial ? degree + u'F' : isDifference ? QStringLiteral("K") : degree + u'C';
        return match.captured(2) + formatNumber(value, u"#0.#", locale) + noBreak + unit;
    });
}

QString technicalInImperial(const QString& value, const QLocale& locale) {
    static const QRegularExpression quantity(
        QStringLiteral("(?<![\\w.,])([0-9]+(?:\\.[0-9]+)?)\\s(m³/h|kg|l)(?![\\w/])"),
        QRegularExpression::UseUnicodePropertiesOption);
    return replaced(value, quantity, [&](const QRegularExpressionMatch& match) {
        const QString name = match.captured(2);
        const auto* const unit = std::ranges::find_if(technicalUnits, [&name](const TechnicalUnit& entry) {
            return name == QString::fromUtf8(entry.metric);
        });
        return inThreeDigits(inImperial(match.captured(1).toDouble(), *unit), locale) + u' ' +
               QString::fromUtf8(unit->imperial);
    });
}

}  // namespace marvello

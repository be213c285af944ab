#include "workspace/UnitTexts.h"

#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <cmath>

#include "controls/NumberText.h"
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

struct TechnicalUnit {
    const char* metric;
    const char* imperial;
    double factor;
};
// The cubic foot is 0.02831684659 m3, the pound 0.45359237 kg and the gallon 3.785411784 l.
constexpr std::array<TechnicalUnit, 3> technicalUnits{
    {{"m³/h", "cfm", 1 / (0.02831684659 * 60)}, {"kg", "lb", 1 / 0.45359237}, {"l", "gal", 1 / 3.785411784}}};

QString inThreeDigits(double value, const QLocale& locale) {
    const int whole = value > 0 ? static_cast<int>(std::floor(std::log10(value))) + 1 : 1;
    const QString decimals(std::clamp(3 - whole, 0, 2), u'#');
    return formatNumber(value, decimals.isEmpty() ? QStringLiteral("#0") : QStringLiteral("#0.") + decimals,
                        locale);
}

}  // namespace

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
        return inThreeDigits(match.captured(1).toDouble() * unit->factor, locale) + u' ' +
               QString::fromUtf8(unit->imperial);
    });
}

}  // namespace marvello

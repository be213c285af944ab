#include "workspace/UnitTexts.h"

#include <QRegularExpression>

#include "controls/NumberText.h"
#include "inputs/InputTexts.h"
#include "results/ReportLines.h"
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

}  // namespace

QString withUnit(const SelectionInputs& inputs, Input input) {
    return fromCore(withUnit(inputText(inputs, input, marksOf(QLocale())), unitText(inputs, input)));
}

QString inUnits(const QString& text, UnitSystem system, const QLocale& locale) {
    static const QRegularExpression place(QStringLiteral("\\{([TD]):(\\+?)(-?[0-9.]+)\\}"));
    const QString degree = dictionaryText(QStringLiteral("general.variable03"));
    const bool isImperial = system == UnitSystem::imperial;
    return replaced(text, place, [&](const QRegularExpressionMatch& match) {
        const bool isDifference = match.captured(1) == u"D";
        const UnitRule rule = isDifference ? convertedDifference : convertedTemperature;
        const double value = rule(match.captured(3).toDouble(), UnitSystem::metric, system);
        const QString unit = isImperial ? degree + u'F' : isDifference ? QStringLiteral("K") : degree + u'C';
        return match.captured(2) + formatNumber(value, u"#0.#", locale) + noBreak + unit;
    });
}

}  // namespace marvello

#include "workspace/SearchTexts.h"

#include "controls/NumberText.h"
#include "inputs/InputTexts.h"
#include "workspace/UnitTexts.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr int maxNames = 2;

/// A few names, or how many there are.
QString namesOrCount(const std::vector<std::string>& names, const QString& counted) {
    if (std::ssize(names) > maxNames) return filled(counted, {QString::number(names.size())});
    QStringList list;
    for (const std::string& name : names) list += fromCore(name);
    return list.join(QStringLiteral(", "));
}

QString refrigerantsText(const SelectionInputs& inputs) {
    return namesOrCount(inputs.keys(Input::refrigerants),
                        dictionaryText(QStringLiteral("find.subject.refrigerants")));
}

QString seriesText(const SelectionInputs& inputs) {
    if (inputs.isNeutral(Input::allSeries)) return dictionaryText(QStringLiteral("find.subject.allseries"));
    return namesOrCount(inputs.keys(Input::allSeries), dictionaryText(QStringLiteral("find.subject.series")));
}

}  // namespace

QString searchSubject(const SelectionInputs& inputs) {
    return refrigerantsText(inputs) + QStringLiteral(" \u00B7 ") + seriesText(inputs);
}

QString percentText(double percent) {
    return (percent > 0 ? QStringLiteral("+") : QString()) + formatNumber(percent, u"#0.##") +
           QStringLiteral("\u00A0%");
}

QStringList searchTexts(const SelectionInputs& inputs) {
    const NumberMarks marks = marksOf(QLocale());
    const auto text = [&](Input input) { return fromCore(inputText(inputs, input, marks)); };
    const bool isDifference = inputs.quantity(Input::superheat) == Quantity::temperatureDifference;
    const auto entry = [&](const char* key, Input input) {
        return filled(dictionaryText(QLatin1String(key)), {withUnit(inputs, input)});
    };
    return {withUnit(inputs, Input::capacity),
            percentText(inputs.number(Input::toleranceBelow)) + QStringLiteral(" / ") +
                percentText(inputs.number(Input::toleranceAbove)),
            refrigerantsText(inputs),
            seriesText(inputs),
            text(Input::evaporatingDew) + QStringLiteral(" / ") + withUnit(inputs, Input::condensingDew),
            entry(isDifference ? "frmselection.summary.superheat" : "frmselection.summary.suction",
                  Input::superheat),
            entry("frmselection.summary.subcooling", Input::subcooling)};
}

}  // namespace marvello

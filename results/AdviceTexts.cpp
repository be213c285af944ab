#include "results/AdviceTexts.h"

#include <algorithm>

#include "data/DictionaryTexts.h"
#include "data/Numbers.h"
#include "engine/SelectionRules.h"
#include "results/ReportLines.h"

namespace marvello {

namespace {

std::string nameOf(AdvisedInput input, const clsProjectConditions& conditions) {
    switch (input) {
        case AdvisedInput::evaporating:
            return dictionaryText("report.ted.caption");
        case AdvisedInput::condensing:
            return dictionaryText("report.tcd.caption");
        case AdvisedInput::superheat:
            return dictionaryText(conditions.SuperHeatType == SuperheatKind::difference
                                      ? "frmselection.cmbsh.item0"
                                      : "frmselection.cmbsh.item1");
        case AdvisedInput::subcooling:
            return dictionaryText("report.liquidsubcooling.caption");
        case AdvisedInput::economizer:
            return dictionaryText("frmselection.cmbeco.captiontext") + " (" +
                   dictionaryText(conditions.EcoCalculateMode == EconomizerMode::approach
                                      ? "frmselection.cmbeco.item1"
                                      : "frmselection.cmbeco.item2") +
                   ")";
        case AdvisedInput::frequency:
            return dictionaryText("frmselection.txtfrequency.captiontext");
        case AdvisedInput::motorSize:
            return dictionaryText("report.motorsize.caption");
        case AdvisedInput::oilCoolingMode:
            return dictionaryText("frmselection.cmboilcooling.captiontext");
        case AdvisedInput::capacityStep:
            break;
    }
    return dictionaryText("report.stepcapacity.caption");
}

std::string choiceText(AdvisedInput input, double code) {
    switch (input) {
        case AdvisedInput::motorSize:
            return dictionaryText(code == codeOf(MotorChoice::small) ? "frmselection.cmbmotorsize.item0"
                                                                     : "frmselection.cmbmotorsize.item1");
        case AdvisedInput::oilCoolingMode:  // the only one that is advised
            return dictionaryText("frmselection.cmboilcooling.item1");
        default:
            return storedText(code) + '%';
    }
}

std::string textOf(const Advice& advice, const clsProjectConditions& conditions, UnitSystem units,
                   const NumberMarks& marks) {
    const std::string name = nameOf(advice.input, conditions);
    if (isChoice(advice.input)) return name + ": " + choiceText(advice.input, advice.value);
    const std::string value = withUnit(formatNumber(advice.value, "#0.0", marks),
                                       unitText(quantityOf(advice.input, conditions), units));
    if (!advice.isLasting) return name + ' ' + value;
    return dictionaryText(advice.change < 0 ? "messages.advice.lower" : "messages.advice.higher",
                          {name, value});
}

std::string stepOf(const Advice& advice, const clsProjectConditions& conditions, UnitSystem units,
                   const NumberMarks& marks) {
    if (isChoice(advice.input)) return {};
    const Quantity quantity = quantityOf(advice.input, conditions);
    const bool isTemperature = quantity == Quantity::temperature;
    return (advice.change > 0 ? "+" : "") +
           withUnit(formatNumber(advice.change, "#0.0#", marks),
                    unitText(isTemperature ? Quantity::temperatureDifference : quantity, units));
}

/// What becomes of the other messages that something can be done about.
std::string fateOfOthers(const std::vector<MessageAdvice>& all, const Advice& advice) {
    const auto others = all.size() - 1;
    if (others == 0) return {};
    const auto ended = static_cast<std::size_t>(std::ranges::count_if(all, [&](const MessageAdvice& other) {
        return std::ranges::find(advice.ends, other.message) != advice.ends.end();
    }));
    if (ended == 0)
        return dictionaryText(others == 1 ? "messages.advice.keepsother" : "messages.advice.keepsall");
    if (ended == others)
        return dictionaryText(others == 1 ? "messages.advice.endsother" : "messages.advice.endsall");
    return dictionaryText("messages.advice.endssome", {std::to_string(ended), std::to_string(others)});
}

/// The next lesser messages that come with it; those that come with any calculation are of no interest.
std::string broughtWith(const MessageId& message, const Advice& advice) {
    const Severity lesser = message.severity == Severity::error ? Severity::attention : Severity::information;
    std::string texts;
    for (const MessageId& brought : advice.brings)
        if (brought.severity == lesser && !isWhateverTheInputs(brought.key))
            texts += (texts.empty() ? "" : " ") + dictionaryText(brought.key);
    return texts.empty() ? texts : dictionaryText("messages.advice.brings", {texts});
}

}  // namespace

std::span<const Advice> shownOf(const std::vector<Advice>& advice) {
    constexpr std::size_t most = 3;
    return std::span(advice).first(std::min(advice.size(), most));
}

ShownAdvice shownAdvice(const std::vector<MessageAdvice>& all, const MessageId& message, const Advice& advice,
                        const clsProjectConditions& conditions, UnitSystem units, const NumberMarks& marks) {
    ShownAdvice shown{textOf(advice, conditions, units, marks), stepOf(advice, conditions, units, marks),
                      fateOfOthers(all, advice)};
    const std::string brought = broughtWith(message, advice);
    if (!brought.empty()) shown.effect += (shown.effect.empty() ? "" : "; ") + brought;
    return shown;
}

std::string noAdviceText() { return dictionaryText("messages.advice.none"); }

}  // namespace marvello

#include "engine/CondensingRule.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

#include "data/Numbers.h"
#include "data/Texts.h"
#include "engine/YearLimits.h"

namespace marvello {

namespace {

constexpr std::string_view outdoorWord = "outdoor";
constexpr std::string_view minimumWord = "min";
constexpr std::string_view scaledWord = "scaled";

[[noreturn]] void refuse(std::string_view part, const std::string& reason) {
    throw std::invalid_argument('"' + std::string(part) + "\" " + reason);
}

double numberIn(std::string_view text, std::string_view part, const YearLimit& range, const char* unit) {
    const auto value = storedNumber(text);
    if (!value) refuse(part, "is not part of a rule such as outdoor+12,min 25");
    if (!range.holds(*value))
        refuse(part, "is outside the range of " + storedText(range.minimum) + " to " +
                         storedText(range.maximum) + ' ' + unit);
    return *value;
}

double temperatureIn(std::string_view text, std::string_view part) {
    return numberIn(text, part, yearLimits::condensingTemperature, "degrees Celsius");
}

/// What follows "outdoor": a sign and a number, or nothing.
double differenceIn(std::string_view text, std::string_view part) {
    if (text.empty()) return 0;
    const char sign = text.front();
    const std::string_view digits = withoutBlanks(text.substr(1));
    const bool isSigned = !digits.empty() && (digits.front() == '-' || digits.front() == '+');
    if ((sign != '+' && sign != '-') || isSigned) refuse(part, "needs one sign after outdoor, as outdoor+12");
    const double value = numberIn(digits, part, yearLimits::condensingDifference, "K");
    return sign == '-' ? -value : value;
}

void readPart(CondensingRule& rule, std::string_view part) {
    const std::string word = lowered(part);
    const auto once = [&](bool isStated) {
        if (isStated) refuse(part, "is said twice");
    };
    if (word.starts_with(outdoorWord)) {
        once(rule.difference.has_value());
        rule.difference =
            differenceIn(withoutBlanks(std::string_view(word).substr(outdoorWord.size())), part);
    } else if (word.starts_with(minimumWord)) {
        once(rule.minimum.has_value());
        rule.minimum = temperatureIn(std::string_view(word).substr(minimumWord.size()), part);
    } else if (word == scaledWord) {
        once(rule.isScaled);
        rule.isScaled = true;
    } else {
        refuse(part, "is not part of a rule such as outdoor+12,min 25");
    }
}

}  // namespace

double CondensingRule::at(double outdoor, double load) const {
    constexpr double open = -std::numeric_limits<double>::infinity();
    const double following = difference ? outdoor + *difference * (isScaled ? load : 1) : open;
    return std::max(following, minimum.value_or(open));
}

CondensingRule condensingRuleOf(std::string_view text) {
    CondensingRule rule;
    const std::string whole = trimmed(text);
    if (storedNumber(whole)) {
        rule.minimum = temperatureIn(whole, whole);
        return rule;
    }
    for (const std::string& part : splitText(whole, ',')) readPart(rule, withoutBlanks(part));
    if (!rule.difference)
        refuse(whole, "does not say how far above the outdoor temperature, as outdoor+12,min 25");
    return rule;
}

std::string textOf(const CondensingRule& rule) {
    if (!rule.difference) return rule.minimum ? storedText(*rule.minimum) : std::string();
    std::string text(outdoorWord);
    if (*rule.difference >= 0) text += '+';
    text += storedText(*rule.difference);
    if (rule.isScaled) text += "," + std::string(scaledWord);
    if (rule.minimum) text += "," + std::string(minimumWord) + ' ' + storedText(*rule.minimum);
    return text;
}

}  // namespace marvello

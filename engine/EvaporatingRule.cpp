#include "engine/EvaporatingRule.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <stdexcept>

#include "data/Numbers.h"
#include "data/Texts.h"
#include "engine/YearLimits.h"

namespace marvello {

namespace {

[[noreturn]] void refuse(std::string_view part, const std::string& reason) {
    throw std::invalid_argument('"' + std::string(part) + "\" " + reason);
}

double temperatureIn(std::string_view text, std::string_view part, const YearLimit& limit) {
    const auto value = storedNumber(text);
    if (!value)
        refuse(part,
               "is not a temperature such as -10, or outdoor and evaporating ones such as -10:-8;30:-12");
    if (!limit.holds(*value))
        refuse(part, "is outside the range of " + storedText(limit.minimum) + " to " +
                         storedText(limit.maximum) + " degrees Celsius");
    return *value;
}

}  // namespace

double EvaporatingRule::at(double outdoor) const {
    const auto above = std::ranges::lower_bound(points, outdoor, {}, &Point::outdoor);
    if (above == points.begin()) return above->evaporating;
    const Point& below = *std::prev(above);
    if (above == points.end()) return below.evaporating;
    return std::lerp(below.evaporating, above->evaporating,
                     (outdoor - below.outdoor) / (above->outdoor - below.outdoor));
}

EvaporatingRule evaporatingRuleOf(std::string_view text) {
    constexpr YearLimit evaporating = yearLimits::evaporatingTemperature;
    EvaporatingRule rule;
    const std::vector<std::string> parts = splitText(trimmed(text), ';');
    if (parts.size() == 1 && parts.front().find(':') == std::string::npos)
        return {{{.outdoor = 0, .evaporating = temperatureIn(parts.front(), parts.front(), evaporating)}}};
    for (const std::string& part : parts) {
        const std::vector<std::string> pair = splitText(part, ':');
        if (pair.size() != 2) refuse(part, "is not an outdoor and an evaporating temperature such as -10:-8");
        rule.points.push_back({temperatureIn(pair[0], part, yearLimits::outdoorTemperature),
                               temperatureIn(pair[1], part, evaporating)});
    }
    std::ranges::stable_sort(rule.points, {}, &EvaporatingRule::Point::outdoor);
    const auto twice = std::ranges::adjacent_find(rule.points, {}, &EvaporatingRule::Point::outdoor);
    if (twice != rule.points.end())
        refuse(text, "has the outdoor temperature " + storedText(twice->outdoor) + " twice");
    return rule;
}

std::string textOf(const EvaporatingRule& rule) {
    if (rule.points.size() == 1) return storedText(rule.points.front().evaporating);
    std::string text;
    for (const EvaporatingRule::Point& point : rule.points)
        text += (text.empty() ? "" : ";") + storedText(point.outdoor) + ':' + storedText(point.evaporating);
    return text;
}

}  // namespace marvello

#include "engine/Degradation.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

#include "data/Numbers.h"
#include "data/Texts.h"
#include "engine/YearLimits.h"

namespace marvello {

namespace {

using Form = Degradation::Form;

constexpr std::array names{std::pair{Form::none, std::string_view("none")},
                           std::pair{Form::condensingUnit, std::string_view("condensing-unit")},
                           std::pair{Form::chiller, std::string_view("chiller")}};

[[noreturn]] void refuse(std::string_view text, const std::string& reason) {
    throw std::invalid_argument('"' + std::string(text) + "\" " + reason);
}

}  // namespace

Degradation degradationOf(std::string_view text) {
    const std::size_t colon = text.find(':');
    const std::string name = trimmed(text.substr(0, colon));
    const auto* const found =
        std::ranges::find_if(names, [&](const auto& each) { return equalIgnoringCase(each.second, name); });
    if (found == names.end()) refuse(name, "is not one of none, condensing-unit, chiller");
    Degradation degradation = usualDegradation(found->first);
    if (colon == std::string_view::npos) return degradation;
    if (degradation.form == Form::none)
        refuse(text, "has a coefficient, and without degradation there is none");
    const auto coefficient = storedNumber(trimmed(text.substr(colon + 1)));
    if (!coefficient || !yearLimits::degradation.holds(*coefficient))
        refuse(text, "needs a coefficient from 0 to 1, as condensing-unit:0.25");
    degradation.coefficient = *coefficient;
    return degradation;
}

std::string textOf(const Degradation& degradation) {
    const std::string name(
        std::ranges::find(names, degradation.form, [](const auto& each) { return each.first; })->second);
    return degradation.form == Form::none ? name : name + ':' + storedText(degradation.coefficient);
}

}  // namespace marvello

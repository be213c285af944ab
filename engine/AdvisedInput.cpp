#include "engine/AdvisedInput.h"

#include <array>
#include <type_traits>

#include "data/Arithmetic.h"

namespace marvello {

namespace {

using Conditions = clsProjectConditions;

struct Definition {
    std::string_view name;
    double (*value)(const Conditions& conditions);
    void (*set)(Conditions& conditions, double value);
};

/// The input that a member of the conditions holds, in metric units.
template <auto member>
constexpr Definition definition(std::string_view name) {
    using Value = std::remove_reference_t<decltype(Conditions().*member)>;
    return {name, [](const Conditions& conditions) { return static_cast<double>(conditions.*member); },
            [](Conditions& conditions, double value) {
                if constexpr (std::is_floating_point_v<Value>)
                    conditions.*member = static_cast<Value>(value);
                else
                    conditions.*member = static_cast<Value>(roundedToInteger(value));
            }};
}

/// In the order of AdvisedInput.
constexpr std::array definitions{definition<&Conditions::TEvaporatingDew>("ted"),
                                 definition<&Conditions::TCondensationDew>("tcd"),
                                 definition<&Conditions::SuperHeat>("sh"),
                                 definition<&Conditions::SubCooling>("sc"),
                                 definition<&Conditions::Eco>("eco"),
                                 definition<&Conditions::InverterFrequency>("frequency"),
                                 definition<&Conditions::MotorSize>("motor-size"),
                                 definition<&Conditions::OilCoolingCalculateMode>("oc-mode"),
                                 definition<&Conditions::StepCapacity>("step")};

const Definition& definitionOf(AdvisedInput input) { return definitions.at(static_cast<std::size_t>(input)); }

double converted(double value, AdvisedInput input, const Conditions& conditions, UnitSystem from,
                 UnitSystem to) {
    const UnitRule convert = conversionOf(quantityOf(input, conditions));
    return convert ? convert(value, from, to) : value;
}

}  // namespace

std::string_view nameOf(AdvisedInput input) { return definitionOf(input).name; }

bool isChoice(AdvisedInput input) { return input >= AdvisedInput::motorSize; }

Quantity quantityOf(AdvisedInput input, const Conditions& conditions) {
    switch (input) {
        case AdvisedInput::evaporating:
        case AdvisedInput::condensing:
            return Quantity::temperature;
        case AdvisedInput::superheat:
            return conditions.SuperHeatType == SuperheatKind::difference ? Quantity::temperatureDifference
                                                                         : Quantity::temperature;
        case AdvisedInput::subcooling:
            return Quantity::temperatureDifference;
        case AdvisedInput::economizer:
            return conditions.EcoCalculateMode == EconomizerMode::capacity ? Quantity::power
                                                                           : Quantity::temperatureDifference;
        case AdvisedInput::frequency:
            return Quantity::frequency;
        default:
            return Quantity::number;
    }
}

double inUnits(AdvisedInput input, double metric, const Conditions& conditions, UnitSystem units) {
    return converted(metric, input, conditions, UnitSystem::metric, units);
}

double valueOf(AdvisedInput input, const Conditions& conditions, UnitSystem units) {
    return inUnits(input, definitionOf(input).value(conditions), conditions, units);
}

Conditions withInput(Conditions conditions, AdvisedInput input, double value, UnitSystem units) {
    definitionOf(input).set(conditions, converted(value, input, conditions, units, UnitSystem::metric));
    return conditions;
}

}  // namespace marvello

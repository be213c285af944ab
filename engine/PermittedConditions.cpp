#include "engine/PermittedConditions.h"

namespace marvello {

namespace {

using Conditions = clsProjectConditions;

template <auto... members>
bool putBackMembers(Conditions& conditions, const Conditions& neutral) {
    const bool differs = ((conditions.*members != neutral.*members) || ...);
    ((conditions.*members = neutral.*members), ...);
    return differs;
}

struct Rule {
    Selector selector;
    bool (*putBack)(Conditions& conditions, const Conditions& neutral);
};

constexpr Rule rules[] = {
    {Selector::economizer, putBackMembers<&Conditions::EcoCalculateMode>},
    {Selector::stepCapacity, putBackMembers<&Conditions::StepCapacity>},
    {Selector::oilCooling, putBackMembers<&Conditions::OilCoolingCalculateMode>},
    {Selector::motorVoltage, putBackMembers<&Conditions::MotorVoltage, &Conditions::MotorHz>},
    {Selector::motorSize, putBackMembers<&Conditions::MotorSize>},
    {Selector::motorRpm, putBackMembers<&Conditions::MotorRPM>},
};

}  // namespace

bool permits(const PreparedCompressor& compressor, Selector selector) {
    return compressor.hasInvert ||
           allows(permittedSelectors(*compressor.traits, refrigerantTraits(compressor.Refrigerant)),
                  selector);
}

PermittedConditions permittedConditions(const PreparedCompressor& compressor, const Conditions& conditions) {
    PermittedConditions permitted{.conditions = conditions};
    const Conditions neutral = conditionsAt(conditions.TEvaporatingDew, conditions.TCondensationDew);
    for (const auto& [selector, putBack] : rules)
        if (!permits(compressor, selector) && putBack(permitted.conditions, neutral))
            permitted.putBack |= static_cast<unsigned>(selector);
    return permitted;
}

}  // namespace marvello

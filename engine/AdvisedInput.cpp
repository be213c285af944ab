#include "engine/AdvisedInput.h"

#include "data/Arithmetic.h"

namespace marvello {

namespace {

double metricValueOf(AdvisedInput input, const clsProjectConditions& conditions) {
    switch (input) {
        case AdvisedInput::evaporating:
            return conditions.TEvaporatingDew;
        case AdvisedInput::condensing:
            return conditions.TCondensationDew;
        case AdvisedInput::superheat:
            return conditions.SuperHeat;
        case AdvisedInput::subcooling:
            return conditions.SubCooling;
        case AdvisedInput::economizer:
            return conditions.Eco;
        case AdvisedInput::frequency:
            return static_cast<double>(conditions.InverterFrequency);
        case AdvisedInput::motorSize:
            return codeOf(conditions.MotorSize);
        case AdvisedInput::oilCoolingMode:
            return codeOf(conditions.OilCoolingCalculateMode);
        case AdvisedInput::capacityStep:
            break;
    }
    return conditions.StepCapacity;
}

double converted(double value, AdvisedInput input, const clsProjectConditions& conditions, UnitSystem from,
                 UnitSystem to) {
    const UnitRule convert = conversionOf(quantityOf(input, conditions));
    return convert ? convert(value, from, to) : value;
}

}  // namespace

std::string_view nameOf(AdvisedInput input) {
    switch (input) {
        case AdvisedInput::evaporating:
            return "ted";
        case AdvisedInput::condensing:
            return "tcd";
        case AdvisedInput::superheat:
            return "sh";
        case AdvisedInput::subcooling:
            return "sc";
        case AdvisedInput::economizer:
            return "eco";
        case AdvisedInput::frequency:
            return "frequency";
        case AdvisedInput::motorSize:
            return "motor-size";
        case AdvisedInput::oilCoolingMode:
            return "oc-mode";
        case AdvisedInput::capacityStep:
            break;
    }
    return "step";
}

bool isChoice(AdvisedInput input) { return input >= AdvisedInput::motorSize; }

Quantity quantityOf(AdvisedInput input, const clsProjectConditions& conditions) {
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

double valueOf(AdvisedInput input, const clsProjectConditions& conditions, UnitSystem units) {
    return converted(metricValueOf(input, conditions), input, conditions, UnitSystem::metric, units);
}

clsProjectConditions withInput(clsProjectConditions conditions, AdvisedInput input, double value,
                               UnitSystem units) {
    const double metric = converted(value, input, conditions, units, UnitSystem::metric);
    switch (input) {
        case AdvisedInput::evaporating:
            conditions.TEvaporatingDew = metric;
            break;
        case AdvisedInput::condensing:
            conditions.TCondensationDew = metric;
            break;
        case AdvisedInput::superheat:
            conditions.SuperHeat = metric;
            break;
        case AdvisedInput::subcooling:
            conditions.SubCooling = metric;
            break;
        case AdvisedInput::economizer:
            conditions.Eco = metric;
            break;
        case AdvisedInput::frequency:
            conditions.InverterFrequency = static_cast<float>(metric);
            break;
        case AdvisedInput::motorSize:
            conditions.MotorSize = static_cast<MotorChoice>(roundedToInteger(metric));
            break;
        case AdvisedInput::oilCoolingMode:
            conditions.OilCoolingCalculateMode = static_cast<OilCoolingMode>(roundedToInteger(metric));
            break;
        case AdvisedInput::capacityStep:
            conditions.StepCapacity = roundedToInteger(metric);
            break;
    }
    return conditions;
}

}  // namespace marvello

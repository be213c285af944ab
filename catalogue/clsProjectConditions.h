#pragma once

#include <array>

#include "catalogue/Modes.h"

namespace marvello {

/// The capacity steps that can be asked for, in percent.
inline constexpr std::array capacitySteps{100, 75, 50, 25};

/// What the user asked for: one operating point and the options of the calculation, in metric units. A plain
/// record; the range of its values is a matter of the selection rules.
struct clsProjectConditions {
    double TEvaporatingDew = 0;   ///< Evaporating temperature on the dew line, degrees Celsius.
    double TCondensationDew = 0;  ///< Condensing temperature on the dew line, degrees Celsius.
    double SubCooling = 0;        ///< Liquid subcooling, K.
    double SuperHeat = 0;         ///< Superheat in K, or suction gas temperature in degrees Celsius.
    int StepCapacity = 0;         ///< Capacity step in percent: 100, 75, 50 or 25.
    SuperheatKind SuperHeatType{};
    MotorChoice MotorSize{};  ///< Of a compressor with two motors.
    double MotorVoltage = 0;  ///< Supply voltage, V.
    int MotorHz = 0;          ///< Supply frequency, 50 or 60 Hz.
    int MotorRPM = 0;         ///< Motor speed, 1/min.
    double Eco = 0;           ///< Economizer value: K for an approach, kW for a capacity.
    EconomizerMode EcoCalculateMode{};
    double OilCooling = 0;  ///< Limit of the discharge temperature, degrees Celsius.
    OilCoolingMode OilCoolingCalculateMode{};
    float InverterFrequency = 0;  ///< Inverter output frequency, Hz.

    bool operator==(const clsProjectConditions&) const = default;
};

/// The operating point at these dew temperatures, in degrees Celsius, with what a new form offers for the
/// rest.
constexpr clsProjectConditions conditionsAt(double evaporating, double condensing) {
    return {.TEvaporatingDew = evaporating,
            .TCondensationDew = condensing,
            .SubCooling = 5,
            .SuperHeat = 10,
            .StepCapacity = 100,
            .MotorSize = MotorChoice::standard,
            .MotorVoltage = 400,
            .MotorHz = 50,
            .MotorRPM = 1450,
            .Eco = 10,
            .OilCooling = 110,
            .OilCoolingCalculateMode = OilCoolingMode::catalogueLimit,
            .InverterFrequency = 50};
}

}  // namespace marvello

#pragma once

#include "demo/generate/Fluid.h"

namespace marvello::generate {

/// The reference conditions of the catalogue's surfaces, in K.
inline constexpr double referenceSuperheat = 10;
inline constexpr double referenceSubcooling = 5;

inline constexpr double nominalSpeed = 2900;  ///< rpm, at which displacements are told

/// A twin-screw compressor by the figures its losses are built from. With a suction-gas cooled motor the
/// power is what the motor absorbs; without one (open drive) it is that of the shaft.
struct ScrewMachine {
    double displacement = 0;        ///< m^3/h at 2900 rpm
    double lowestRatio = 0;         ///< built-in volume ratio: volume at closing over volume at opening
    double highestRatio = 0;        ///< above the lowest where a slide adapts it to the pressures
    double fillingLoss = 0;         ///< share of the displacement lost to throttling and heating at suction
    double ratioLeakage = 0;        ///< share lost for each unit of the pressure ratio above 1
    double pressureLeakage = 0;     ///< share lost for each MPa of pressure difference
    double internalEfficiency = 0;  ///< of the compression, by friction of the gas and throttling
    double frictionPressure = 0;    ///< kPa: friction power over displaced volume flow
    double motorPower = 0;          ///< kW absorbed at the motor's rating; 0 without motor
    double inverterLoss = 0;        ///< share of the motor's power that the inverter adds
};

/// The states of the ideal cycle at one point, which are the same for every machine: kPa, kg/m^3, kJ/kg,
/// kJ/(kg K).
struct CyclePoint {
    double evaporating = 0;  ///< dew temperature, degC
    double condensing = 0;   ///< dew temperature, degC
    double low = 0;
    double high = 0;
    double density = 0;  ///< of the gas at suction, reference superheat
    double gas = 0;      ///< its enthalpy
    double entropy = 0;
    double liquid = 0;  ///< enthalpy at reference subcooling below the bubble point
    double isentropicEnd = 0;
    double endDensity = 0;

    double ratio() const { return high / low; }
};

/// Throws std::runtime_error where the refrigerant has no such states.
CyclePoint cycleAt(const Fluid& fluid, double evaporating, double condensing);

/// What the compressor does at one point.
struct Performance {
    double capacity = 0;              ///< kW
    double power = 0;                 ///< kW absorbed
    double shaftPower = 0;            ///< kW
    double dischargeEnthalpy = 0;     ///< kJ/kg, without oil cooling
    double dischargeTemperature = 0;  ///< degC, likewise
    double massFlow = 0;              ///< kg/h
    double pressureRatio = 0;
    double isentropicEfficiency = 0;  ///< ideal power of the flow delivered over the power input
};

/// Work in kJ/kg of a machine without leakage and friction whose built-in volume ratio lies between two
/// bounds.
///
/// Compression runs isentropically to the built-in volume ratio and then at constant volume to the condensing
/// pressure, which is how over- and under-compression cost (see Stosic, Smith, Kovacevic: Screw Compressors,
/// Springer 2005). Between the bounds the ratio is the one that reaches the condensing pressure.
double specificWork(const CyclePoint& point, const Fluid& fluid, double lowestRatio, double highestRatio);

/// The compressor at full load with the work of its built-in ratio; `speed` 1 is 2900 rpm. Gaps pass the same
/// flow at any speed, so that leakage weighs less the faster the machine turns; half of what leaks is
/// compressed again. The discharge temperature is left out.
Performance fullLoad(const ScrewMachine& machine, const CyclePoint& point, double work, double speed = 1);

/// The same with everything found on the way and the discharge temperature; evaporating and condensing dew
/// temperature in degC.
Performance fullLoad(const ScrewMachine& machine, const Fluid& fluid, double evaporating, double condensing,
                     double speed = 1);

/// Power input in kW of a motor that drives a shaft: a share of its rating is lost always, another grows
/// with the square of the load.
double motorInput(double shaftPower, double rating);

/// The same compressor with its slide valve at `step` (0 to 1]. Friction and the idle losses of the motor
/// stay, and the more so the higher the pressure ratio.
Performance partLoad(const Performance& full, double step);

}  // namespace marvello::generate

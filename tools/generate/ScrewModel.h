#pragma once

#include "tools/generate/Fluid.h"

namespace marvello::generate {

/// The reference conditions of the catalogue's surfaces, in K.
inline constexpr double referenceSuperheat = 10;
inline constexpr double referenceSubcooling = 5;

/// A twin-screw compressor with suction-gas cooled motor, by the figures its losses are built from.
struct ScrewMachine {
    double displacement = 0;        ///< m^3/h at 50 Hz (2900 rpm)
    double builtInRatio = 0;        ///< volume at closing over volume at opening
    double fillingLoss = 0;         ///< share of the displacement lost to throttling and heating at suction
    double ratioLeakage = 0;        ///< share lost for each unit of the pressure ratio above 1
    double pressureLeakage = 0;     ///< share lost for each MPa of pressure difference
    double internalEfficiency = 0;  ///< of the compression, leakage and throttling included
    double frictionPressure = 0;    ///< kPa: friction power over displaced volume flow
    double motorPower = 0;          ///< kW absorbed at the motor's rating
};

/// What the compressor does at one point.
struct Performance {
    double capacity = 0;              ///< kW
    double power = 0;                 ///< kW absorbed by the motor
    double dischargeTemperature = 0;  ///< degC, without oil cooling
    double massFlow = 0;              ///< kg/h
    double pressureRatio = 0;
};

/// The compressor at full load, evaporating and condensing dew temperatures in degC, reference superheat and
/// subcooling.
///
/// Compression runs isentropically to the built-in volume ratio and then at constant volume to the condensing
/// pressure, which is how over- and under-compression cost (see Stosic, Smith, Kovacevic: Screw Compressors,
/// Springer 2005).
Performance fullLoad(const ScrewMachine& machine, const Fluid& fluid, double evaporating, double condensing);

/// The same compressor with its slide valve at `step` (0 to 1]. Friction and the idle losses of the motor
/// stay, and the more so the higher the pressure ratio.
Performance partLoad(const Performance& full, double step);

}  // namespace marvello::generate

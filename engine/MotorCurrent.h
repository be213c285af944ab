#pragma once

#include "catalogue/clsMotor.h"
#include "catalogue/clsVariables.h"

namespace marvello {

/// The voltage in V that a motor's currents are stated at, for a supply frequency in Hz.
double referenceVoltage(double hertz);

/// Writes the variable `current` in A: that of a motor that takes up the power of the variable `power` in
/// kW, at the supply of `Fm` and `Vm`. A step that fails is passed over and leaves its value 0; with `Vm` 0
/// nothing is written.
void writeMotorCurrent(clsVariables& variables, const clsMotor& motor, var power, var current);

}  // namespace marvello

#pragma once

#include "catalogue/clsMotor.h"
#include "data/Arithmetic.h"
#include "engine/Statements.h"

namespace marvello {

/// The voltage in V that a motor's currents are stated at, for a supply frequency in Hz: the mains for which
/// the motors of the catalogue are rated, 400 V at 50 Hz and 460 V at 60 Hz.
inline double referenceVoltage(double hertz) { return hertz == 50 ? 400 : 460; }

/// Writes the variable `current` in A: that of a motor that takes up the power of the variable `power` in
/// kW, at the supply of `Fm` and `Vm`. A step that fails is passed over and leaves its value 0; with `Vm` 0
/// nothing is written.
template <class Tracing>
void writeMotorCurrent(const Tracing& tracing, typename Tracing::Variables v, const clsMotor& motor,
                       var power, var current) {
    using Number = typename Tracing::Number;
    Number at50Hertz = 0;
    Number atReferenceVoltage = 0;
    attemptSilently([&] { at50Hertz = checked(v[power] * checked(50 / v[var::Fm])); });
    attemptSilently([&] { atReferenceVoltage = checked(tracing.motorCurrent(motor, at50Hertz)); });
    attemptSilently([&] {
        const Number reference = tracing.named("Vref", referenceVoltage(valueOf(v[var::Fm])));
        const Number scale = checked(reference / v[var::Vm]);
        v.set(current, atReferenceVoltage * scale);
    });
}

}  // namespace marvello

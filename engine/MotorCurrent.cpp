#include "engine/MotorCurrent.h"

#include "data/Arithmetic.h"
#include "engine/Statements.h"

namespace marvello {

// The mains for which the motors of the catalogue are rated: 400 V at 50 Hz and 460 V at 60 Hz.
double referenceVoltage(double hertz) { return hertz == 50 ? 400 : 460; }

void writeMotorCurrent(clsVariables& variables, const clsMotor& motor, var power, var current) {
    double at50Hertz = 0;
    double atReferenceVoltage = 0;
    Statements::attemptSilently(
        [&] { at50Hertz = checked(variables[power] * checked(50 / variables[var::Fm])); });
    Statements::attemptSilently([&] { atReferenceVoltage = checked(motor.current(at50Hertz)); });
    Statements::attemptSilently([&] {
        const double scale = checked(referenceVoltage(variables[var::Fm]) / variables[var::Vm]);
        variables.set(current, atReferenceVoltage * scale);
    });
}

}  // namespace marvello

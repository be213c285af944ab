#include "engine/MotorCurrent.h"

#include "data/Arithmetic.h"
#include "engine/Statements.h"

namespace marvello {

double referenceVoltage(double hertz) { return hertz == 50 ? 400 : 460; }

void writeMotorCurrent(clsVariables& variables, const clsMotor& motor, const std::string& power,
                       const std::string& name) {
    double at50Hertz = 0;
    double atReferenceVoltage = 0;
    Statements::attemptSilently(
        [&] { at50Hertz = checked(variables(power) * checked(50 / variables("Fm"))); });
    Statements::attemptSilently([&] { atReferenceVoltage = checked(motor.current(at50Hertz)); });
    Statements::attemptSilently([&] {
        const double scale = checked(referenceVoltage(variables("Fm")) / variables("Vm"));
        variables.add(name, atReferenceVoltage * scale, "", "A");
    });
}

}  // namespace marvello

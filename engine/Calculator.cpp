#include "engine/Calculator.h"

#include "data/Arithmetic.h"
#include "engine/CompressorCalculation.h"

namespace marvello {

CompressorChoice choiceOf(const clsProjectConditions& conditions) {
    if (conditions.StepCapacity < 0 || conditions.StepCapacity > 255)
        throw ArithmeticFault("The capacity step is out of range.");
    return {.TEvaporatingDew = conditions.TEvaporatingDew,
            .TCondensationDew = conditions.TCondensationDew,
            .InverterFrequency = conditions.InverterFrequency,
            .motorHz = conditions.MotorHz,
            .motorRpm = conditions.MotorRPM,
            .motorSize = conditions.MotorSize,
            .economized = conditions.EcoCalculateMode != EconomizerMode::none,
            .stepCapacity = static_cast<std::uint8_t>(conditions.StepCapacity)};
}

const clsCompressor& Calculator::calculate(const PreparedCompressor& compressor,
                                           const clsProjectConditions& conditions) {
    calculate(compressor, conditions, compressor_);
    return compressor_;
}

void Calculator::calculate(const PreparedCompressor& compressor, const clsProjectConditions& conditions,
                           clsCompressor& result) {
    compressor.load(result, choiceOf(conditions));
    result.Motor.Voltage = roundedToInteger(conditions.MotorVoltage);
    CompressorCalculation<Untraced>(result, refprop(compressor.Refrigerant), conditions, timeout_).run();
}

clsRefprop& Calculator::refprop(const std::string& refrigerant) {
    refprop_ = SharedRefprop(refrigerant);
    return *refprop_;
}

}  // namespace marvello

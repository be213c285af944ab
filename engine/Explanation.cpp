#include "engine/Explanation.h"

#include "data/Arithmetic.h"
#include "engine/Calculator.h"
#include "engine/CompressorCalculation.h"

namespace marvello {

Explanation explain(const PreparedCompressor& compressor, const clsProjectConditions& conditions) {
    const auto refprop = SharedRefprop(compressor.Refrigerant);
    auto calculated = std::make_unique<clsCompressor>();
    compressor.load(*calculated, choiceOf(conditions));
    calculated->Motor.Voltage = roundedToInteger(conditions.MotorVoltage);
    Trace trace;
    formTimeout timeout;
    CompressorCalculation<Tracer>(*calculated, *refprop, conditions, timeout, Tracer(trace)).run();
    return {std::move(calculated), std::move(trace)};
}

}  // namespace marvello

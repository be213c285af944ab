#include "data/Constants.h"
#include "engine/CompressorCalculation.h"

namespace marvello {

template <class Tracing>
void CompressorCalculation<Tracing>::CalculateOilCooling() {
    if (v_[var::T21] <= 0) {
        statements_.set(var::Pra, 0.0);
        return;
    }
    statements_.set(var::H2Rif, states_.enthalpy(v_[var::OC], v_[var::Pc]));
    statements_.set(var::Pra, v_[var::Mbase] * (v_[var::H21] - v_[var::H2Rif]) / secondsPerHour);
    if (v_[var::T21] < v_[var::OC]) statements_.set(var::Pra, 0.0);
}

template void CompressorCalculation<Untraced>::CalculateOilCooling();
template void CompressorCalculation<Tracer>::CalculateOilCooling();

}  // namespace marvello

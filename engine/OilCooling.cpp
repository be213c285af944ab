#include "engine/CompressorCalculation.h"
#include "engine/Units.h"

namespace marvello {

void CalculateOilCooling(clsCompressor& compressor, clsRefprop& refprop) {
    clsVariables& v = compressor.Variables;
    const auto writeLoad = [&v](double load) { v.set(var::Pra, load); };
    if (v[var::T21] <= 0) {
        writeLoad(0);
        return;
    }
    v.set(var::H2Rif, refprop.Enthalpy(v[var::OC], property::temperature, v[var::Pc], property::pressure));
    writeLoad(v[var::Mbase] * (v[var::H21] - v[var::H2Rif]) / secondsPerHour);
    if (v[var::T21] < v[var::OC]) writeLoad(0);
}

}  // namespace marvello

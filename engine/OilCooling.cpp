#include "engine/CompressorCalculation.h"
#include "engine/Units.h"

namespace marvello {

void CalculateOilCooling(clsCompressor& compressor, clsRefprop& refprop) {
    clsVariables& v = compressor.Variables;
    const auto writeLoad = [&v](double load) { v.Item("Pra").setValue(load); };
    if (v("T21") <= 0) {
        writeLoad(0);
        return;
    }
    v.add("H2Rif", refprop.Enthalpy(v("OC"), property::temperature, v("Pc"), property::pressure));
    writeLoad(v("MBase") * (v("H21") - v("H2Rif")) / secondsPerHour);
    if (v("T21") < v("OC")) writeLoad(0);
}

}  // namespace marvello

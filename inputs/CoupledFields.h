#pragma once

#include <string>
#include <string_view>

#include "catalogue/clsPolynomial.h"
#include "thermo/clsRefprop.h"

namespace marvello {

/// The temperatures and pressures of a form that hang together, in the units of the property service.
struct CoupledFields {
    double TED = 0;  ///< evaporating dew temperature
    double TEM = 0;  ///< evaporating mid temperature
    double PE = 0;   ///< evaporating pressure
    double TCD = 0;  ///< condensing dew temperature
    double TCM = 0;  ///< condensing mid temperature
    double PC = 0;   ///< condensing pressure
    double SC = 0;   ///< liquid subcooling
};

/// Works the other values out from the one that led: "ted", "tcd", "pe", "pc", "tcm" or "tem", in any case.
/// `midEvaporating` and `midCondensing` lead from a mid temperature back to the dew temperature.
/// Throws what the property service throws.
void SyncTemperatureFields(std::string_view leader, CoupledFields& fields, const std::string& refrigerant,
                           clsRefprop& refprop, const clsPolynomial& midEvaporating,
                           const clsPolynomial& midCondensing);

}  // namespace marvello

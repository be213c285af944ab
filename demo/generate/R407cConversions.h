#pragma once

#include "demo/generate/Fluid.h"
#include "tools/surface/Surface.h"

namespace marvello::generate {

/// A conversion of a mean into a dew temperature of R407C, as the selection forms evaluate it.
struct Conversion {
    const char* name = "";        ///< row of tPolynomials
    Coefficients coefficients{};  ///< of x the mid temperature in degC, y the liquid's enthalpy in kJ/kg
    std::size_t states = 0;
    FitError error;  ///< K
};

/// Condensing: the dew temperature from the mean of bubble and dew temperature, dew 5 to 70 degC. The form
/// uses the terms 1, x, x^2 and x^3.
Conversion condensingConversion(const Fluid& r407c);

/// Evaporating: the dew temperature from the mean of the temperatures at the evaporator's inlet, which the
/// liquid of enthalpy y reaches by throttling, and at its dew point: dew -45 to 20 degC, liquid from 0 degC
/// to 65 degC.
Conversion evaporatingConversion(const Fluid& r407c);

}  // namespace marvello::generate

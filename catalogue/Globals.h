#pragma once

#include <string>

#include "catalogue/clsPolynomial.h"

namespace marvello {

/// The surfaces of the current session that turn a mid temperature of R407C into a dew temperature:
/// evaporating side over the mean temperature in degrees Celsius and the liquid's enthalpy in kJ/kg,
/// condensing side over the mean temperature alone. All zero until they are loaded.
clsPolynomial& gPolynomialTEM();
clsPolynomial& gPolynomialTCM();

/// Reads both from gDatabase(). A missing row leaves its surface zero. Throws DatabaseError.
void loadSharedPolynomials();

/// Goes on with the file of the catalogue as it is now, and reads both again if it is another one. Throws
/// DatabaseError.
void followCatalogue();

/// Opens gDatabase(), on the catalogue of the application folder if nothing else is said, and reads both.
/// Throws DatabaseError.
void openCatalogue(const std::string& connectionString = {});

}  // namespace marvello

#include "catalogue/Globals.h"

#include <string>
#include <string_view>

#include "catalogue/Coefficients.h"
#include "catalogue/SeriesTraits.h"
#include "data/Globals.h"

namespace marvello {

namespace {

void load(clsPolynomial& surface, std::string_view id, const std::string& name) {
    const RecordSet row = gDatabase().Execute("Select * from tPolynomials where fPolynomialID='" +
                                              std::string(id) + "' and fType=4");
    if (row.eof()) return;
    surface.Name = name;
    readCoefficients(row, surface.c);
}

}  // namespace

clsPolynomial& gPolynomialTEM() {
    static clsPolynomial surface;
    return surface;
}

clsPolynomial& gPolynomialTCM() {
    static clsPolynomial surface;
    return surface;
}

void loadSharedPolynomials() {
    for (const RefrigerantTraits& traits : allRefrigerantTraits()) {
        if (!traits.hasMidTemperatures()) continue;
        load(gPolynomialTEM(), traits.evaporatingMidSurface, "Polynomial TEM");
        load(gPolynomialTCM(), traits.condensingMidSurface, "Polynomial TCM");
    }
}

}  // namespace marvello

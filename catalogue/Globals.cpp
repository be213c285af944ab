#include "catalogue/Globals.h"

#include <string>

#include "catalogue/Coefficients.h"
#include "data/Globals.h"

namespace marvello {

namespace {

void load(clsPolynomial& surface, const std::string& id, const std::string& name) {
    const RecordSet row =
        gDatabase().Execute("Select * from tPolynomials where fPolynomialID='" + id + "' and fType=4");
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
    load(gPolynomialTEM(), "R407CTEM", "Polynomial TEM");
    load(gPolynomialTCM(), "R407CTCM", "Polynomial TCM");
}

}  // namespace marvello

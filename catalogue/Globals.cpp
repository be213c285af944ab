#include "catalogue/Globals.h"

#include <string>

#include "data/Globals.h"

namespace marvello {

namespace {

void load(clsPolynomial& surface, const std::string& id, const std::string& name) {
    const RecordSet row =
        gDatabase().Execute("Select * from tPolynomials where fPolynomialID='" + id + "' and fType=4");
    if (row.eof()) return;
    surface.Name = name;
    for (std::size_t i = 0; i < surface.c.size(); ++i)
        surface.c[i] = row.number("fC" + std::to_string(i + 1));
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

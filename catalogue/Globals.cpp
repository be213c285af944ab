#include "catalogue/Globals.h"

#include <string_view>

#include "catalogue/Coefficients.h"
#include "catalogue/SeriesTraits.h"
#include "data/Session.h"

namespace marvello {

namespace {

struct SharedSurfaces {
    clsPolynomial evaporating, condensing;
    long long opening = 0;  ///< Of the file that they are of.
};

void load(clsPolynomial& surface, std::string_view id, const std::string& name) {
    const RecordSet row = gDatabase().Execute("Select * from tPolynomials where fPolynomialID='" +
                                              std::string(id) + "' and fType=4");
    if (row.eof()) return;
    surface.Name = name;
    readCoefficients(row, surface.c);
}

}  // namespace

clsPolynomial& gPolynomialTEM() { return Session::current().part<SharedSurfaces>().evaporating; }

clsPolynomial& gPolynomialTCM() { return Session::current().part<SharedSurfaces>().condensing; }

void openCatalogue(const std::string& connectionString) {
    gDatabase().Connect(connectionString.empty()
                            ? "Data Source=" + Session::current().applicationFolder + "/db.mdb"
                            : connectionString);
    loadSharedPolynomials();
}

void followCatalogue() {
    gDatabase().followFile();
    if (Session::current().part<SharedSurfaces>().opening != gDatabase().openings()) loadSharedPolynomials();
}

void loadSharedPolynomials() {
    Session::current().part<SharedSurfaces>() = {{}, {}, gDatabase().openings()};
    for (const RefrigerantTraits& traits : allRefrigerantTraits()) {
        if (!traits.hasMidTemperatures()) continue;
        load(gPolynomialTEM(), traits.evaporatingMidSurface, "Polynomial TEM");
        load(gPolynomialTCM(), traits.condensingMidSurface, "Polynomial TCM");
    }
}

}  // namespace marvello

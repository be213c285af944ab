#include "inputs/CoupledFields.h"

#include "catalogue/SeriesTraits.h"
#include "data/Texts.h"
#include "thermo/States.h"

namespace marvello {

namespace {

class Coupling {
  public:
    Coupling(CoupledFields& fields, const std::string& refrigerant, clsRefprop& refprop)
        : f_(fields),
          states_(refprop),
          hasMidTemperatures_(refrigerantTraits(refrigerant).hasMidTemperatures()) {}

    void fromEvaporatingDew() {
        f_.PE = states_.dewPressure(f_.TED);
        evaporatingMid();
    }
    void fromEvaporatingPressure() {
        f_.TED = states_.dewTemperature(f_.PE);
        evaporatingMid();
    }
    void fromCondensingDew() {
        f_.PC = states_.dewPressure(f_.TCD);
        condensingMid();
    }
    void fromCondensingPressure() {
        f_.TCD = states_.dewTemperature(f_.PC);
        condensingMid();
    }
    void fromCondensingMid(const clsPolynomial& surface) {
        const auto& c = surface.c;
        const double m = f_.TCM;
        f_.TCD = c[0] + c[1] * m + c[3] * m * m + c[6] * m * m * m;
        f_.PC = states_.dewPressure(f_.TCD);
    }
    void fromEvaporatingMid(const clsPolynomial& surface) {
        const double pressure = states_.dewPressure(f_.TCD);
        f_.TED = surface.at(f_.TEM, liquidEnthalpy(pressure));
        f_.PE = states_.dewPressure(f_.TED);
    }

  private:
    double liquidEnthalpy(double pressure) {
        return states_.enthalpy(states_.bubbleTemperature(pressure) - f_.SC, pressure);
    }

    void evaporatingMid() {
        if (hasMidTemperatures_) {
            const double inlet = states_.temperatureAtEnthalpy(f_.PE, liquidEnthalpy(f_.PC));
            f_.TEM = (f_.TED + inlet) / 2;
        } else {
            // The subcooling is taken off on purpose, for a fluid without glide too.
            f_.TEM = (f_.TED + states_.bubbleTemperature(f_.PE) - f_.SC) / 2;
        }
    }
    void condensingMid() { f_.TCM = (f_.TCD + states_.bubbleTemperature(f_.PC)) / 2; }

    CoupledFields& f_;
    States states_;
    bool hasMidTemperatures_;
};

}  // namespace

void SyncTemperatureFields(std::string_view leader, CoupledFields& fields, const std::string& refrigerant,
                           clsRefprop& refprop, const clsPolynomial& midEvaporating,
                           const clsPolynomial& midCondensing) {
    Coupling coupling(fields, refrigerant, refprop);
    const std::string name = lowered(leader);
    if (name == "ted") coupling.fromEvaporatingDew();
    if (name == "pe") coupling.fromEvaporatingPressure();
    if (name == "tcd") coupling.fromCondensingDew();
    if (name == "pc") coupling.fromCondensingPressure();
    if (name == "tcm") coupling.fromCondensingMid(midCondensing);
    if (name == "tem") coupling.fromEvaporatingMid(midEvaporating);
}

}  // namespace marvello

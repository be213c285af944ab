#include "workspace/CoupledFields.h"

#include "data/Texts.h"

namespace marvello {

namespace {

constexpr int bubble = 1;
constexpr int dew = 2;
constexpr int temperatureCode = 0;
constexpr int pressureCode = 1;
constexpr int enthalpyCode = 3;

class Coupling {
  public:
    Coupling(CoupledFields& fields, const std::string& refrigerant, clsRefprop& refprop)
        : f_(fields), refprop_(refprop), hasGlide_(uppered(refrigerant) == "R407C") {}

    void fromEvaporatingDew() {
        f_.PE = refprop_.Pressure(f_.TED, dew);
        evaporatingMid();
    }
    void fromEvaporatingPressure() {
        f_.TED = saturation(f_.PE, dew);
        evaporatingMid();
    }
    void fromCondensingDew() {
        f_.PC = refprop_.Pressure(f_.TCD, dew);
        condensingMid();
    }
    void fromCondensingPressure() {
        f_.TCD = saturation(f_.PC, dew);
        condensingMid();
    }
    void fromCondensingMid(const clsPolynomial& surface) {
        const auto& c = surface.c;
        const double m = f_.TCM;
        f_.TCD = c[0] + c[1] * m + c[3] * m * m + c[6] * m * m * m;
        f_.PC = refprop_.Pressure(f_.TCD, dew);
    }
    void fromEvaporatingMid(const clsPolynomial& surface) {
        const double pressure = refprop_.Pressure(f_.TCD, dew);
        f_.TED = surface.at(f_.TEM, liquidEnthalpy(pressure));
        f_.PE = refprop_.Pressure(f_.TED, dew);
    }

  private:
    double saturation(double pressure, int side) {
        return refprop_.Temperature(pressure, pressureCode, side, 0, -1);
    }

    double liquidEnthalpy(double pressure) {
        return refprop_.Enthalpy(saturation(pressure, bubble) - f_.SC, temperatureCode, pressure,
                                 pressureCode);
    }

    void evaporatingMid() {
        if (hasGlide_) {
            const double inlet =
                refprop_.Temperature(liquidEnthalpy(f_.PC), enthalpyCode, dew, f_.PE, pressureCode);
            f_.TEM = (f_.TED + inlet) / 2;
        } else {
            // The subcooling is taken off on purpose, for a fluid without glide too.
            f_.TEM = (f_.TED + saturation(f_.PE, bubble) - f_.SC) / 2;
        }
    }
    void condensingMid() { f_.TCM = (f_.TCD + saturation(f_.PC, bubble)) / 2; }

    CoupledFields& f_;
    clsRefprop& refprop_;
    bool hasGlide_;
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

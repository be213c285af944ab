#include "workspace/CoupledFields.h"

#include "data/Texts.h"

namespace marvello {

namespace {

class Coupling {
  public:
    Coupling(CoupledFields& fields, const std::string& refrigerant, clsRefprop& refprop)
        : f_(fields), refprop_(refprop), hasGlide_(uppered(refrigerant) == "R407C") {}

    void fromEvaporatingDew() {
        f_.PE = refprop_.Pressure(f_.TED, saturation::dew);
        evaporatingMid();
    }
    void fromEvaporatingPressure() {
        f_.TED = saturationTemperature(f_.PE, saturation::dew);
        evaporatingMid();
    }
    void fromCondensingDew() {
        f_.PC = refprop_.Pressure(f_.TCD, saturation::dew);
        condensingMid();
    }
    void fromCondensingPressure() {
        f_.TCD = saturationTemperature(f_.PC, saturation::dew);
        condensingMid();
    }
    void fromCondensingMid(const clsPolynomial& surface) {
        const auto& c = surface.c;
        const double m = f_.TCM;
        f_.TCD = c[0] + c[1] * m + c[3] * m * m + c[6] * m * m * m;
        f_.PC = refprop_.Pressure(f_.TCD, saturation::dew);
    }
    void fromEvaporatingMid(const clsPolynomial& surface) {
        const double pressure = refprop_.Pressure(f_.TCD, saturation::dew);
        f_.TED = surface.at(f_.TEM, liquidEnthalpy(pressure));
        f_.PE = refprop_.Pressure(f_.TED, saturation::dew);
    }

  private:
    double saturationTemperature(double pressure, int side) {
        return refprop_.Temperature(pressure, property::pressure, side, 0, property::none);
    }

    double liquidEnthalpy(double pressure) {
        return refprop_.Enthalpy(saturationTemperature(pressure, saturation::bubble) - f_.SC,
                                 property::temperature, pressure, property::pressure);
    }

    void evaporatingMid() {
        if (hasGlide_) {
            const double inlet = refprop_.Temperature(liquidEnthalpy(f_.PC), property::enthalpy,
                                                      saturation::dew, f_.PE, property::pressure);
            f_.TEM = (f_.TED + inlet) / 2;
        } else {
            // The subcooling is taken off on purpose, for a fluid without glide too.
            f_.TEM = (f_.TED + saturationTemperature(f_.PE, saturation::bubble) - f_.SC) / 2;
        }
    }
    void condensingMid() { f_.TCM = (f_.TCD + saturationTemperature(f_.PC, saturation::bubble)) / 2; }

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

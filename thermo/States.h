#pragma once

#include "thermo/clsRefprop.h"

namespace marvello {

/// The states of the refrigerant that a clsRefprop is bound to, as an engineer names them. Temperatures `t`,
/// pressures `p`, enthalpies `h`, entropies `s` and densities in the units of clsRefprop, usually degrees
/// Celsius, bar absolute, kJ/kg, kJ/kg-K and kg/m^3. Throws ArithmeticFault; see clsRefprop for states out of
/// range.
class States {
  public:
    explicit States(clsRefprop& refprop) : refprop_(refprop) {}

    double dewPressure(double t) const { return refprop_.Pressure(t, saturation::dew); }
    double bubblePressure(double t) const { return refprop_.Pressure(t, saturation::bubble); }
    double dewTemperature(double p) const { return saturationTemperature(p, saturation::dew); }
    double bubbleTemperature(double p) const { return saturationTemperature(p, saturation::bubble); }
    double dewDensity(double p) const { return refprop_.Density(p, property::pressure, saturation::dew); }

    double temperatureAtEnthalpy(double p, double h) const {
        return refprop_.Temperature(p, property::pressure, saturation::dew, h, property::enthalpy);
    }
    double temperatureAtEntropy(double p, double s) const {
        return refprop_.Temperature(p, property::pressure, saturation::dew, s, property::entropy);
    }
    double enthalpy(double t, double p) const {
        return refprop_.Enthalpy(t, property::temperature, p, property::pressure);
    }
    double enthalpyAtEntropy(double p, double s) const {
        return refprop_.Enthalpy(p, property::pressure, s, property::entropy);
    }
    double entropy(double t, double p) const {
        return refprop_.Entropy(t, property::temperature, p, property::pressure);
    }
    double entropyAtEnthalpy(double p, double h) const {
        return refprop_.Entropy(p, property::pressure, h, property::enthalpy);
    }
    double density(double t, double p) const {
        return refprop_.Density(t, property::temperature, saturation::dew, p, property::pressure);
    }

  private:
    double saturationTemperature(double p, int side) const {
        return refprop_.Temperature(p, property::pressure, side, 0, property::none);
    }

    clsRefprop& refprop_;
};

}  // namespace marvello

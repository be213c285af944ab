#include "tools/generate/Fluid.h"

#include <array>
#include <cstdint>
#include <stdexcept>

#include "fluids/Refprop.h"

namespace marvello::generate {
namespace {

constexpr double kelvin = 273.15;
constexpr std::array<double, 20> pure{1.0};

/// What the property library gives back for a call, the inputs left out.
struct Outputs {
    double t = 0, p = 0, D = 0, Dl = 0, Dv = 0, q = 0, e = 0, h = 0, s = 0, cv = 0, cp = 0, w = 0;
    std::array<double, 20> x{}, y{};
    std::int32_t code = 0;
    std::string text = std::string(255, ' ');

    std::int32_t length() const { return static_cast<std::int32_t>(text.size()); }
    void check() const {
        if (code != 0) throw std::runtime_error(text.substr(0, text.find_last_not_of(' ') + 1));
    }
};

Outputs atTemperaturePressure(double celsius, double p) {
    Outputs out;
    const double t = celsius + kelvin;
    TPFLSHdll(&t, &p, pure.data(), &out.D, &out.Dl, &out.Dv, out.x.data(), out.y.data(), &out.q, &out.e,
              &out.h, &out.s, &out.cv, &out.cp, &out.w, &out.code, out.text.data(), out.length());
    out.check();
    return out;
}

}  // namespace

Fluid::Fluid(const std::string& file) {
    Outputs out;
    const std::int32_t count = 1;
    const std::string mix(255, ' ');
    SETUPdll(&count, file.data(), mix.data(), "DEF", &out.code, out.text.data(),
             static_cast<std::int32_t>(file.size()), 255, 3, out.length());
    out.check();
    WMOLdll(pure.data(), &molarMass_);
}

double Fluid::saturationPressure(double temperature) const {
    Outputs out;
    const double t = temperature + kelvin;
    const std::int32_t dew = 2;
    SATTdll(&t, pure.data(), &dew, &out.p, &out.Dl, &out.Dv, out.x.data(), out.y.data(), &out.code,
            out.text.data(), out.length());
    out.check();
    return out.p;
}

double Fluid::density(double temperature, double pressure) const {
    return atTemperaturePressure(temperature, pressure).D * molarMass_;
}

double Fluid::enthalpy(double temperature, double pressure) const {
    return atTemperaturePressure(temperature, pressure).h / molarMass_;
}

double Fluid::entropy(double temperature, double pressure) const {
    return atTemperaturePressure(temperature, pressure).s / molarMass_;
}

Fluid::Isentropic Fluid::atEntropy(double pressure, double entropy) const {
    Outputs out;
    const double s = entropy * molarMass_;
    PSFLSHdll(&pressure, &s, pure.data(), &out.t, &out.D, &out.Dl, &out.Dv, out.x.data(), out.y.data(),
              &out.q, &out.e, &out.h, &out.cv, &out.cp, &out.w, &out.code, out.text.data(), out.length());
    out.check();
    return {out.h / molarMass_, out.D * molarMass_};
}

double Fluid::temperature(double pressure, double enthalpy) const {
    Outputs out;
    const double h = enthalpy * molarMass_;
    PHFLSHdll(&pressure, &h, pure.data(), &out.t, &out.D, &out.Dl, &out.Dv, out.x.data(), out.y.data(),
              &out.q, &out.e, &out.s, &out.cv, &out.cp, &out.w, &out.code, out.text.data(), out.length());
    out.check();
    return out.t - kelvin;
}

}  // namespace marvello::generate

#include "demo/generate/Fluid.h"

#include <cstdint>
#include <stdexcept>

#include "demo/generate/PlanTable.h"
#include "fluids/Refprop.h"

namespace marvello::generate {
namespace {

constexpr double kelvin = 273.15;
constexpr int bubble = 1;
constexpr int dew = 2;

/// What the property library gives back for a call, the inputs left out.
struct Outputs {
    double t = 0, p = 0, D = 0, Dl = 0, Dv = 0, q = 0, e = 0, h = 0, s = 0, cv = 0, cp = 0, w = 0;
    std::array<double, 20> x{}, y{};
    std::int32_t code = 0;
    std::string text = std::string(255, ' ');

    std::int32_t length() const { return static_cast<std::int32_t>(text.size()); }
    void check() const {
        if (code > 0) throw std::runtime_error(text.substr(0, text.find_last_not_of(' ') + 1));
    }
};

Outputs atTemperaturePressure(const std::array<double, 20>& moles, double celsius, double p) {
    Outputs out;
    const double t = celsius + kelvin;
    TPFLSHdll(&t, &p, moles.data(), &out.D, &out.Dl, &out.Dv, out.x.data(), out.y.data(), &out.q, &out.e,
              &out.h, &out.s, &out.cv, &out.cp, &out.w, &out.code, out.text.data(), out.length());
    out.check();
    return out;
}

std::string padded(std::string text, std::size_t length) {
    text.resize(length, ' ');
    return text;
}

}  // namespace

std::map<std::string, std::vector<FluidPart>> readCompositions(const std::filesystem::path& contentFolder) {
    std::map<std::string, std::vector<FluidPart>> found;
    const PlanTable table(contentFolder / "tFluidi.csv");
    for (const PlanTable::Row& row : table.rows()) {
        found[row.text("fRefrigeranteId")].push_back({row.text("fFluido"), row.number("fPFluido")});
    }
    return found;
}

Fluid::Fluid(const std::vector<FluidPart>& parts) {
    constexpr std::int32_t filesLength = 10000;
    constexpr std::int32_t textLength = 255;
    if (parts.empty() || parts.size() > moles_.size())
        throw std::runtime_error("A refrigerant has 1 to 20 components.");
    std::array<double, 20> mass{};
    std::string files;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        files += (i > 0 ? "|Fluids/" : "Fluids/") + parts[i].file;
        mass[i] = parts[i].massFraction;
    }
    files = padded(files, filesLength);
    const std::string mix = padded("Fluids/hmx.bnc", textLength);
    Outputs out;
    const auto count = static_cast<std::int32_t>(parts.size());
    SETUPdll(&count, files.data(), mix.data(), "DEF", &out.code, out.text.data(), filesLength, textLength, 3,
             out.length());
    out.check();
    XMOLEdll(mass.data(), moles_.data(), &molarMass_);
    const std::int32_t ofMixture = parts.size() > 1 ? 2 : 1;
    const double unused = 0;
    SETREFdll("DEF", &ofMixture, moles_.data(), &unused, &unused, &unused, &unused, &out.code,
              out.text.data(), 3, out.length());
    out.check();
}

double Fluid::dewPressure(double temperature) const {
    Outputs out;
    const double t = temperature + kelvin;
    const std::int32_t side = dew;
    SATTdll(&t, moles_.data(), &side, &out.p, &out.Dl, &out.Dv, out.x.data(), out.y.data(), &out.code,
            out.text.data(), out.length());
    out.check();
    return out.p;
}

double Fluid::saturationTemperature(double pressure, int side) const {
    Outputs out;
    const std::int32_t kph = side;
    SATPdll(&pressure, moles_.data(), &kph, &out.t, &out.Dl, &out.Dv, out.x.data(), out.y.data(), &out.code,
            out.text.data(), out.length());
    out.check();
    return out.t - kelvin;
}

double Fluid::dewTemperature(double pressure) const { return saturationTemperature(pressure, dew); }
double Fluid::bubbleTemperature(double pressure) const { return saturationTemperature(pressure, bubble); }

double Fluid::density(double temperature, double pressure) const {
    return atTemperaturePressure(moles_, temperature, pressure).D * molarMass_;
}

double Fluid::enthalpy(double temperature, double pressure) const {
    return atTemperaturePressure(moles_, temperature, pressure).h / molarMass_;
}

double Fluid::entropy(double temperature, double pressure) const {
    return atTemperaturePressure(moles_, temperature, pressure).s / molarMass_;
}

Fluid::Isentropic Fluid::atEntropy(double pressure, double entropy) const {
    Outputs out;
    const double s = entropy * molarMass_;
    PSFLSHdll(&pressure, &s, moles_.data(), &out.t, &out.D, &out.Dl, &out.Dv, out.x.data(), out.y.data(),
              &out.q, &out.e, &out.h, &out.cv, &out.cp, &out.w, &out.code, out.text.data(), out.length());
    out.check();
    return {out.h / molarMass_, out.D * molarMass_};
}

double Fluid::temperature(double pressure, double enthalpy) const {
    Outputs out;
    const double h = enthalpy * molarMass_;
    PHFLSHdll(&pressure, &h, moles_.data(), &out.t, &out.D, &out.Dl, &out.Dv, out.x.data(), out.y.data(),
              &out.q, &out.e, &out.s, &out.cv, &out.cp, &out.w, &out.code, out.text.data(), out.length());
    out.check();
    return out.t - kelvin;
}

}  // namespace marvello::generate

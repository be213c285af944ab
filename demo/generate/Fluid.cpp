#include "demo/generate/Fluid.h"

#include <stdexcept>

#include "data/Constants.h"
#include "data/TextTable.h"

namespace marvello::generate {
namespace {

constexpr int bubble = 1;
constexpr int dew = 2;

void check(const RefpropAnswer& answer) {
    if (answer.code > 0) throw std::runtime_error(answer.sentence());
}

const RefpropState& checked(const RefpropState& state) {
    check(state.answer);
    return state;
}

}  // namespace

std::map<std::string, std::vector<FluidPart>> readCompositions(const std::filesystem::path& contentFolder) {
    std::map<std::string, std::vector<FluidPart>> found;
    const TextTable table(contentFolder / "tFluidi.csv");
    for (const TextTable::Row& row : table.rows()) {
        found[row.text("fRefrigeranteId")].push_back({row.text("fFluido"), row.number("fPFluido")});
    }
    return found;
}

Fluid::Fluid(const std::vector<FluidPart>& parts) : session_(linkedRefprop()) {
    if (parts.empty() || parts.size() > RefpropSession::maximumComponents)
        throw std::runtime_error("A refrigerant has 1 to 20 components.");
    std::vector<std::string> files;
    std::vector<double> massFractions;
    for (const FluidPart& part : parts) {
        files.push_back(part.file);
        massFractions.push_back(part.massFraction);
    }
    check(session_.setUp(files, massFractions));
    molarMass_ = session_.molarMass();
}

double Fluid::dewPressure(double temperature) const {
    return checked(session_.saturationAtT(temperature + zeroCelsius, dew)).p;
}

double Fluid::saturationTemperature(double pressure, int side) const {
    return checked(session_.saturationAtP(pressure, side)).t - zeroCelsius;
}

double Fluid::dewTemperature(double pressure) const { return saturationTemperature(pressure, dew); }
double Fluid::bubbleTemperature(double pressure) const { return saturationTemperature(pressure, bubble); }

double Fluid::density(double temperature, double pressure) const {
    return checked(session_.atTP(temperature + zeroCelsius, pressure)).D * molarMass_;
}

double Fluid::enthalpy(double temperature, double pressure) const {
    return checked(session_.atTP(temperature + zeroCelsius, pressure)).h / molarMass_;
}

double Fluid::entropy(double temperature, double pressure) const {
    return checked(session_.atTP(temperature + zeroCelsius, pressure)).s / molarMass_;
}

Fluid::Isentropic Fluid::atEntropy(double pressure, double entropy) const {
    const RefpropState state = checked(session_.atPS(pressure, entropy * molarMass_));
    return {state.h / molarMass_, state.D * molarMass_};
}

double Fluid::temperature(double pressure, double enthalpy) const {
    return checked(session_.atPH(pressure, enthalpy * molarMass_)).t - zeroCelsius;
}

}  // namespace marvello::generate

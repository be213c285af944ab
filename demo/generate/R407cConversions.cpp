#include "demo/generate/R407cConversions.h"

namespace marvello::generate {
namespace {

Conversion fitted(const char* name, SurfaceForm form, const std::vector<Sample>& samples) {
    Conversion made;
    made.name = name;
    made.states = samples.size();
    made.coefficients = fit(form, samples);
    made.error = errorOf(form, made.coefficients, samples);
    return made;
}

}  // namespace

Conversion condensingConversion(const Fluid& r407c) {
    std::vector<Sample> samples;
    for (double dew = 5; dew <= 70; dew += 0.5) {
        const double mean = (dew + r407c.bubbleTemperature(r407c.dewPressure(dew))) / 2;
        samples.push_back({mean, 0, dew, 1});
    }
    return fitted("R407CTCM", SurfaceForm::lineCubic, samples);
}

Conversion evaporatingConversion(const Fluid& r407c) {
    constexpr double liquidPressure =
        3200;  // kPa, above the bubble points; the enthalpy hardly depends on it
    std::vector<Sample> samples;
    for (double dew = -45; dew <= 20; dew += 2.5) {
        const double pressure = r407c.dewPressure(dew);
        const double bubble = r407c.bubbleTemperature(pressure);
        for (double liquid = 0; liquid <= 65; liquid += 2.5) {
            if (liquid <= bubble) continue;  // nothing would evaporate by throttling
            const double enthalpy = r407c.enthalpy(liquid, liquidPressure);
            const double inlet = r407c.temperature(pressure, enthalpy);
            samples.push_back({(inlet + dew) / 2, enthalpy, dew, 1});
        }
    }
    return fitted("R407CTEM", SurfaceForm::cubic, samples);
}

}  // namespace marvello::generate

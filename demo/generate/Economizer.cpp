#include "demo/generate/Economizer.h"

#include <cmath>

#include "data/Constants.h"

namespace marvello::generate {

double portPressureRatio(const CyclePoint& point, double portRatio) {
    const double exponent = std::log(point.ratio()) / std::log(point.endDensity / point.density);
    return std::nearbyint(100 * std::pow(portRatio, exponent)) / 100;
}

InjectedFlow injectedAt(const Fluid& fluid, const CyclePoint& point, double pressureRatio) {
    constexpr double approach = 5;           // K between the subcooled liquid and the evaporating gas
    constexpr double usualEfficiency = 0.6;  // isentropic, up to the port
    const double port = pressureRatio * point.low;
    if (port >= point.high) return {};
    const double dew = fluid.dewTemperature(port);
    const double subcooled = fluid.enthalpy(dew + approach, point.high);
    if (subcooled >= point.liquid) return {};
    const double injected = fluid.enthalpy(dew + referenceSuperheat, port);

    InjectedFlow found;
    found.share = (point.liquid - subcooled) / (injected - point.liquid);
    const double compressed =
        point.gas + (fluid.atEntropy(port, point.entropy).enthalpy - point.gas) / usualEfficiency;
    const double mixed = (injected * found.share + compressed) / (1 + found.share);
    const double entropy = fluid.entropy(fluid.temperature(port, mixed), port);
    found.head = fluid.atEntropy(point.high, entropy).enthalpy - mixed;
    return found;
}

Performance withEconomizer(const Performance& plain, const InjectedFlow& injected) {
    const double added =
        injected.share * plain.massFlow / secondsPerHour * injected.head / plain.isentropicEfficiency;
    Performance found = plain;
    found.shaftPower += added * plain.shaftPower / plain.power;
    found.power += added;
    return found;
}

}  // namespace marvello::generate

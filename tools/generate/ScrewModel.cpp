#include "tools/generate/ScrewModel.h"

#include <cmath>

namespace marvello::generate {
namespace {

constexpr double secondsAnHour = 3600;
constexpr double kiloPascalsAMegaPascal = 1000;
constexpr double heatToSurroundings = 0.03;  // share of the absorbed power that does not go into the gas

/// Work of the ideal machine in kJ/kg.
double specificWork(const ScrewMachine& machine, const Fluid& fluid, double suctionPressure,
                    double dischargePressure, double suctionDensity, double suctionEnthalpy, double entropy) {
    const double endDensity = fluid.atEntropy(dischargePressure, entropy).density;
    const double exponent =
        std::log(dischargePressure / suctionPressure) / std::log(endDensity / suctionDensity);
    const double internalPressure = suctionPressure * std::pow(machine.builtInRatio, exponent);
    const Fluid::Isentropic internal = fluid.atEntropy(internalPressure, entropy);
    return internal.enthalpy - suctionEnthalpy + (dischargePressure - internalPressure) / internal.density;
}

/// Absorbed power in kW: a share of the rating lost always, another that grows with the square of the load.
double motorInput(double shaftPower, double rating) {
    constexpr double idleLoss = 0.022;
    constexpr double loadLoss = 0.045;
    const double load = shaftPower / rating;
    return shaftPower + rating * (idleLoss + loadLoss * load * load);
}

}  // namespace

Performance fullLoad(const ScrewMachine& machine, const Fluid& fluid, double evaporating, double condensing) {
    const double low = fluid.saturationPressure(evaporating);
    const double high = fluid.saturationPressure(condensing);
    const double suction = evaporating + referenceSuperheat;
    const double density = fluid.density(suction, low);
    const double gas = fluid.enthalpy(suction, low);
    const double liquid = fluid.enthalpy(condensing - referenceSubcooling, high);
    const double ratio = high / low;

    const double volumetric = 1 - machine.fillingLoss - machine.ratioLeakage * (ratio - 1) -
                              machine.pressureLeakage * (high - low) / kiloPascalsAMegaPascal;
    const double displaced = machine.displacement / secondsAnHour;
    const double flow = displaced * volumetric * density;
    const double work = specificWork(machine, fluid, low, high, density, gas, fluid.entropy(suction, low));
    const double shaft = flow * work / machine.internalEfficiency + machine.frictionPressure * displaced;

    Performance found;
    found.capacity = flow * (gas - liquid);
    found.power = motorInput(shaft, machine.motorPower);
    found.dischargeTemperature = fluid.temperature(high, gas + (1 - heatToSurroundings) * found.power / flow);
    found.massFlow = flow * secondsAnHour;
    found.pressureRatio = ratio;
    return found;
}

Performance partLoad(const Performance& full, double step) {
    const double unloaded = 1 - step;
    const double idle = 0.10 + 0.02 * full.pressureRatio;
    Performance found = full;
    found.capacity *= step - 0.006 * unloaded * full.pressureRatio;
    found.massFlow *= step - 0.006 * unloaded * full.pressureRatio;
    found.power *= idle + (1 - idle) * std::pow(step, 0.95);
    return found;
}

}  // namespace marvello::generate

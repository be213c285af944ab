#include "demo/generate/ScrewModel.h"

#include <algorithm>
#include <cmath>

#include "data/Constants.h"

namespace marvello::generate {
namespace {

constexpr double kiloPascalsAMegaPascal = 1000;

/// Share of the power input that leaves through housing, oil separator and motor cap. Oil separators are
/// not insulated and as hot as the discharge gas.
constexpr double heatToSurroundings = 0.11;

}  // namespace

CyclePoint cycleAt(const Fluid& fluid, double evaporating, double condensing) {
    CyclePoint point;
    point.evaporating = evaporating;
    point.condensing = condensing;
    point.low = fluid.dewPressure(evaporating);
    point.high = fluid.dewPressure(condensing);
    const double suction = evaporating + referenceSuperheat;
    point.density = fluid.density(suction, point.low);
    point.gas = fluid.enthalpy(suction, point.low);
    point.entropy = fluid.entropy(suction, point.low);
    point.liquid = fluid.enthalpy(fluid.bubbleTemperature(point.high) - referenceSubcooling, point.high);
    const Fluid::Isentropic end = fluid.atEntropy(point.high, point.entropy);
    point.isentropicEnd = end.enthalpy;
    point.endDensity = end.density;
    return point;
}

double specificWork(const CyclePoint& point, const Fluid& fluid, double lowestRatio, double highestRatio) {
    const double ideal = point.endDensity / point.density;
    const double builtIn = std::clamp(ideal, lowestRatio, highestRatio);
    if (builtIn == ideal) return point.isentropicEnd - point.gas;
    const double exponent = std::log(point.ratio()) / std::log(ideal);
    const double internalPressure = point.low * std::pow(builtIn, exponent);
    const Fluid::Isentropic internal = fluid.atEntropy(internalPressure, point.entropy);
    return internal.enthalpy - point.gas + (point.high - internalPressure) / internal.density;
}

double motorInput(double shaftPower, double rating) {
    constexpr double idleLoss = 0.022;
    constexpr double loadLoss = 0.045;
    const double load = shaftPower / rating;
    return shaftPower + rating * (idleLoss + loadLoss * load * load);
}

Performance fullLoad(const ScrewMachine& machine, const CyclePoint& point, double work, double speed) {
    const double leakage = (machine.ratioLeakage * (point.ratio() - 1) +
                            machine.pressureLeakage * (point.high - point.low) / kiloPascalsAMegaPascal) /
                           speed;
    // Heating of the gas hardly depends on speed, throttling grows with its square.
    const double filled = 1 - machine.fillingLoss * (1 + speed * speed) / 2;
    const double displaced = machine.displacement * speed / secondsPerHour;
    const double flow = displaced * (filled - leakage) * point.density;
    const double compressed = displaced * (filled - leakage / 2) * point.density;

    Performance found;
    found.shaftPower =
        compressed * work / machine.internalEfficiency + machine.frictionPressure * displaced * speed;
    found.capacity = flow * (point.gas - point.liquid);
    const bool hasMotor = machine.motorPower > 0;
    const double driven = hasMotor ? motorInput(found.shaftPower, machine.motorPower) : found.shaftPower;
    found.power = hasMotor ? driven * (1 + machine.inverterLoss) : driven;
    found.dischargeEnthalpy = point.gas + driven * (1 - heatToSurroundings) / flow;
    found.massFlow = flow * secondsPerHour;
    found.pressureRatio = point.ratio();
    found.isentropicEfficiency = flow * (point.isentropicEnd - point.gas) / found.power;
    return found;
}

Performance fullLoad(const ScrewMachine& machine, const Fluid& fluid, double evaporating, double condensing,
                     double speed) {
    const CyclePoint point = cycleAt(fluid, evaporating, condensing);
    const double work = specificWork(point, fluid, machine.lowestRatio, machine.highestRatio);
    Performance found = fullLoad(machine, point, work, speed);
    found.dischargeTemperature = fluid.temperature(point.high, found.dischargeEnthalpy);
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

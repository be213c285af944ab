#pragma once

#include "demo/generate/ScrewModel.h"

namespace marvello::generate {

/// Ratio of the pressure at the economizer port to the evaporating pressure: the gas in the closed groove has
/// been compressed to the port's volume ratio. Two decimals.
double portPressureRatio(const CyclePoint& point, double portRatio);

/// What an economizer adds to a machine at one point.
struct InjectedFlow {
    double share = 0;  ///< of the evaporator's mass flow
    double head = 0;   ///< kJ/kg, isentropic from the mixture at the port to the condensing pressure
};

/// The flow that a plate economizer with an approach of 5 K evaporates, injected at `pressureRatio` times the
/// evaporating pressure with the reference superheat.
InjectedFlow injectedAt(const Fluid& fluid, const CyclePoint& point, double pressureRatio);

/// The machine with that flow: power as the economized cycle of the engine counts it, by the isentropic
/// efficiency of the machine.
Performance withEconomizer(const Performance& plain, const InjectedFlow& injected);

}  // namespace marvello::generate

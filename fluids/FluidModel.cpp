#include "fluids/FluidModel.h"

#include <algorithm>
#include <utility>

#include "fluids/PhaseEnvelope.h"
#include "fluids/SaturationLine.h"

namespace marvello::fluids {

FluidModel::FluidModel(Mixture mixture, std::span<const double> z)
    : mixture_(std::move(mixture)), phase_(mixture_, z), lanes_(phase_), name_(mixture_.name()) {
    constexpr double coldestBlend = 150;  // K; component equations are used below their triple points
    const std::vector<PureFluid>& components = mixture_.components();
    const auto smallest = [&](double PureFluid::* limit) {
        double found = components.front().*limit;
        for (const PureFluid& fluid : components) found = std::min(found, fluid.*limit);
        return found;
    };
    if (isBlend()) {
        Equilibrium equilibrium(mixture_, z);
        boundary_ = std::make_unique<PhaseEnvelope>(phase_, equilibrium, coldestBlend);
    } else {
        boundary_ = std::make_unique<SaturationLine>(phase_, components.front());
    }
    limits_ = {boundary_->temperatureMin(), smallest(&PureFluid::temperatureExtrapolated),
               smallest(&PureFluid::pressureMax), 0};
    limits_.densityMax = maxDensity();
    isobars_ = std::make_unique<const IsobarTable>(phase_, *boundary_, limits_);
}

FluidModel::Shift FluidModel::shiftFor(ReferenceState reference) const {
    // IIR: 200 kJ/kg and 1 kJ/(kg K) for the liquid at 0 degrees Celsius. ASHRAE: 0 and 0 at -40. NBP: 0 and
    // 0 at the normal boiling point.
    constexpr double iirTemperature = 273.15;
    constexpr double iirEnthalpy = 200;
    constexpr double ashraeTemperature = iirTemperature - 40;
    constexpr double normalPressure = 101.325;
    constexpr auto bubble = PhaseBoundary::Side::bubble;
    const SaturationPoint point =
        reference == ReferenceState::nbp
            ? boundary_->atPressure(normalPressure, bubble)
            : boundary_->atTemperature(reference == ReferenceState::iir ? iirTemperature : ashraeTemperature,
                                       bubble);
    const PhaseState liquid = phase_.at(point.temperature).state(point.liquidDensity);
    const double mass =
        reference == ReferenceState::iir ? phase_.molarMass() : 0;  // kJ/kg times g/mol is J/mol
    return {iirEnthalpy * mass - liquid.enthalpy, mass - liquid.entropy};
}

/// The density at the lowest temperature and highest pressure, with a little room.
double FluidModel::maxDensity() const {
    const Isotherm coldest = phase_.at(limits_.temperatureMin);
    const double wanted = limits_.pressureMax / (phase_.gasConstant() * limits_.temperatureMin);
    constexpr int steps = 40;
    constexpr double growth = 1.05;
    constexpr double margin = 1.01;
    double high = boundary_->liquidDensityFloor(limits_.temperatureMin);
    for (int i = 0; i < steps && coldest.reducedPressure(high).value < wanted; ++i) high *= growth;
    return high * margin;
}

}  // namespace marvello::fluids

#pragma once

#include <optional>
#include <string>

#include "tools/fluids/Composition.h"

namespace marvello::properties {

/// Temperatures in degC.
struct TemperatureRange {
    double from = -40;
    std::optional<double> to;  ///< 60 unless given, or the last step below the critical point
    double step = 5;
};

/// A saturation table in degC, bar, kg/m^3, kJ/kg and kJ/(kg K), for reading or as CSV. Throws Refusal.
std::string saturationTable(const Composition& composition, const TemperatureRange& range, bool csv);

/// Lines of constant temperature for a pressure-enthalpy diagram, from 0.5 to 60 bar, as CSV: degC, bar,
/// kJ/kg, quality in moles (-998 liquid, 998 vapour, 999 supercritical). Throws Refusal.
std::string isotherms(const Composition& composition, const TemperatureRange& range);

}  // namespace marvello::properties

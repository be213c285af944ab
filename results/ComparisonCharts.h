#pragma once

#include <cstddef>
#include <vector>

#include "engine/Comparison.h"
#include "results/Chart.h"
#include "thermo/UnitSystem.h"

namespace marvello {

/// Returns the line of a machine, by its place: solid, dashed, dotted, dash-dot.
CurveStyle styleOfMachine(std::size_t place);

/// Returns the application limits of all machines over one another, with their operating points and names.
Chart limitsChart(const Comparison& comparison, UnitSystem units);

/// Returns a figure of all machines over a temperature, the capacity of all machines of a choice together.
/// For the COP the quotient of the figures as they are calculated, since that of the lists is one of rounded
/// figures.
Chart curvesChart(const Comparison& comparison, const std::vector<Curve>& curves, CurveAxis axis,
                  Figure figure, UnitSystem units);

}  // namespace marvello

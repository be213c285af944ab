#pragma once

#include "demo/generate/Envelope.h"
#include "demo/generate/Series.h"

namespace marvello::generate {

/// The regions in which a series may run with a refrigerant.
struct OperatingRange {
    Region application;
    Region economized;      ///< application limit with economizer
    Region over;            ///< around both
    BrokenLine smallMotor;  ///< the small motor works below
    double oilFilter;       ///< degC; below this condensing temperature the filter region begins
    double oilFilterEarly;
};

/// Draws the regions from the plan: between its evaporating and condensing temperatures, cut at the upper
/// left where pressure ratio or discharge temperature end, and at the lower right where the temperature
/// difference becomes too small to carry the oil. Corners lie on whole degrees.
OperatingRange operatingRange(const SeriesPlan& series, const Fluid& fluid);

/// The machine that stands for the whole series in its envelopes: the middle model, its motor well loaded.
ScrewMachine usualMachine(const SeriesPlan& series, const Fluid& fluid);

/// Condensing temperature at which the gas of the usual machine, sucked in at the greatest superheat allowed,
/// leaves at `limit` degC without oil cooling; `above` where it stays colder up to there.
double condensingAtDischarge(const SeriesPlan& series, const ScrewMachine& usual, const Fluid& fluid,
                             double evaporating, double limit, double above);

}  // namespace marvello::generate

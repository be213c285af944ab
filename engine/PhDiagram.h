#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "engine/Cycle.h"
#include "thermo/UnitSystem.h"
#include "thermo/clsRefprop.h"

namespace marvello {

/// A point of a diagram of pressure over enthalpy: kJ/kg and bar absolute.
struct PhPoint {
    double h = 0;
    double p = 0;
};

/// A part of the plane of such a diagram.
struct PhRange {
    double lowH = 0, highH = 0;  ///< kJ/kg
    double lowP = 0, highP = 0;  ///< bar absolute
    bool operator==(const PhRange&) const = default;
};

/// A line along which something is constant. A line that leaves the states of the property library ends
/// there; one that comes back is a second one.
struct PhLine {
    enum class Kind : std::uint8_t { bubble, dew, temperature, entropy, density, quality };
    Kind kind{};
    double value = 0;             ///< In the units of the diagram; 0 for the lines of saturation.
    std::vector<PhPoint> points;  ///< By rising pressure.
};

/// The properties of a refrigerant over enthalpy and pressure. Lines of constant temperature, entropy and
/// density are those of round values in the units of the diagram; between two points a line is straight to
/// 0.02 % of the range. Enthalpies are linear in a picture, pressures logarithmic.
struct PhDiagram {
    PhRange range;
    std::vector<PhLine> lines;
};

/// Returns the part of the plane that belongs to a refrigerant: from the dew pressure at -40 degrees Celsius,
/// or the lowest there is, to above the critical point, with liquid and gas up to 100 degrees Celsius. Throws
/// ArithmeticFault, and std::runtime_error for a refrigerant without saturation states.
PhRange phRangeOf(clsRefprop& refprop);

/// Returns a range that holds all states of a cycle, widened by round steps where it has to be.
PhRange widened(const PhRange& range, const Cycle& cycle);

/// Calculates the diagram of a range in the units of a system. Throws ArithmeticFault.
PhDiagram phDiagramOf(clsRefprop& refprop, const PhRange& range, UnitSystem units);

/// Returns the diagram of a refrigerant around a cycle. The session keeps those that it calculated lately.
/// Throws what the others throw, and what GetRefprop() throws.
std::shared_ptr<const PhDiagram> phDiagramAround(const Cycle& cycle, const std::string& refrigerant,
                                                 UnitSystem units);

}  // namespace marvello

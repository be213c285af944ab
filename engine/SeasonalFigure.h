#pragma once

#include <array>
#include <optional>

#include "engine/Degradation.h"
#include "engine/LoadProfile.h"

namespace marvello {

/// By what a seasonal figure is defined: the load over the outdoor temperature, four points, and what
/// intermittent running costs.
struct SeasonalRule {
    /// Outdoor temperatures of the points A to D, the warmest first, degrees Celsius.
    std::array<double, 4> points{};
    double lowestLoad = 1;  ///< Share of the design load at D and below.
    Degradation degradation{};
    /// Evaporating dew temperature, degrees Celsius; none if the rule does not say it.
    std::optional<double> evaporating{};

    /// Returns the share of the design load: 1 from A up, the lowest one from D down, linear in between.
    double loadAt(double outdoor) const;
};

/// What a machine comes to at a point of a rule.
struct DeclaredPoint {
    double capacity = 0;  ///< Of the running machine, kW.
    double cop = 0;       ///< The same.
};

/// Returns the COP with which a machine covers a demand, in kW, that is at most its capacity: intermittent
/// running degrades it. A demand above its capacity is covered at the COP of the running machine.
double partLoadCop(const DeclaredPoint& declared, double demand, const Degradation& degradation);

/// The COP over the outdoor temperature by its values at the points of a rule.
class CopByOutdoor {
  public:
    CopByOutdoor(const std::array<double, 4>& points, const std::array<double, 4>& cops)
        : points_(points), cops_(cops) {}

    /// Linear between two points, constant outside.
    double at(double outdoor) const;

  private:
    std::array<double, 4> points_;
    std::array<double, 4> cops_;
};

/// Returns the seasonal figure of the four-point method of EN 13215: the demand of a year over the energy
/// that it takes, the COP of each bin interpolated between those of the points. It is that of what the COPs
/// are of: with those of a compressor it is no declared value of a unit. Needs a demand and positive COPs.
double seasonalFigure(const LoadProfile& profile, const CopByOutdoor& cop);

}  // namespace marvello

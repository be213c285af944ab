#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/PreparedCompressor.h"
#include "catalogue/clsProjectConditions.h"
#include "engine/CubicSurface.h"
#include "engine/Performance.h"
#include "engine/PointLoop.h"
#include "engine/RatingTable.h"

namespace marvello {

/// The conditions that the quantities of a set of coefficients are rated at.
enum class RatingConditions : std::uint8_t {
    own,      ///< Those of the catalogue: 10 K of superheat, 5 K of subcooling, no economizer.
    en12900,  ///< 10 K of superheat, no subcooling, no economizer.
    form      ///< As they are asked for. With an economizer all but the mass flow are totals.
};

/// Returns "own", "en12900" or "form".
std::string_view nameOf(RatingConditions rating);

struct CoefficientsRequest {
    const PreparedCompressor* compressor = nullptr;
    clsProjectConditions conditions;  ///< Motor, step and frequency are taken from here at all ratings.
    RatingConditions rating = RatingConditions::own;
    /// Limits the range of the fit further than the application limit does.
    TemperatureBox within{-std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity(),
                          -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
};

/// How far a surface is from the calculated points, in the unit of the quantity and in percent of each value.
struct FitDeviation {
    double max = 0, rms = 0;
    double maxPercent = 0, rmsPercent = 0;
};

/// A quantity as a surface over the dew temperatures in degrees Celsius; kW, A or kg/h.
struct RatedQuantity {
    Figure figure{};
    CubicTerms terms{};
    bool isOfCatalogue = false;  ///< The catalogue's own surface, not a fit.
    FitDeviation deviation{};
};

/// A calculated point.
struct RatedPoint {
    double ted = 0, tcd = 0;
    Performance performance{};
};

/// The performance of a compressor at one frequency, step and rating as ten-coefficient surfaces.
struct RatedCoefficients {
    const PreparedCompressor* compressor = nullptr;
    RatingConditions rating{};
    clsProjectConditions conditions;  ///< That were calculated; their temperatures are those of the request.
    TemperatureBox range;             ///< Of the points.
    std::vector<RatedQuantity>
        quantities;                 ///< Capacity, power, current, mass flow; no current without a motor.
    std::size_t points = 0;         ///< That were calculated and fitted.
    std::vector<RatedPoint> check;  ///< Some of them.
};

/// There are no coefficients; `what()` is a sentence.
class NoCoefficients : public std::runtime_error {
  public:
    enum class Reason : std::uint8_t {
        noLimit,       ///< The compressor has no application limit for these conditions.
        tooFewPoints,  ///< Too few operating points have values, or all are on too few lines.
        givenUp        ///< The loop was.
    };
    NoCoefficients(Reason reason, const std::string& sentence)
        : std::runtime_error(sentence), reason(reason) {}
    Reason reason;
};

/// Returns the conditions of a rating.
clsProjectConditions conditionsOf(RatingConditions rating, clsProjectConditions conditions);

/// Returns the rating at which conditions are: the catalogue's own, or that of the form.
RatingConditions ratingOf(const clsProjectConditions& conditions);

/// Makes coefficients of operating points all over the application limit. Capacity and power at the
/// catalogue's own conditions are its surfaces, as long as one surface holds everywhere. Throws
/// NoCoefficients and FluidLibraryError.
RatedCoefficients coefficientsOf(const CoefficientsRequest& request, const PointLoop& loop);

}  // namespace marvello

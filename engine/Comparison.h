#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/PreparedCatalogue.h"
#include "catalogue/clsProjectConditions.h"
#include "engine/Calculator.h"
#include "engine/Margins.h"
#include "engine/Performance.h"
#include "engine/PointLoop.h"

namespace marvello {

/// How many compressors are compared at once.
inline constexpr std::size_t maxCompared = 4;

/// The loads at which part-load running is compared, as shares of the full capacity.
inline constexpr std::array partLoadShares{0.75, 0.5, 0.25};

/// The key of the error of a compressor that the catalogue does not have.
inline constexpr std::string_view unknownCompressor = "frmcomparison.unknown";

/// A compressor of a comparison, with an operating point and options of its own. It names its compressor, so
/// that it outlives the catalogue that it was chosen from.
struct ComparedChoice {
    std::string refrigerant;
    std::string serie;
    std::string model;
    clsProjectConditions conditions;  ///< In metric units, with step and frequency.
    int machines = 1;                 ///< In parallel, all alike.

    bool operator==(const ComparedChoice&) const = default;
};

/// What of the conditions is the operating point: all that does not depend on the compressor.
struct OperatingPoint {
    double ted = 0;        ///< Evaporating dew temperature, degrees Celsius.
    double tcd = 0;        ///< Condensing dew temperature, degrees Celsius.
    double superheat = 0;  ///< K, or suction gas temperature in degrees Celsius.
    SuperheatKind superheatKind{};
    double subcooling = 0;  ///< K

    bool operator==(const OperatingPoint&) const = default;
};
OperatingPoint pointOf(const clsProjectConditions& conditions);
/// Returns the conditions with another operating point.
clsProjectConditions movedTo(const clsProjectConditions& conditions, const OperatingPoint& point);

/// What a choice comes to. Figures are those of one machine, as a selection at the conditions has them.
struct ComparedMachine {
    ComparedChoice choice;  ///< At conditions as the form of its series permits them.
    unsigned putBack = 0;   ///< Mask of `Selector`: what the choice asked for and the form does not permit.
    const PreparedCompressor* prepared = nullptr;       ///< Null if the catalogue does not have it.
    std::shared_ptr<const clsCompressor> calculated{};  ///< Null if it could not be calculated at all.
    Performance performance{};
    std::optional<Margin> margin{};  ///< To the application limit.
    /// At partLoadShares, the condensing temperature as it is and without a loss by starts: see PartLoad.
    std::array<std::optional<double>, partLoadShares.size()> partLoadCop{};

    bool isOnInverter() const { return prepared != nullptr && prepared->hasInvert; }
    /// The lines of its envelope for its conditions; null without any.
    const clsLimits* limits() const;
};

/// Choices next to each other, in their order.
struct Comparison {
    std::shared_ptr<const PreparedCatalogue> catalogue;  ///< Holds the compressors.
    std::vector<ComparedMachine> machines{};

    /// The operating point of all of them; none if they differ.
    std::optional<OperatingPoint> samePoint() const;
};

/// Calculates each choice. A failure is an error of its machine. Throws FluidLibraryError.
Comparison compare(std::span<const ComparedChoice> choices,
                   std::shared_ptr<const PreparedCatalogue> catalogue, Calculator& calculator);

/// Over which of the two dew temperatures a curve goes; the other one stays as it is.
enum class CurveAxis : std::uint8_t { evaporating, condensing };

struct CurvePoint {
    double at = 0;            ///< The temperature of the axis, degrees Celsius.
    bool beginsPart = false;  ///< No line leads here from the point before.
    Performance performance{};
};
using Curve = std::vector<CurvePoint>;

/// Calculates what each machine comes to along an axis: at each kelvin within its application limit, at the
/// limit itself, and at its operating point. Empty for one without such a limit. None if the loop was given
/// up. Throws FluidLibraryError.
std::optional<std::vector<Curve>> curvesOf(const Comparison& comparison, CurveAxis axis,
                                           const PointLoop& loop);

}  // namespace marvello

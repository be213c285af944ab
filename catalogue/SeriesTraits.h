#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "catalogue/Modes.h"

namespace marvello {

/// What turns the compressors of a series.
enum class Drive : std::uint8_t {
    motor,     ///< a built-in motor on the mains
    inverter,  ///< a built-in motor on an inverter
    open       ///< a motor outside, chosen by its speed; no mains frequency scales the surfaces
};

/// What `fField` distinguishes the surfaces of a model by.
enum class SurfaceRows : std::uint8_t {
    capacityStep,
    speed,       ///< of the shaft, 1/min
    volumeRatio  ///< ten times the built-in volume ratio; the best one is taken
};

/// The selectors that a series may switch on, as bits of its mask.
enum class Selector : unsigned {
    economizer = 1,
    stepCapacity = 2,
    oilCooling = 4,
    motorVoltage = 8,
    motorSize = 16,
    motorRpm = 32,
};

inline bool allows(unsigned mask, Selector selector) { return (mask & static_cast<unsigned>(selector)) != 0; }

/// A market that the form offers in place of the series.
struct MarketChoice {
    std::string_view key;
    std::string_view caption;
    Market market;
};

struct PowerLimit {
    std::string_view model;
    double kilowatts;
};

/// What sets a series apart from the others. All that is false, 0 or empty has no effect.
struct SeriesTraits {
    std::string_view name{};  ///< As the catalogue spells it; empty for a series without a row here.
    Drive drive = Drive::motor;
    SurfaceRows rows = SurfaceRows::capacityStep;
    unsigned inputs = 0;         ///< Mask of `Selector` in the form of compressors at mains frequency.
    bool hasSmallMotor = false;  ///< With the refrigerants that have it: adds the motor size to the inputs.
    std::span<const MarketChoice> markets{};

    bool isOnRequest = false;        ///< Made on request at full capacity.
    bool isLiquidInjected = false;   ///< Its injection is one of liquid.
    bool hasHVersions = false;       ///< Models with an "H" have connections for an oil cooler.
    bool needsConfirmation = false;  ///< With low-temperature refrigerants.
    bool hasAdaptiveRatio = false;   ///< The built-in volume ratio follows the pressure ratio.
    std::span<const PowerLimit> powerLimits{};
    std::string_view requestPrefix{};  ///< Models that begin so are available on request only ...
    std::span<const std::string_view> requestModels{};  ///< ... and these.
};

/// Returns the traits of a series, case ignored.
const SeriesTraits& seriesTraits(std::string_view series);

/// All series that have traits of their own.
std::span<const SeriesTraits> allSeriesTraits();

/// What sets a refrigerant apart from the others.
struct RefrigerantTraits {
    std::string_view name{};
    double maxSuperheat = 20;  ///< K
    bool isFlammable = false;  ///< Safety group A3, with versions for hydrocarbons.
    bool isForLowTemperature = false;
    bool hasSmallMotors = false;  ///< Series with a small motor have it with this refrigerant.
    /// The fPolynomialID of the surfaces that lead from a mid temperature back to the dew temperature. A
    /// refrigerant that has them is entered by mid temperatures too, and its evaporating one counts from
    /// the inlet after expansion.
    std::string_view evaporatingMidSurface{};
    std::string_view condensingMidSurface{};

    bool hasMidTemperatures() const { return !evaporatingMidSurface.empty(); }
};

/// Returns the traits of a refrigerant, case ignored.
const RefrigerantTraits& refrigerantTraits(std::string_view refrigerant);

/// Returns the mask of `Selector` that the form of a series permits with a refrigerant. The form of
/// compressors on an inverter permits all.
unsigned permittedSelectors(const SeriesTraits& series, const RefrigerantTraits& refrigerant);

/// The one that a new form begins with.
inline constexpr std::string_view firstRefrigerant = "R134A";

/// All refrigerants that have traits of their own.
std::span<const RefrigerantTraits> allRefrigerantTraits();

}  // namespace marvello

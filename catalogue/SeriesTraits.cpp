#include "catalogue/SeriesTraits.h"

#include <algorithm>
#include <array>

#include "data/Texts.h"

namespace marvello {

namespace {

constexpr unsigned operator|(Selector a, Selector b) {
    return static_cast<unsigned>(a) | static_cast<unsigned>(b);
}
constexpr unsigned operator|(unsigned mask, Selector selector) {
    return mask | static_cast<unsigned>(selector);
}

constexpr unsigned usual = Selector::economizer | Selector::oilCooling | Selector::motorVoltage;
constexpr unsigned stepped = usual | Selector::stepCapacity;
constexpr auto voltageAlone = static_cast<unsigned>(Selector::motorVoltage);
constexpr auto speedAlone = static_cast<unsigned>(Selector::motorRpm);

constexpr std::array marketsOfDz{MarketChoice{"DZ1", "DZ European market", Market::european},
                                 MarketChoice{"DZ2", "DZ Far East market", Market::farEast}};
constexpr std::array limitsOfMvJ{PowerLimit{"Q40", 51}, PowerLimit{"Q50", 52.2}, PowerLimit{"Q60", 58.5}};
constexpr std::array<std::string_view, 5> requestModelsOfDz{"7K2100", "7K2200", "7K2300", "7K2400", "7K2500"};

constexpr std::array series{
    SeriesTraits{.name = "NL-H", .drive = Drive::open, .rows = SurfaceRows::speed, .inputs = speedAlone},
    SeriesTraits{.name = "TK-A", .inputs = stepped, .hasSmallMotor = true},
    SeriesTraits{.name = "TK-A(P)", .inputs = stepped, .isOnRequest = true},
    SeriesTraits{.name = "TK-A(Q)", .inputs = stepped, .isOnRequest = true},
    SeriesTraits{.name = "TK-A(V)", .inputs = stepped},
    SeriesTraits{.name = "TK-B", .drive = Drive::inverter},
    SeriesTraits{.name = "TK-C", .drive = Drive::inverter},
    SeriesTraits{.name = "TK-D", .drive = Drive::inverter, .rows = SurfaceRows::volumeRatio},
    SeriesTraits{.name = "TK-E", .inputs = usual},
    SeriesTraits{.name = "MV-A", .inputs = usual, .hasSmallMotor = true, .needsConfirmation = true},
    SeriesTraits{.name = "MV-A(V)", .inputs = usual, .hasAdaptiveRatio = true},
    SeriesTraits{.name = "MV-E", .inputs = usual, .needsConfirmation = true},
    SeriesTraits{.name = "MV-G", .inputs = voltageAlone, .hasSmallMotor = true},
    SeriesTraits{.name = "MV-H", .inputs = voltageAlone, .hasSmallMotor = true},
    SeriesTraits{.name = "MV-J", .powerLimits = limitsOfMvJ},
    SeriesTraits{.name = "GH", .inputs = voltageAlone, .isLiquidInjected = true, .hasHVersions = true},
    SeriesTraits{.name = "GH4", .isLiquidInjected = true},
    SeriesTraits{.name = "DZ",
                 .inputs = usual,
                 .markets = marketsOfDz,
                 .requestPrefix = "7J",
                 .requestModels = requestModelsOfDz},
};

constexpr std::array refrigerants{
    RefrigerantTraits{.name = "R134A", .hasSmallMotors = true},
    RefrigerantTraits{.name = "R290", .maxSuperheat = 40, .isFlammable = true},
    RefrigerantTraits{.name = "R404A", .isForLowTemperature = true},
    RefrigerantTraits{
        .name = "R407C", .evaporatingMidSurface = "R407CTEM", .condensingMidSurface = "R407CTCM"},
    RefrigerantTraits{.name = "R507", .isForLowTemperature = true},
};

template <class Traits>
const Traits& named(std::span<const Traits> table, std::string_view name) {
    static constexpr Traits none;
    const auto found = std::ranges::find_if(
        table, [name](const Traits& traits) { return equalIgnoringCase(traits.name, name); });
    return found == table.end() ? none : *found;
}

}  // namespace

const SeriesTraits& seriesTraits(std::string_view name) { return named(allSeriesTraits(), name); }

std::span<const SeriesTraits> allSeriesTraits() { return series; }

const RefrigerantTraits& refrigerantTraits(std::string_view name) {
    return named(allRefrigerantTraits(), name);
}

std::span<const RefrigerantTraits> allRefrigerantTraits() { return refrigerants; }

unsigned permittedSelectors(const SeriesTraits& series, const RefrigerantTraits& refrigerant) {
    const bool hasSmallMotor = series.hasSmallMotor && refrigerant.hasSmallMotors;
    return hasSmallMotor ? series.inputs | Selector::motorSize : series.inputs;
}

}  // namespace marvello

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "catalogue/clsCompressor.h"
#include "engine/Performance.h"
#include "thermo/FluidState.h"
#include "thermo/clsRefprop.h"

namespace marvello {

/// What the liquid goes through between condenser and evaporator.
enum class EconomizerKind : std::uint8_t { none, plate, tank };

/// What a state of the cycle is.
enum class CyclePoint : std::uint8_t {
    suction,
    portBeforeMixing,  ///< The gas of the evaporator, compressed to the port.
    portMixed,         ///< With the gas that is injected there.
    discharge,         ///< With oil cooling where it is on.
    condenserDew,
    condenserBubble,
    liquid,                 ///< After the condenser.
    liquidAfterEconomizer,  ///< On its way to the evaporator.
    evaporatorInlet,
    economizerInlet,    ///< What has been expanded to the pressure of the economizer.
    economizerOutlet,   ///< The gas on its way to the port.
    dischargeUncooled,  ///< As it would be without oil cooling.
};

/// Returns the name of a point in files, such as "suction".
std::string_view nameOf(CyclePoint point);

/// One state of a cycle. Temperature, pressure and enthalpy are variables of the calculation unless they say
/// none: a state after a throttle, at saturation and in the tank is looked up, and so are entropy, density
/// and quality where the calculation does not have them.
struct CycleState {
    CyclePoint point{};
    FluidState state{};                ///< degrees Celsius, bar absolute, kJ/kg, kJ/(kg K), kg/m^3
    double massFlow = 0;               ///< kg/h
    std::optional<var> t{}, p{}, h{};  ///< The variables that the values are.
};

/// States that follow one another.
struct CycleBranch {
    enum class Kind : std::uint8_t {
        main,        ///< Through the evaporator; ends where it begins.
        economizer,  ///< To the port.
        oilCooling   ///< The heat that the oil takes from the gas.
    };
    Kind kind{};
    std::vector<std::size_t> states;  ///< Positions in Cycle::states.
};

/// An energy balance, in kW. The first four close; compressor and condenser leave what is not in the gas, for
/// the discharge temperature is a surface of its own.
struct CycleBalance {
    enum class Part : std::uint8_t { evaporator, economizer, mixing, oilCooling, compressor, condenser };
    Part part{};
    double states = 0;  ///< Of the states and their flows.
    double other = 0;   ///< The capacity, power or load that is stated, or what the other flow takes in.
    double difference() const { return other - states; }
    bool closes() const { return part != Part::compressor && part != Part::condenser; }
};

/// Returns the name of a part in files, such as "evaporator".
std::string_view nameOf(CycleBalance::Part part);

/// What a cycle comes to.
struct CycleFigures {
    double refrigeratingEffect = 0;  ///< kJ/kg
    double pressureRatio = 0;
    double isentropicEfficiency = 0;         ///< At the shaft, 0 to 1.
    Performance::Duty duty{};                ///< As a whole, with what the economizer adds.
    std::optional<double> economizerGain{};  ///< Capacity that the economizer adds, kW.
    std::optional<double> portPressure{};    ///< bar
    double oilCoolerLoad = 0;                ///< kW
};

/// The calculated cycle of a compressor: its states in the order in which they are numbered, which ones
/// follow one another, what they balance to and its figures.
struct Cycle {
    EconomizerKind economizer = EconomizerKind::none;
    std::vector<CycleState> states;
    std::vector<CycleBranch> branches;
    std::vector<CycleBalance> balances;
    CycleFigures figures;
};

/// Returns the cycle of a calculated compressor; none for a compressor without values, and where a state has
/// no result. `refprop` is the property service of its refrigerant. Throws ArithmeticFault.
std::optional<Cycle> cycleOf(const clsCompressor& calculated, clsRefprop& refprop);

}  // namespace marvello

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace marvello {

/// The variables of the calculation, in the order of its stages. Their meaning is in `definitionOf`.
enum class var : std::uint8_t {
    // clang-format off
    Ted, Tcd, ShType, Sh, Sc, OC, OCCalculateMode, EcoCalculateMode, Eco, Fm, MotorType, Vm, InverterFrequency,
    Pe, Teb, Tem, Pc, Tcb, Tcm,
    Tga, Hga, Sga, Dga, Tga10, Hga10, Sga10, Dga10,
    Plb, Tlb, Tl, Hl, Hlb, Tlba, Hcb, hlba, HE,
    Q010, Pta010,
    M010, V010, Mbase, Qbase, Q0, Pta,
    CA, Fla, Lra1, Lra2,
    COP, EER,
    T21, Tsca, H21,
    Pra, H2Rif,
    PLiq, T3, H3,
    Mev, T2Iso, H2Iso, EtaIso, EtaComp, EtaComp1,
    P9, H9Iso, H9, T9, T9D, D9D,
    meco, EcoOK, EcoModel,
    T7D, T7, D7, H7, P7, Peco, H71, P71, T71, S71, H7Iso, h2, T2, T6, Qeco, H31, T31, SCeco,
    PtaEco, CAECO, Pcool, H2cool, CopEco, TSat,
    Qc, QcEco,
    // clang-format on
};

inline constexpr std::size_t variableCount = static_cast<std::size_t>(var::QcEco) + 1;

/// The stage of the calculation in which a variable first gets its value.
enum class Stage : std::uint8_t {
    input,
    saturation,
    suction,
    liquid,
    surfaces,
    flows,
    currents,
    efficiency,
    discharge,
    oilCooling,
    economizerLiquid,
    economizerEfficiencies,
    economizerPort,
    economizerSearch,
    economizerCycle,
    economizerResults,
    condenser,
};

inline constexpr std::size_t stageCount = static_cast<std::size_t>(Stage::condenser) + 1;

/// What a variable is. `unit` is that of the value, empty for a ratio, a mode or a text; `shownUnit` and
/// `description` are the texts that results carry, which files and windows rely on as they are.
struct VariableDefinition {
    var id;
    Stage stage;
    std::string_view name;
    std::string_view meaning;
    std::string_view unit;
    /// As a textbook writes it; the page of variables explains the notation.
    std::string_view formula;
    std::string_view shownUnit = {};
    std::string_view description = {};
};

/// The definitions of all variables, in the order of `var`.
std::span<const VariableDefinition> variableDefinitions();

const VariableDefinition& definitionOf(var variable);

/// Returns the variable of a name, case ignored; none for a name that the calculation does not know.
std::optional<var> variableNamed(std::string_view name);

/// Returns what a stage is called.
std::string_view nameOf(Stage stage);

}  // namespace marvello

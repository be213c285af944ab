#include "catalogue/Variables.h"

#include <array>
#include <string>
#include <unordered_map>

#include "data/Texts.h"

namespace marvello {

namespace {

using enum Stage;

constexpr std::array<std::string_view, stageCount> stageNames{
    "Input",
    "Saturation",
    "Suction",
    "Liquid",
    "Reference surfaces",
    "Flows and capacity",
    "Currents",
    "Efficiency",
    "Discharge",
    "Oil cooling",
    "Economizer: liquid",
    "Economizer: efficiencies",
    "Economizer: port",
    "Economizer: search",
    "Economizer: cycle",
    "Economizer: results",
    "Condenser",
};

// Kept: some units and descriptions that results carry are odd or Italian ("Kw" for a mass flow, "Kw/h" for a
// power). Exports and reports have always had them.
constexpr std::array<VariableDefinition, variableCount> definitions{{
    {var::Ted, input, "Ted", "Evaporating dew temperature", "°C", ""},
    {var::Tcd, input, "Tcd", "Condensing dew temperature", "°C", ""},
    {var::ShType, input, "ShType", "What was entered as superheat: 0 a difference, other a temperature", "",
     ""},
    {var::Sh, input, "Sh", "Suction superheat", "K",
     "as entered + 0.0001; - Ted if a suction temperature was entered"},
    {var::Sc, input, "Sc", "Liquid subcooling", "K", "as entered + 0.0001"},
    {var::OC, input, "OC", "Limit of the discharge temperature", "°C",
     "limit of the catalogue if OCCalculateMode = 1, else as entered"},
    {var::OCCalculateMode, input, "OCCalculateMode",
     "Oil cooling: 0 none, 1 with the limit of the catalogue, 2 with the limit entered", "",
     "as entered; 0 without a discharge surface"},
    {var::EcoCalculateMode, input, "EcoCalculateMode",
     "Economizer: 0 none, 1 for a temperature approach, other for a capacity", "", ""},
    {var::Eco, input, "Eco", "Wanted approach in K (mode 1) or wanted capacity in kW", "K or kW", ""},
    {var::Fm, input, "Fm", "Mains frequency", "Hz", ""},
    {var::MotorType, input, "MotorType", "Motor asked for: -1 standard, 0 small, 1 full", "", ""},
    {var::Vm, input, "Vm", "Supply voltage", "V", ""},
    {var::InverterFrequency, input, "InverterFrequency", "Inverter frequency", "Hz", ""},

    {var::Pe, saturation, "Pe", "Evaporating pressure", "bar", "pdew(Ted)", "bar"},
    {var::Teb, saturation, "Teb", "Bubble pressure at a temperature that is numerically Pe", "bar",
     "pbub(Pe)", "C"},
    {var::Tem, saturation, "Tem", "Evaporating mid temperature", "°C",
     "(Teb - Sc + Ted) / 2; for R407C (Ted + t(Pe, h(Tcb - Sc, Pc))) / 2", "C"},
    {var::Pc, saturation, "Pc", "Condensing pressure", "bar", "pdew(Tcd)", "bar"},
    {var::Tcb, saturation, "Tcb", "Condensing bubble temperature", "°C", "tbub(Pc)", "C"},
    {var::Tcm, saturation, "Tcm", "Condensing mid temperature", "°C", "(Tcb - Sc + Tcd) / 2", "C"},

    {var::Tga, suction, "Tga", "Suction gas temperature", "°C", "Ted + Sh", "C"},
    {var::Hga, suction, "Hga", "Enthalpy of the suction gas", "kJ/kg", "h(Tga, Pe)", "kJ/kg"},
    {var::Sga, suction, "Sga", "Entropy of the suction gas", "kJ/kg-K", "s(Tga, Pe)", "kJ/kg-K"},
    {var::Dga, suction, "Dga", "Density of the suction gas", "kg/m³", "ρ(Tga, Pe)", "kg/m^3"},
    {var::Tga10, suction, "Tga10", "Suction gas temperature at the reference superheat", "°C", "Ted + 10",
     "C"},
    {var::Hga10, suction, "Hga10", "Its enthalpy", "kJ/kg", "h(Tga10, Pe)", "kJ/kg"},
    {var::Sga10, suction, "Sga10", "Its entropy", "kJ/kg-K", "s(Tga10, Pe)", "kJ/kg-K"},
    {var::Dga10, suction, "Dga10", "Its density", "kg/m³", "ρ(Tga10, Pe)", "kg/m^3"},

    {var::Plb, liquid, "Plb", "Pressure of the liquid", "bar", "Pc", "bar"},
    {var::Tlb, liquid, "Tlb", "Bubble temperature of the liquid", "°C", "Tcb", "C"},
    {var::Tl, liquid, "Tl", "Liquid temperature", "°C", "Tlb - Sc", "C"},
    {var::Hl, liquid, "Hl", "Enthalpy of the liquid", "kJ/kg", "h(Tl, Pc)", "kJ/kg"},
    {var::Hlb, liquid, "Hlb", "Enthalpy at the bubble temperature; cancels with Hcb in Q0", "kJ/kg",
     "h(Tlb, Plb)", "kJ/kg"},
    {var::Tlba, liquid, "Tlba", "Liquid temperature at the reference subcooling", "°C", "Tcb - 5", "C"},
    {var::Hcb, liquid, "Hcb", "Enthalpy at the bubble temperature", "kJ/kg", "h(Tcb, Pc)", "kJ/kg"},
    {var::hlba, liquid, "hlba", "Enthalpy of the liquid at the reference subcooling", "kJ/kg", "h(Tlba, Pc)",
     "kJ/kg"},
    {var::HE, liquid, "HE", "Enthalpy of the saturated vapour at the evaporating pressure", "kJ/kg",
     "h(Ted, Pe)"},

    {var::Q010, surfaces, "Q010", "Cooling capacity at the reference superheat and subcooling", "kW",
     "surface Q0 at (Ted, Tcd)", "KW", "Potenza frigo di riferimento"},
    {var::Pta010, surfaces, "Pta010", "Power input at the reference superheat", "kW",
     "surface Pta at (Ted, Tcd)", "KW", "Potenza Assorbita di riferimento"},

    {var::M010, flows, "M010", "Mass flow at the reference superheat and subcooling", "kg/h",
     "3600 · Q010 / (Hga10 - hlba)", "Kg/h", "Portata di massa di riferimento"},
    {var::V010, flows, "V010", "Volume flow that the compressor displaces", "m³/h", "M010 / Dga10", "",
     "Portata volumetrica di riferimento"},
    {var::Mbase, flows, "Mbase", "Mass flow", "kg/h", "V010 · Dga", "Kw", "Portata di Massa"},
    {var::Qbase, flows, "Qbase",
     "Q0 with the reference liquid, multiplied by 3600 instead of divided; nothing uses it", "kJ·s/h²",
     "3600 · Mbase · (Hga - hlba)"},
    {var::Q0, flows, "Q0", "Cooling capacity", "kW", "Mbase · (Hga - Hcb + Hlb - Hl) / 3600", "Kw/h",
     "Potenza Frigo"},
    {var::Pta, flows, "Pta", "Power input", "kW", "Pta010", "Kw/h"},

    {var::CA, currents, "CA", "Operating current", "A",
     "with a motor i(Pta · 50 / Fm) · Vref / Vm; on an inverter 1000 · Pta / (√3 · cosφ(Pta) · Vm)", "A"},
    {var::Fla, currents, "Fla", "Full-load current at the supply voltage", "A", "FLA · Vref / Vm"},
    {var::Lra1, currents, "Lra1", "Locked-rotor current at the supply voltage, first value", "A",
     "LRA1 · Vref / Vm"},
    {var::Lra2, currents, "Lra2", "Locked-rotor current at the supply voltage, second value", "A",
     "LRA2 · Vref / Vm"},

    {var::COP, efficiency, "COP", "Coefficient of performance, of the values as shown", "",
     "round(Q0) / round(Pta), each to one decimal"},
    {var::EER, efficiency, "EER", "Energy efficiency ratio", "Btu/Wh", "3.412 · COP"},

    {var::T21, discharge, "T21", "Discharge temperature without oil cooling", "°C",
     "surface of the discharge temperature at (Ted, Tcd) + Sh - its superheat + ctsca; with economizer "
     "without ctsca"},
    {var::Tsca, discharge, "Tsca", "Discharge temperature with oil cooling; \"-\" in mode 0", "°C",
     "min(T21, limit of the mode)"},
    {var::H21, discharge, "H21", "Enthalpy of the discharge gas", "kJ/kg", "h(T21, Pc)", "kJ/kg",
     "Entalpia di massa"},

    {var::Pra, oilCooling, "Pra", "Oil cooler load", "kW",
     "Mbase · (H21 - H2Rif) / 3600 if T21 > 0 and T21 ≥ OC, else 0; with economizer Pcool if T2 > OC", "Kw",
     "Raffreddamento Olio"},
    {var::H2Rif, oilCooling, "H2Rif", "Enthalpy of the discharge gas at the limit", "kJ/kg", "h(OC, Pc)"},

    {var::PLiq, economizerLiquid, "PLiq", "Pressure at the economizer port", "bar", "KForo · Pe"},
    {var::T3, economizerLiquid, "T3", "Liquid temperature at the economizer", "°C", "Tcb - Sc"},
    {var::H3, economizerLiquid, "H3", "Enthalpy of the liquid at the economizer", "kJ/kg", "h(T3, Pc)"},

    {var::Mev, economizerEfficiencies, "Mev", "Mass flow of the evaporator", "kg/h",
     "3600 · Q0 / (Hga - H3)"},
    {var::T2Iso, economizerEfficiencies, "T2Iso", "Discharge temperature of the isentropic compression", "°C",
     "t(Pc, Sga)"},
    {var::H2Iso, economizerEfficiencies, "H2Iso", "Discharge enthalpy of the isentropic compression", "kJ/kg",
     "h(Pc, Sga)"},
    {var::EtaIso, economizerEfficiencies, "EtaIso", "Isentropic efficiency at the shaft", "",
     "Mev · (H2Iso - Hga) / (3600 · Pta)"},
    {var::EtaComp, economizerEfficiencies, "EtaComp", "Compression efficiency", "",
     "EtaIso · (H21 - Hga) / (H2Iso - Hga)"},
    {var::EtaComp1, economizerEfficiencies, "EtaComp1", "Compression efficiency after the port", "",
     "1.05 · EtaComp"},

    {var::P9, economizerPort, "P9", "Pressure at the port", "bar", "KForo · Pe"},
    {var::H9Iso, economizerPort, "H9Iso", "Enthalpy of the isentropic compression at the port", "kJ/kg",
     "h(P9, Sga)"},
    {var::H9, economizerPort, "H9", "Enthalpy at the port", "kJ/kg",
     "Hga + (H9Iso - Hga) · EtaComp / EtaIso"},
    {var::T9, economizerPort, "T9", "Temperature at the port", "°C", "t(P9, H9)"},
    {var::T9D, economizerPort, "T9D", "Dew temperature at the port", "°C", "tdew(P9)"},
    {var::D9D, economizerPort, "D9D", "Density of the saturated vapour at the port", "kg/m³", "ρdew(P9)"},

    {var::meco, economizerSearch, "meco", "Mass flow of the economizer", "kg/h",
     "found by iteration, beginning at 0.01 · Mev"},
    {var::EcoOK, economizerSearch, "EcoOK", "-1 if the search ended before it began, else 0", "", ""},
    {var::EcoModel, economizerSearch, "EcoModel",
     "\"Piastra\" for a plate, \"Tank\" for a flash tank, \"Impossible\" without a solution", "", ""},

    {var::T7D, economizerCycle, "T7D", "Dew temperature of the injected gas", "°C", "tdew(P7)"},
    {var::T7, economizerCycle, "T7", "Temperature of the injected gas", "°C", "T7D + Sh"},
    {var::D7, economizerCycle, "D7", "Density of the injected gas", "kg/m³", "ρ(T7, P7)"},
    {var::H7, economizerCycle, "H7", "Enthalpy of the injected gas", "kJ/kg", "h(T7, P7)"},
    {var::P7, economizerCycle, "P7", "Injection pressure", "bar", "P9 + KPerdita / Sez · D7 / D9D · meco"},
    {var::Peco, economizerCycle, "Peco", "Pressure of the economizer", "bar", "P7"},
    {var::H71, economizerCycle, "H71", "Enthalpy after mixing", "kJ/kg",
     "(H7 · meco + H9 · Mev) / (meco + Mev)"},
    {var::P71, economizerCycle, "P71", "Pressure after mixing", "bar",
     "(P7 · meco + P9 · Mev) / (meco + Mev)"},
    {var::T71, economizerCycle, "T71", "Temperature after mixing", "°C", "t(P71, H71)"},
    {var::S71, economizerCycle, "S71", "Entropy after mixing", "kJ/kg-K", "s(P71, H71)"},
    {var::H7Iso, economizerCycle, "H7Iso", "Discharge enthalpy of the isentropic compression after mixing",
     "kJ/kg", "h(Pc, S71)"},
    {var::h2, economizerCycle, "h2", "Discharge enthalpy with economizer", "kJ/kg",
     "H71 + (H7Iso - H71) · EtaComp1 / EtaIso"},
    {var::T2, economizerCycle, "T2", "Discharge temperature with economizer", "°C", "t(Pc, h2)"},
    {var::T6, economizerCycle, "T6", "Bubble temperature of the economizer", "°C", "tbub(Peco)"},
    {var::Qeco, economizerCycle, "Qeco", "Capacity of the economizer", "kW", "meco · (H7 - H3) / 3600"},
    {var::H31, economizerCycle, "H31", "Enthalpy of the liquid after the economizer", "kJ/kg",
     "H3 - meco · (H7 - H3) / Mev"},
    {var::T31, economizerCycle, "T31", "Temperature of the liquid after the economizer", "°C", "t(Pc, H31)"},
    {var::SCeco, economizerCycle, "SCeco", "Subcooling by the economizer", "K", "T3 - T31"},

    {var::PtaEco, economizerResults, "PtaEco", "Power input with economizer", "kW",
     "(Pta + meco · (h2 - H71) / (3600 · EtaComp1)) · K, K = 1 if the catalogue has none"},
    {var::CAECO, economizerResults, "CAECO", "Operating current with economizer", "A",
     "i(PtaEco · 50 / Fm) · Vref / Vm", "A"},
    {var::Pcool, economizerResults, "Pcool", "Oil cooler load with economizer", "kW",
     "(meco + Mev) · (h2 - H2cool) / 3600 if T2 > OC, else 0", "Kw"},
    {var::H2cool, economizerResults, "H2cool", "Enthalpy of the discharge gas at the limit", "kJ/kg",
     "h(OC, Pc)"},
    {var::CopEco, economizerResults, "CopEco", "Coefficient of performance with economizer", "",
     "(Q0 + Qeco) / PtaEco"},
    {var::TSat, economizerResults, "TSat", "Dew temperature of the economizer", "°C", "tdew(Peco)"},

    {var::Qc, condenser, "Qc", "Condenser capacity", "kW", "Q0 + Pta", "", "Condenser Capacity"},
    {var::QcEco, condenser, "QcEco", "Condenser capacity with economizer", "kW",
     "Qc · (1 + meco / Mbase), meco = 0 without economizer", "", "Condenser Capacity with Eco"},
}};

constexpr bool isInOrder() {
    for (std::size_t i = 0; i < variableCount; ++i)
        if (definitions[i].id != static_cast<var>(i)) return false;
    return true;
}
static_assert(isInOrder(), "each variable needs its definition, in the order of `var`");

}  // namespace

std::span<const VariableDefinition> variableDefinitions() { return definitions; }

const VariableDefinition& definitionOf(var variable) {
    return definitions[static_cast<std::size_t>(variable)];
}

std::optional<var> variableNamed(std::string_view name) {
    static const auto byName = [] {
        std::unordered_map<std::string, var> names;
        for (const auto& definition : definitions) names.emplace(lowered(definition.name), definition.id);
        return names;
    }();
    const auto found = byName.find(lowered(name));
    if (found == byName.end()) return std::nullopt;
    return found->second;
}

std::string_view nameOf(Stage stage) { return stageNames[static_cast<std::size_t>(stage)]; }

}  // namespace marvello

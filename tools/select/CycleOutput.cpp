#include "tools/select/CycleOutput.h"

#include <array>
#include <utility>

#include "data/DictionaryTexts.h"
#include "data/Texts.h"
#include "engine/PhDiagram.h"
#include "results/CycleDrawing.h"
#include "results/ResultTable.h"
#include "results/Svg.h"
#include "tools/select/ConditionsJson.h"

namespace marvello::select {

namespace {

using Json = nlohmann::ordered_json;

template <class Value>
Json orNull(const std::optional<Value>& value) {
    return value ? Json(*value) : Json();
}

Json ofState(const CycleState& state, std::size_t number) {
    const FluidState& fluid = state.state;
    Json object{{"number", number},
                {"point", nameOf(state.point)},
                {"t", fluid.t},
                {"p", fluid.p},
                {"h", fluid.h},
                {"s", fluid.s},
                {"density", fluid.density},
                {"quality", orNull(fluid.quality)},
                {"massFlow", state.massFlow}};
    Json variables = Json::object();
    for (const auto& [name, variable] :
         {std::pair("t", state.t), std::pair("p", state.p), std::pair("h", state.h)})
        if (variable) variables[name] = definitionOf(*variable).name;
    object["variables"] = std::move(variables);
    return object;
}

Json ofBranch(const CycleBranch& branch) {
    constexpr std::array kinds{"main", "economizer", "oilCooling"};
    Json states = Json::array();
    for (const std::size_t state : branch.states) states.push_back(state + 1);
    return {{"kind", kinds.at(static_cast<std::size_t>(branch.kind))}, {"states", std::move(states)}};
}

Json ofFigures(const CycleFigures& figures) {
    const Performance::Duty& duty = figures.duty;
    return {{"refrigeratingEffect", figures.refrigeratingEffect},
            {"pressureRatio", figures.pressureRatio},
            {"isentropicEfficiency", figures.isentropicEfficiency},
            {"capacity", duty.capacity},
            {"power", duty.power},
            {"cop", duty.cop},
            {"condenserLoad", duty.condenserLoad},
            {"economizerGain", orNull(figures.economizerGain)},
            {"portPressure", orNull(figures.portPressure)},
            {"oilCoolerLoad", figures.oilCoolerLoad}};
}

Json ofBalance(const CycleBalance& balance) {
    return {{"part", nameOf(balance.part)},
            {"states", balance.states},
            {"other", balance.other},
            {balance.closes() ? "difference" : "notInTheGas", balance.difference()}};
}

template <class List, class Write>
Json listOf(const List& list, Write write) {
    Json json = Json::array();
    for (const auto& each : list) json.push_back(write(each));
    return json;
}

std::string asJson(const CycleAnswer& answer, UnitSystem) {
    constexpr std::array economizers{"none", "plate", "tank"};
    const Cycle& cycle = answer.cycle;
    Json states = Json::array();
    for (const CycleState& state : cycle.states) states.push_back(ofState(state, states.size() + 1));
    const Json object{{"conditions", conditionsJson(answer.run.request)},
                      {"compressor", nameOf(answer.compressor)},
                      {"economizer", economizers.at(static_cast<std::size_t>(cycle.economizer))},
                      {"units",
                       {{"t", "C"},
                        {"p", "bar"},
                        {"h", "kJ/kg"},
                        {"s", "kJ/(kg K)"},
                        {"density", "kg/m3"},
                        {"quality", "kg/kg"},
                        {"massFlow", "kg/h"},
                        {"power", "kW"}}},
                      {"states", std::move(states)},
                      {"branches", listOf(cycle.branches, ofBranch)},
                      {"figures", ofFigures(cycle.figures)},
                      {"balances", listOf(cycle.balances, ofBalance)}};
    return object.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::string asSvg(const CycleAnswer& answer, UnitSystem units) {
    constexpr double width = 840;
    constexpr double height = 700;
    const std::string& refrigerant = answer.compressor.Refrigerant;
    const auto diagram = phDiagramAround(answer.cycle, refrigerant, units);
    return svgOf(cycleDrawing(answer.cycle, *diagram,
                              {.width = width,
                               .height = height,
                               .shown = diagram->range,
                               .units = units,
                               .title = dictionaryText("frmselection.cycle.title") + ", " + refrigerant +
                                        ", " + nameOf(answer.compressor)}));
}

constexpr std::array formats{CycleFormat{"json", asJson}, CycleFormat{"svg", asSvg}};

}  // namespace

CycleAnswer calculatedCycle(const Run& run) {
    const clsSelections& selection = *run.selection;
    if (selection.Count() == 0) throw NothingMatches("No compressor matches.");
    const clsCompressor& compressor = **selection.begin();
    auto cycle = cycleOf(compressor, GetRefprop(compressor.Refrigerant));
    if (cycle) return {run, compressor, *std::move(cycle)};
    std::string why;
    for (const clsMessage& message : compressor.Messages.Error) why += " " + message.Description();
    if (trimmed(why).empty()) why = " A state of the refrigerant could not be calculated.";
    throw NothingMatches(nameOf(compressor) + " has no cycle at this operating point." + why);
}

std::span<const CycleFormat> cycleFormats() { return formats; }

const CycleFormat& cycleFormatOf(const std::string& name) {
    std::vector<std::string> names;
    for (const CycleFormat& format : formats) {
        if (equalIgnoringCase(format.name, name)) return format;
        names.emplace_back(format.name);
    }
    throw BadRequest(notOneOf("format", name, names));
}

UnitSystem unitSystemOf(const std::string& name) {
    if (equalIgnoringCase(name, "si")) return UnitSystem::metric;
    if (equalIgnoringCase(name, "ip")) return UnitSystem::imperial;
    throw BadRequest(notOneOf("units", name, {"si", "ip"}));
}

}  // namespace marvello::select

#include "results/PartLoadTexts.h"

#include <array>
#include <vector>

#include "data/Csv.h"
#include "data/DictionaryTexts.h"
#include "results/FigureTexts.h"

namespace marvello {

namespace {

using Kind = LoadRun::Kind;

constexpr std::array<Figure, 6> columns{Figure::capacity, Figure::power,    Figure::cop,
                                        Figure::current,  Figure::massFlow, Figure::dischargeTemperature};

std::string fieldOf(std::optional<double> value) { return value ? storedText(*value) : std::string(); }

/// A mean has no one current and no one discharge temperature: they are those of its states.
std::optional<double> valueOf(const LoadRun& run, Figure figure) {
    if (run.kind == Kind::none) return std::nullopt;
    if (run.kind == Kind::steady || run.kind == Kind::tooSmall)
        return marvello::valueOf(run.running.front().state.performance, figure);
    switch (figure) {
        case Figure::capacity:
            return run.capacity;
        case Figure::power:
            return run.power;
        case Figure::cop:
            return run.cop;
        case Figure::massFlow:
            return run.massFlow;
        default:
            return std::nullopt;
    }
}

void addState(std::vector<std::string>& fields, const PreparedCompressor& compressor,
              const TimedState* timed) {
    if (timed == nullptr) {
        fields.insert(fields.end(), 3, std::string());
        return;
    }
    const auto hertz = frequencyOf(compressor, timed->state.at.conditions);
    fields.push_back(storedText(timed->state.step()));
    fields.push_back(hertz ? storedText(*hertz) : std::string());
    fields.push_back(storedText(timed->share));
}

std::string lineOf(const PreparedCompressor& compressor, const SteadyLoad& load) {
    const Performance& performance = load.state.performance;
    std::vector<std::string> fields{"state", fieldOf(load.share),
                                    storedText(load.state.at.conditions.TCondensationDew),
                                    std::string(nameOf(load.share ? Kind::steady : Kind::none))};
    for (const Figure figure : columns) fields.push_back(fieldOf(marvello::valueOf(performance, figure)));
    const TimedState alone{load.state, 1};
    addState(fields, compressor, &alone);
    addState(fields, compressor, nullptr);
    fields.insert(fields.end(), {"", performance.error});
    return csvLine(fields);
}

std::string lineOf(const PreparedCompressor& compressor, const PartLoad& load) {
    const LoadRun& run = load.run;
    std::vector<std::string> fields{"share", storedText(load.share), storedText(load.condensing),
                                    std::string(nameOf(run.kind))};
    for (const Figure figure : columns) fields.push_back(fieldOf(valueOf(run, figure)));
    for (const std::size_t i : {0U, 1U})
        addState(fields, compressor, i < run.running.size() ? &run.running[i] : nullptr);
    const bool isIntermittent = run.kind == Kind::intermittent;
    fields.insert(fields.end(), {isIntermittent ? storedText(run.degradation) : std::string(), load.error});
    return csvLine(fields);
}

}  // namespace

std::string_view nameOf(LoadRun::Kind kind) {
    constexpr std::array<std::string_view, 5> names{"none", "steady", "blended", "intermittent", "tooSmall"};
    return names.at(static_cast<std::size_t>(kind));
}

std::string percentText(double share, const NumberMarks& marks) {
    return formatNumber(share * 100, "#0", marks) + " %";
}

std::string stateText(const PreparedCompressor& compressor, const CapacityState& state,
                      const NumberMarks& marks) {
    if (const auto hertz = frequencyOf(compressor, state.at.conditions))
        return formatNumber(static_cast<double>(*hertz), "#0.0", marks) + " Hz";
    return dictionaryText("frmselection.partload.step", {std::to_string(state.step())});
}

std::string runText(const PreparedCompressor& compressor, const LoadRun& run, const NumberMarks& marks) {
    const auto state = [&](std::size_t i) { return stateText(compressor, run.running[i].state, marks); };
    const auto time = [&](std::size_t i) { return percentText(run.running[i].share, marks); };
    switch (run.kind) {
        case Kind::steady:
            return dictionaryText("frmselection.partload.steady", {state(0)});
        case Kind::blended:
            return dictionaryText("frmselection.partload.blended", {state(0), time(0), state(1), time(1)});
        case Kind::intermittent:
            return dictionaryText("frmselection.partload.intermittent", {state(0), time(0)});
        case Kind::tooSmall:
            return dictionaryText("frmselection.partload.toosmall", {state(0)});
        case Kind::none:
            break;
    }
    return {};
}

std::string partLoadCsv(const PreparedCompressor& compressor, const PartLoadTable& table) {
    std::vector<std::string> heading{"row", "load", "tcd", "mode"};
    for (const Figure figure : columns) heading.emplace_back(nameOf(figure));
    heading.insert(heading.end(),
                   {"step", "frequency", "time", "step2", "frequency2", "time2", "degradation", "error"});
    std::string text = csvLine(heading);
    for (const SteadyLoad& load : table.states) text += lineOf(compressor, load);
    for (const PartLoad& load : table.shares) text += lineOf(compressor, load);
    return text;
}

}  // namespace marvello

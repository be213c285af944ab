#include "tools/select/PartLoadOutput.h"

#include <nlohmann/json.hpp>
#include <vector>

#include "data/DictionaryTexts.h"
#include "data/Numbers.h"
#include "results/FigureTexts.h"
#include "results/Messages.h"
#include "results/PartLoadTexts.h"
#include "tools/select/AlignedTable.h"
#include "tools/select/MessagesJson.h"

namespace marvello::select {

namespace {

using Json = nlohmann::ordered_json;

std::string numberOf(std::optional<double> value, std::string_view pattern) {
    return value ? formatNumber(*value, pattern) : "-";
}

Cells cellsOf(const PreparedCompressor& compressor, const SteadyLoad& load) {
    const Performance& performance = load.state.performance;
    const auto figure = [&](Figure each, std::string_view pattern = "#0.0") {
        return numberOf(valueOf(performance, each), pattern);
    };
    return {stateText(compressor, load.state),
            std::string(nameOf(performance.state)),
            load.share ? formatNumber(*load.share * 100, "#0.0") : "-",
            formatNumber(load.state.at.conditions.TCondensationDew, "#0.0"),
            figure(Figure::capacity),
            figure(Figure::power),
            figure(Figure::current),
            figure(Figure::cop, "#0.00"),
            figure(Figure::massFlow),
            figure(Figure::dischargeTemperature)};
}

/// What there is to say of a state, in the lines below it.
std::string sentencesOf(const SteadyLoad& load) {
    std::string text;
    for (const ShownMessage& message : messagesOf(load.messages))
        if (message.severity != Severity::information) text += "    " + message.text + '\n';
    return text;
}

std::string statesText(const PartLoadAnswer& answer) {
    std::vector<Cells> lines{
        {"State", "", "Load %", "Tcd C", "Q0 kW", "Pta kW", "CA A", "COP", "Mbase kg/h", "T21 C"}};
    for (const SteadyLoad& load : answer.table.states) lines.push_back(cellsOf(answer.compressor, load));
    const auto widths = widthsOf(lines, {12, 9, 9, 9, 9, 9, 9, 9, 11, 9});
    std::string text = lineText(lines.front(), widths, 2);
    for (std::size_t i = 0; i < answer.table.states.size(); ++i)
        text += lineText(lines[i + 1], widths, 2) + sentencesOf(answer.table.states[i]);
    return text;
}

std::string sharesText(const PartLoadAnswer& answer) {
    std::vector<Cells> lines{{"Load %", "Tcd C", "Q0 kW", "Pta kW", "COP", ""}};
    for (const PartLoad& load : answer.table.shares) {
        const bool isRunning = load.run.kind != LoadRun::Kind::none;
        const auto figure = [&](double value, std::string_view pattern = "#0.0") {
            return isRunning ? formatNumber(value, pattern) : std::string("-");
        };
        lines.push_back(
            {formatNumber(load.share * 100, "#0.0"), formatNumber(load.condensing, "#0.0"),
             figure(load.run.capacity), figure(load.run.power), figure(load.run.cop, "#0.00"),
             "  " + (isRunning ? runText(answer.compressor, load.run) : dictionaryText(load.error))});
    }
    const auto widths = widthsOf(lines, {9, 9, 9, 9, 9, 0});
    std::string text;
    for (Cells& line : lines) {
        const std::string words = std::exchange(line.back(), {});
        text += lineText(Cells(line.begin(), line.end() - 1), widths, 0);
        text.insert(text.size() - 1, words);
    }
    return text;
}

std::string tableText(const PartLoadAnswer& answer) {
    const clsProjectConditions& conditions = answer.call.request.conditions;
    std::string text = answer.compressor.Refrigerant + ' ' + answer.compressor.Serie + '-' +
                       answer.compressor.Model + " at " + storedText(conditions.TEvaporatingDew) + '/' +
                       storedText(conditions.TCondensationDew) + " C, condensing " +
                       (answer.call.condensing ? textOf(*answer.call.condensing) : "fixed") +
                       ", full load: " + stateText(answer.compressor, answer.table.full.state) + '\n';
    if (!answer.table.states.empty()) text += statesText(answer);
    if (!answer.table.shares.empty()) text += sharesText(answer);
    return text;
}

Json orNull(std::optional<double> value) { return value ? Json(*value) : Json(nullptr); }

Json stateJson(const PreparedCompressor& compressor, const CapacityState& state) {
    const auto hertz = frequencyOf(compressor, state.at.conditions);
    return {{"step", state.step()}, {"frequency", hertz ? Json(*hertz) : Json(nullptr)}};
}

Json stateJson(const PreparedCompressor& compressor, const SteadyLoad& load) {
    Json json = stateJson(compressor, load.state);
    json["share"] = orNull(load.share);
    json["tcd"] = load.state.at.conditions.TCondensationDew;
    json["state"] = nameOf(load.state.performance.state);
    for (const Figure figure : figures())
        json[std::string(marvello::nameOf(figure))] = orNull(valueOf(load.state.performance, figure));
    json["messages"] = messagesJson(messagesOf(load.messages));
    return json;
}

Json shareJson(const PreparedCompressor& compressor, const PartLoad& load) {
    const LoadRun& run = load.run;
    const bool isRunning = run.kind != LoadRun::Kind::none;
    const auto figure = [&](double value) { return isRunning ? Json(value) : Json(nullptr); };
    Json json{{"share", load.share},
              {"needed", load.needed},
              {"tcd", load.condensing},
              {"mode", marvello::nameOf(run.kind)},
              {"capacity", figure(run.capacity)},
              {"power", figure(run.power)},
              {"cop", figure(run.cop)},
              {"massFlow", figure(run.massFlow)},
              {"degradation", figure(run.degradation)},
              {"running", Json::array()}};
    for (const auto& [state, share] : run.running) {
        Json each = stateJson(compressor, state);
        each["share"] = share;
        each["capacity"] = orNull(valueOf(state.performance, Figure::capacity));
        each["power"] = orNull(valueOf(state.performance, Figure::power));
        json["running"].push_back(std::move(each));
    }
    if (!load.error.empty()) json["error"] = load.error;
    return json;
}

std::string jsonText(const PartLoadAnswer& answer) {
    Json json{{"refrigerant", answer.compressor.Refrigerant},
              {"series", answer.compressor.Serie},
              {"model", answer.compressor.Model},
              {"condensing", answer.call.condensing ? Json(textOf(*answer.call.condensing)) : Json(nullptr)},
              {"full", stateJson(answer.compressor, answer.table.full)},
              {"states", Json::array()},
              {"shares", Json::array()}};
    for (const SteadyLoad& load : answer.table.states)
        json["states"].push_back(stateJson(answer.compressor, load));
    for (const PartLoad& load : answer.table.shares)
        json["shares"].push_back(shareJson(answer.compressor, load));
    return json.dump(1) + '\n';
}

}  // namespace

std::string errorText(const SteadyLoad& load) {
    const auto messages = messagesOf(load.messages);
    return messages.empty() ? dictionaryText("messages.failedstep") : messages.front().text;
}

std::string partLoadText(const PartLoadAnswer& answer) {
    switch (answer.call.format) {
        case PartLoadFormat::csv:
            return partLoadCsv(answer.compressor, answer.table);
        case PartLoadFormat::json:
            return jsonText(answer);
        case PartLoadFormat::table:
            break;
    }
    return tableText(answer);
}

}  // namespace marvello::select

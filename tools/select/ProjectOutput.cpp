#include "tools/select/ProjectOutput.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <set>
#include <utility>

#include "data/Csv.h"
#include "data/Numbers.h"
#include "data/Texts.h"
#include "tools/select/AlignedTable.h"
#include "tools/select/ConditionsJson.h"
#include "tools/select/MessagesJson.h"
#include "tools/select/WordOf.h"

namespace marvello::select {

namespace {

using Json = nlohmann::ordered_json;

std::string kindOf(const ProjectItem& item) {
    const auto* const selection = std::get_if<SavedSelection>(&item.content);
    return selection == nullptr ? "comparison" : nameIn(formKindNames, selection->form);
}

std::string nameOf(const CompressorName& name) { return name.serie + '-' + name.model; }

std::string shown(std::optional<double> value) {
    return value ? formatNumber(*value, "#0.0##", NumberMarks()) : "-";
}

/// "the catalogue has other rows: power motor".
std::string reasonText(const Change& change) {
    std::string text;
    for (const ChangeReason reason : change.reasons) {
        if (!text.empty()) text += ", ";
        switch (reason) {
            case ChangeReason::row: {
                text += "the catalogue has other rows:";
                for (const CataloguePart part : change.parts) text += ' ' + nameIn(cataloguePartNames, part);
                break;
            }
            case ChangeReason::property:
                text += "other properties of the refrigerant";
                break;
            case ChangeReason::rule:
                text += "another calculation or other rules";
                break;
            case ChangeReason::missing:
                text += "the catalogue does not have it";
                break;
        }
    }
    return text;
}

std::string counted(std::size_t count, const char* noun) {
    return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}

std::string stateText(const CheckedResult& result) {
    if (result.isAsPromised()) return "as promised";
    if (!result.change.isInResults()) return "as promised; " + reasonText(result.change);
    if (result.change.isMissing()) return reasonText(result.change);
    const std::size_t messages = result.change.gained.size() + result.change.lost.size();
    return "changed: " + counted(result.change.values.size(), "value") + ", " + counted(messages, "message") +
           "; " + reasonText(result.change);
}

/// With all digits: a change may be in the last ones.
std::string stored(std::optional<double> value) { return value ? storedText(*value) : "-"; }

std::string changeLines(const Change& change) {
    const std::string indent(6, ' ');
    std::string text;
    for (const Change::Value& value : change.values)
        text += indent + value.name + ' ' + stored(value.promised) + " -> " + stored(value.today) + '\n';
    for (const PromisedMessage& message : change.gained)
        text += indent + "+ " + wordOf(message.severity) + ' ' + message.key + '\n';
    for (const PromisedMessage& message : change.lost)
        text += indent + "- " + wordOf(message.severity) + ' ' + message.key + '\n';
    return text;
}

bool isShown(const ProjectAnswer& answer, const CheckedResult& result) {
    return !answer.hasDifferencesAlone || result.change.isInResults();
}

std::string headText(const ProjectDetails& details) {
    std::string text = details.name;
    for (const std::string& part : {details.item, details.customer})
        if (!part.empty()) text += (text.empty() ? "" : ", ") + part;
    return text.empty() ? text : text + '\n';
}

std::string tableOf(const ProjectAnswer& answer) {
    constexpr std::array figures{"Q0", "Pta", "COP"};
    std::vector<Cells> lines{{"", "refrigerant", "T. E.", "T. C.", "Q0 kW", "Pta kW", "COP"}};
    std::vector<std::string> states{""};  // of each line, with the lines below it
    for (const CheckedItem& item : answer.items) {
        const auto isAny = [&](const CheckedResult& result) { return isShown(answer, result); };
        if (answer.hasDifferencesAlone && std::ranges::none_of(item.results, isAny)) continue;
        lines.push_back({item.item->title.empty() ? kindOf(*item.item) : item.item->title});
        states.emplace_back(item.results.empty() ? "  no promised results" : "");
        for (std::size_t i = 0; i < item.results.size(); ++i) {
            const CheckedResult& result = item.results[i];
            if (!isShown(answer, result)) continue;
            const PromisedResult& promised = item.item->promise->results[i];
            Cells& line = lines.emplace_back(Cells{
                "  " + nameOf(promised.compressor), promised.compressor.refrigerant,
                shown(promised.conditions.TEvaporatingDew), shown(promised.conditions.TCondensationDew)});
            for (const char* const figure : figures) {
                const auto& values = result.today ? result.today->values : promised.values;
                const auto found = values.find(figure);
                line.push_back(!result.today || found == values.end() ? "-" : shown(found->second));
            }
            states.push_back("  " + stateText(result) + '\n' + changeLines(result.change));
        }
    }
    constexpr std::size_t captionWidth = 24;
    constexpr std::size_t valueWidth = 10;
    std::vector<std::size_t> widths(lines.front().size(), valueWidth);
    widths.front() = captionWidth;
    widths = widthsOf(lines, widths);
    std::string text = headText(answer.project.details);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        std::string line = lineText(lines[i], widths, 2);
        line.erase(line.find_last_not_of(" \n") + 1);
        text += line + states[i];
        if (text.back() != '\n') text += '\n';
    }
    if (lines.size() == 1 && answer.hasDifferencesAlone) return "All results are as promised.\n";
    return text;
}

std::string csvOf(const ProjectAnswer& answer) {
    std::string text =
        csvLine({"item", "refrigerant", "series", "model", "variable", "promised", "today", "changed"});
    const auto valueIn = [](const std::map<std::string, double>& values, const std::string& name) {
        const auto found = values.find(name);
        return found == values.end() ? std::string() : storedText(found->second);
    };
    struct Line {
        std::string name, promised, today;
    };
    const auto add = [&](const CheckedItem& item, const PromisedResult& result, const Line& line,
                         bool isChanged) {
        const auto& [refrigerant, serie, model] = result.compressor;
        text += csvLine({item.item->title, refrigerant, serie, model, line.name, line.promised, line.today,
                         isChanged ? "yes" : "no"});
    };
    for (const CheckedItem& item : answer.items)
        for (std::size_t i = 0; i < item.results.size(); ++i) {
            const CheckedResult& result = item.results[i];
            const PromisedResult& promised = item.item->promise->results[i];
            const std::map<std::string, double> none;
            const auto& today = result.today ? result.today->values : none;
            std::set<std::string> names;
            for (const auto* const values : {&promised.values, &today})
                for (const auto& [name, value] : *values) names.insert(name);
            for (const std::string& name : names) {
                const bool isChanged =
                    !result.today || std::ranges::count(result.change.values, name, &Change::Value::name) > 0;
                if (answer.hasDifferencesAlone && !isChanged) continue;
                add(item, promised, {name, valueIn(promised.values, name), valueIn(today, name)}, isChanged);
            }
            for (const PromisedMessage& message : result.change.lost)
                add(item, promised, {message.key, wordOf(message.severity), {}}, true);
            for (const PromisedMessage& message : result.change.gained)
                add(item, promised, {message.key, {}, wordOf(message.severity)}, true);
        }
    return text;
}

Json messagesOf(const std::vector<PromisedMessage>& messages) {
    Json list = Json::array();
    for (const PromisedMessage& message : messages)
        list.push_back({{"severity", wordOf(message.severity)}, {"name", message.key}});
    return list;
}

Json changeJson(const Change& change) {
    Json json{{"reasons", Json::array()},
              {"rows", Json::array()},
              {"values", Json::array()},
              {"gained", messagesOf(change.gained)},
              {"lost", messagesOf(change.lost)}};
    const auto number = [](std::optional<double> value) { return value ? Json(*value) : Json(); };
    for (const ChangeReason reason : change.reasons)
        json["reasons"].push_back(nameIn(changeReasonNames, reason));
    for (const CataloguePart part : change.parts) json["rows"].push_back(nameIn(cataloguePartNames, part));
    for (const Change::Value& value : change.values)
        json["values"].push_back(
            {{"name", value.name}, {"promised", number(value.promised)}, {"today", number(value.today)}});
    return json;
}

Json resultJson(const PromisedResult& promised, const CheckedResult& checked) {
    Request request;
    request.refrigerant = promised.compressor.refrigerant;
    request.series = promised.compressor.serie;
    request.models = promised.compressor.model;
    request.conditions = promised.conditions;
    Json json{{"conditions", conditionsJson(request)}};
    json["values"] = checked.today ? Json(checked.today->values) : Json();
    json["messages"] = checked.today ? messagesOf(checked.today->messages) : Json();
    json["change"] = checked.isAsPromised() ? Json() : changeJson(checked.change);
    return json;
}

std::string jsonOf(const ProjectAnswer& answer) {
    const ProjectDetails& details = answer.project.details;
    Json object{{"name", details.name},
                {"item", details.item},
                {"customer", details.customer},
                {"differs", differs(answer.items)}};
    Json& items = object["items"] = Json::array();
    for (const CheckedItem& item : answer.items) {
        Json json{{"title", item.item->title}, {"kind", kindOf(*item.item)}};
        json["promised"] = item.item->promise ? Json(item.item->promise->date) : Json();
        Json& results = json["results"] = Json::array();
        for (std::size_t i = 0; i < item.results.size(); ++i)
            if (isShown(answer, item.results[i]))
                results.push_back(resultJson(item.item->promise->results[i], item.results[i]));
        if (!answer.hasDifferencesAlone || !results.empty()) items.push_back(std::move(json));
    }
    return object.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace

ProjectFormat projectFormatOf(const std::string& word) try {
    return wordOf(word,
                  std::array{std::pair{"table", ProjectFormat::table}, std::pair{"csv", ProjectFormat::csv},
                             std::pair{"json", ProjectFormat::json}});
} catch (const BadRequest& fault) {
    throw BadRequest(std::string("format: ") + fault.what());
}

bool differs(const std::vector<CheckedItem>& items) {
    return std::ranges::any_of(items, [](const CheckedItem& item) {
        return std::ranges::any_of(item.results,
                                   [](const CheckedResult& result) { return result.change.isInResults(); });
    });
}

std::string projectReport(const ProjectAnswer& answer, ProjectFormat format) {
    switch (format) {
        case ProjectFormat::csv:
            return csvOf(answer);
        case ProjectFormat::json:
            return jsonOf(answer);
        case ProjectFormat::table:
            break;
    }
    return tableOf(answer);
}

}  // namespace marvello::select

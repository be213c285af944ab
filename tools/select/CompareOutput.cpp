#include "tools/select/CompareOutput.h"

#include <nlohmann/json.hpp>
#include <vector>

#include "tools/select/AlignedTable.h"
#include "tools/select/ConditionsJson.h"
#include "tools/select/MessagesJson.h"

namespace marvello::select {

namespace {

using Json = nlohmann::ordered_json;

/// "34.3 *" for the best of a row, "34.3 (-3.7 %)" for a difference.
std::string cellText(const ComparedCell& cell) {
    return cell.text + (cell.difference.empty() ? "" : " (" + cell.difference + ")") +
           (cell.isBest ? " *" : "  ");
}

std::string tableOf(const ComparisonTable& table) {
    constexpr std::size_t captionWidth = 28;
    constexpr std::size_t valueWidth = 14;
    std::vector<Cells> lines{{""}, {""}};
    for (const ComparedHead& head : table.heads) {
        lines[0].push_back(head.name + "  ");
        lines[1].push_back(head.facts + "  ");
    }
    for (const ComparedGroup& group : table.groups) {
        lines.push_back({group.caption});
        for (const ComparedRow& row : group.rows) {
            Cells& line = lines.emplace_back(Cells{"  " + row.captionWithUnit()});
            for (const ComparedCell& cell : row.cells) line.push_back(cellText(cell));
        }
    }
    std::vector<std::size_t> widths(table.heads.size() + 1, valueWidth);
    widths.front() = captionWidth;
    widths = widthsOf(lines, widths);
    std::string text;
    for (const Cells& line : lines) text += lineText(line, widths, 1);
    for (const ComparedHead& head : table.heads)
        for (const ShownMessage& message : head.messages) text += head.label() + ": " + message.text + '\n';
    return text + "* best value of the row\n";
}

Json ofHead(const ComparedMachine& machine, const ComparedHead& head) {
    Request request;
    request.refrigerant = machine.choice.refrigerant;
    request.series = machine.choice.serie;
    request.models = machine.choice.model;
    request.conditions = machine.choice.conditions;
    return {{"machines", machine.choice.machines},
            {"conditions", conditionsJson(request)},
            {"state", nameOf(head.state)},
            {"messages", messagesJson(head.messages)}};
}

std::string jsonOf(const Comparison& comparison, const ComparisonTable& table,
                   std::optional<std::size_t> reference) {
    Json object{{"reference", reference ? Json(*reference + 1) : Json()}};
    Json& choices = object["choices"] = Json::array();
    for (std::size_t i = 0; i < table.heads.size(); ++i) {
        Json& choice = choices.emplace_back(ofHead(comparison.machines[i], table.heads[i]));
        Json values = Json::object();
        Json best = Json::array();
        Json differences = Json::object();
        for (const ComparedGroup& group : table.groups)
            for (const ComparedRow& row : group.rows) {
                const ComparedCell& cell = row.cells[i];
                const std::string name(row.name);
                values[name] = cell.value ? Json(*cell.value) : cell.text == "-" ? Json() : Json(cell.text);
                if (cell.isBest) best.push_back(name);
                if (!cell.difference.empty()) differences[name] = cell.difference;
            }
        choice["values"] = std::move(values);
        choice["best"] = std::move(best);
        if (reference) choice["differences"] = std::move(differences);
    }
    return object.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace

std::string comparisonText(const Comparison& comparison, std::optional<std::size_t> reference,
                           CompareFormat format) {
    const ComparisonTable table = comparisonTable(comparison, {.reference = reference});
    if (format == CompareFormat::csv) return comparisonCsv(table, reference.has_value());
    return format == CompareFormat::json ? jsonOf(comparison, table, reference) : tableOf(table);
}

}  // namespace marvello::select

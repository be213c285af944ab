#include "tools/select/FindOutput.h"

#include <algorithm>
#include <array>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

#include "data/Arithmetic.h"
#include "data/Csv.h"
#include "data/DictionaryTexts.h"
#include "data/Numbers.h"
#include "engine/Statements.h"
#include "results/Messages.h"
#include "tools/select/AlignedTable.h"
#include "tools/select/MessagesJson.h"

namespace marvello::select {

namespace {

using Json = nlohmann::ordered_json;

/// A candidate that is written, with what only its calculation knows.
struct Shown {
    const Candidate& candidate;
    std::vector<Margin> limits;
    std::vector<ShownMessage> messages;
};

std::vector<Shown> shownOf(const FindAnswer& answer) {
    const auto& candidates = answer.result.candidates;
    const std::size_t limit = answer.question.limit;
    const std::size_t count = limit == 0 ? candidates.size() : std::min(limit, candidates.size());
    std::vector<Shown> shown;
    for (const Candidate& candidate : std::span(candidates).first(count)) {
        const clsCompressor& calculated =
            answer.calculator.calculate(*candidate.compressor, candidate.conditions);
        shown.push_back({candidate, limitMargins(calculated, candidate.conditions), messagesOf(calculated)});
    }
    return shown;
}

/// Compressors that are not possible, by why: the key of a rule, or one of the others.
struct Rejected {
    int tooSmall = 0, tooLarge = 0, envelope = 0;
    std::map<std::string, int> rules;
};

Rejected rejectedOf(const FindResult& result) {
    Rejected counts;
    for (const Rejection& rejection : result.rejections) {
        switch (rejection.reason) {
            case Rejection::Reason::tooSmall:
                ++counts.tooSmall;
                break;
            case Rejection::Reason::tooLarge:
                ++counts.tooLarge;
                break;
            case Rejection::Reason::envelope:
                ++counts.envelope;
                break;
            case Rejection::Reason::rule:
                ++counts.rules[rejection.rule];
                break;
        }
    }
    return counts;
}

std::string modelOf(const Candidate& candidate) {
    return candidate.compressor->Serie + "-" + candidate.compressor->Model;
}

std::string nameOf(const Candidate& candidate) {
    const std::string machines = candidate.machines == 1 ? "" : std::to_string(candidate.machines) + " x ";
    return machines + modelOf(candidate);
}

std::string signedPercent(double percent) {
    const double shown = roundedToPlaces(percent, 1);
    return (shown > 0 ? "+" : "") + formatNumber(shown == 0 ? 0 : shown, "#0.0");
}

/// The frequency of an inverter, or a capacity step below 100 %.
std::string speedOf(const Candidate& candidate) {
    if (const auto frequency = candidate.frequency())
        return formatNumber(static_cast<double>(*frequency), "#0.0") + " Hz";
    const int step = candidate.conditions.StepCapacity;
    return step == 100 ? "" : std::to_string(step) + " %";
}

Cells headings() {
    return {"Compressor", "Refrigerant", "",         "Speed",  "Capacity kW", "Deviation %", "Power kW",
            "COP",        "Discharge C", "Margin K", "Nearest"};
}

Cells cellsOf(const Candidate& candidate) {
    Cells cells{nameOf(candidate), candidate.compressor->Refrigerant,
                candidate.hasWarnings ? "warning" : "ok", speedOf(candidate)};
    const auto add = [&](double value, std::string_view pattern) {
        cells.push_back(formatNumber(value, pattern));
    };
    add(candidate.capacity, "#0.0");
    cells.push_back(signedPercent(candidate.deviation));
    add(candidate.power, "#0.0");
    add(candidate.cop, "#0.00");
    add(candidate.dischargeTemperature, "#0.0");
    cells.push_back(candidate.margin ? formatNumber(candidate.margin->kelvin, "#0.0") : "-");
    cells.emplace_back(candidate.margin ? marvello::nameOf(candidate.margin->direction) : "");
    return cells;
}

std::string counted(std::size_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

std::string questionText(const FindRequest& request) {
    return formatNumber(request.needed, "#0.##") +
           (request.kind == CapacityKind::heating ? " kW of heating" : " kW of cooling") + " at " +
           storedText(request.conditions.TEvaporatingDew) + "/" +
           storedText(request.conditions.TCondensationDew) + " C within -" + storedText(request.below) +
           " % and +" + storedText(request.above) + " %";
}

std::string reasonsText(const FindResult& result) {
    const Rejected counts = rejectedOf(result);
    std::string text;
    const auto add = [&](int count, const std::string& reason) {
        if (count > 0) text += "    " + std::to_string(count) + "  " + reason + '\n';
    };
    add(counts.tooSmall, "too small");
    add(counts.tooLarge, "too large");
    add(counts.envelope, "outside the application limits");
    for (const auto& [rule, count] : counts.rules)
        add(count, rule == failureName ? "not calculated" : dictionaryText(rule));
    return text.empty() ? text : counted(result.rejections.size(), "compressor") + " not possible:\n" + text;
}

std::string tableOf(const FindAnswer& answer) {
    const std::vector<Shown> shown = shownOf(answer);
    const std::size_t count = answer.result.candidates.size();
    std::string text = questionText(answer.question.request) + ": " + counted(count, "solution");
    if (shown.size() < count) text += ", the first " + std::to_string(shown.size());
    text += '\n';
    std::vector<Cells> lines{headings()};
    for (const Shown& each : shown) lines.push_back(cellsOf(each.candidate));
    constexpr std::size_t words = 3;
    const auto widths = widthsOf(lines, std::vector<std::size_t>(lines.front().size(), 8));
    if (!shown.empty())
        for (const Cells& line : lines) text += lineText(line, widths, words);
    return text + reasonsText(answer.result);
}

std::string csvOf(const FindAnswer& answer) {
    std::string text =
        csvLine({"refrigerant", "series", "model", "machines", "step", "frequency", "capacity", "power",
                 "cop", "deviation", "dischargeTemperature", "margin", "direction", "mark", "messages"});
    for (const auto& [c, limits, messages] : shownOf(answer)) {
        std::string texts;
        for (const ShownMessage& message : messages) texts += (texts.empty() ? "" : " ") + message.text;
        const auto frequency = c.frequency();
        text += csvLine({c.compressor->Refrigerant, c.compressor->Serie, c.compressor->Model,
                         std::to_string(c.machines), std::to_string(c.conditions.StepCapacity),
                         frequency ? storedText(static_cast<double>(*frequency)) : "", storedText(c.capacity),
                         storedText(c.power), storedText(c.cop), storedText(c.deviation),
                         storedText(c.dischargeTemperature), c.margin ? storedText(c.margin->kelvin) : "",
                         std::string(c.margin ? marvello::nameOf(c.margin->direction) : ""),
                         c.hasWarnings ? "warning" : "ok", texts});
    }
    return text;
}

/// The names of the options that a series does not permit.
Json ofPutBack(unsigned mask) {
    constexpr std::array names{
        std::pair{Selector::economizer, "eco-mode"}, std::pair{Selector::oilCooling, "oc-mode"},
        std::pair{Selector::motorVoltage, "voltage"}, std::pair{Selector::motorSize, "motor-size"},
        std::pair{Selector::motorRpm, "rpm"}};
    Json list = Json::array();
    for (const auto& [selector, name] : names)
        if (allows(mask, selector)) list.push_back(name);
    return list;
}

Json ofCandidate(const Candidate& c) {
    Json object{{"refrigerant", c.compressor->Refrigerant},
                {"series", c.compressor->Serie},
                {"model", c.compressor->Model},
                {"machines", c.machines},
                {"step", c.conditions.StepCapacity},
                {"frequency", nullptr},
                {"capacity", c.capacity},
                {"power", c.power},
                {"cop", c.cop},
                {"deviation", c.deviation},
                {"dischargeTemperature", c.dischargeTemperature},
                {"margin", nullptr}};
    if (const auto frequency = c.frequency()) object["frequency"] = *frequency;
    if (c.margin) object["margin"] = c.margin->kelvin;
    return object;
}

Json ofShown(const Shown& shown) {
    const Candidate& c = shown.candidate;
    Json object = ofCandidate(c);
    std::vector<Margin> margins = shown.limits;
    if (c.margin) margins.insert(margins.begin(), *c.margin);
    Json& limits = object["limits"] = Json::array();
    for (const Margin& margin : margins)
        limits.push_back({{"name", limitName(margin.limitType)},
                          {"kelvin", margin.kelvin},
                          {"direction", marvello::nameOf(margin.direction)}});
    if (c.putBack != 0) object["putBack"] = ofPutBack(c.putBack);
    object["messages"] = messagesJson(shown.messages);
    return object;
}

std::string jsonOf(const FindAnswer& answer) {
    Json object{{"needed", answer.question.request.needed}, {"count", answer.result.candidates.size()}};
    Json& candidates = object["candidates"] = Json::array();
    for (const Shown& shown : shownOf(answer)) candidates.push_back(ofShown(shown));
    const Rejected counts = rejectedOf(answer.result);
    object["rejected"] = {{"tooSmall", counts.tooSmall},
                          {"tooLarge", counts.tooLarge},
                          {"envelope", counts.envelope},
                          {"rules", counts.rules}};
    if (const Candidate* nearest = answer.result.nearest(); nearest != nullptr && candidates.empty())
        object["nearest"] = ofCandidate(*nearest);
    return object.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

constexpr std::array formats = {FindFormat{"table", tableOf}, FindFormat{"csv", csvOf},
                                FindFormat{"json", jsonOf}};

}  // namespace

std::span<const FindFormat> findFormats() { return formats; }

const FindFormat& findFormatOf(const std::string& name) {
    const auto* const found = std::ranges::find(formats, name, &FindFormat::name);
    if (found != formats.end()) return *found;
    std::vector<std::string> names;
    for (const FindFormat& format : formats) names.emplace_back(format.name);
    throw BadRequest(notOneOf("format", name, names));
}

std::string nothingFound(const FindRequest& request, const FindResult& result) {
    std::string sentence = "No compressor has " + questionText(request);
    if (const Candidate* nearest = result.nearest()) {
        const std::string speed = speedOf(*nearest);
        sentence += "; the nearest is " + nameOf(*nearest) + " (" + nearest->compressor->Refrigerant +
                    (speed.empty() ? "" : ", " + speed) + ") with " +
                    formatNumber(nearest->capacity, "#0.0") + " kW";
    }
    return sentence + ".";
}

}  // namespace marvello::select

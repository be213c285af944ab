#include "tools/select/Output.h"

#include <algorithm>
#include <array>
#include <utility>

#include "data/Csv.h"
#include "data/Numbers.h"
#include "data/Texts.h"
#include "platform/UserLocale.h"
#include "results/AdviceTexts.h"
#include "results/ExportRecords.h"
#include "results/Messages.h"
#include "results/ResultTable.h"
#include "tools/select/AlignedTable.h"
#include "tools/select/JsonOutput.h"

namespace marvello::select {

namespace {

struct Column {
    std::string_view heading;
    var variable;
    std::string_view pattern;
};

constexpr std::array columns = {
    Column{"Q0 kW", var::Q0, "#0.0"}, Column{"Pta kW", var::Pta, "#0.0"}, Column{"CA A", var::CA, "#0.0"},
    Column{"COP", var::COP, "#0.00"}, Column{"T21 C", var::T21, "#0.0"},  Column{"Pra kW", var::Pra, "#0.0"},
};

const char* wordOf(Verdict verdict) {
    switch (verdict) {
        case Verdict::possible:
            return "ok";
        case Verdict::possibleWithWarnings:
            return "warning";
        case Verdict::notPossible:
            break;
    }
    return "error";
}

bool isListed(const clsCompressor& compressor, Verdict verdict, const Column& column) {
    return verdict != Verdict::notPossible && compressor.Variables.isSet(column.variable);
}

/// A message with the first of its causes.
std::vector<std::string> linesOf(const ShownMessage& message) {
    std::vector<std::string> lines{message.text};
    if (!message.causes.empty()) lines.push_back("Cause: " + message.causes.front());
    return lines;
}

std::vector<std::string> texts(const clsCompressor& compressor) {
    std::vector<std::string> result;
    for (const ShownMessage& message : messagesOf(compressor))
        for (std::string& line : linesOf(message)) result.push_back(std::move(line));
    return result;
}

Cells headings() {
    Cells cells{"Compressor", ""};
    for (const Column& column : columns) cells.emplace_back(column.heading);
    return cells;
}

Cells cellsOf(const clsCompressor& compressor) {
    const Verdict verdict = verdictOf(compressor);
    Cells cells{nameOf(compressor), wordOf(verdict)};
    for (const Column& column : columns)
        cells.push_back(isListed(compressor, verdict, column)
                            ? formatNumber(compressor.Variables[column.variable], column.pattern)
                            : "");
    return cells;
}

constexpr std::size_t words = 2;  // the cells in front of the figures

std::vector<std::size_t> usualWidths() {
    std::vector<std::size_t> widths(columns.size() + words, 9);
    widths.front() = 20;
    return widths;
}

std::string pointOf(const Request& request) {
    const clsProjectConditions& c = request.conditions;
    return request.refrigerant + " " + request.series + " at " + storedText(c.TEvaporatingDew) + "/" +
           storedText(c.TCondensationDew) + " C";
}

/// Three for a message at most, as the window shows them.
void addAdvice(std::string& text, const std::vector<MessageAdvice>& all, const MessageAdvice& about,
               const clsProjectConditions& conditions) {
    const std::string indent(8, ' ');
    if (about.advice.empty()) text += indent + noAdviceText() + '\n';
    for (const Advice& each : shownOf(about.advice)) {
        const ShownAdvice shown =
            shownAdvice(all, about.message, each, conditions, UnitSystem::metric, NumberMarks());
        text += indent + shown.text;
        if (!shown.step.empty()) text += " (" + shown.step + ')';
        if (!shown.effect.empty()) text += "; " + shown.effect;
        text += '\n';
    }
}

void addWithAdvice(std::string& text, const clsCompressor& compressor,
                   const std::vector<MessageAdvice>& advice, const clsProjectConditions& conditions) {
    for (const ShownMessage& message : messagesOf(compressor)) {
        for (const std::string& line : linesOf(message)) text += "    " + line + '\n';
        const auto about =
            std::ranges::find(advice, MessageId{message.severity, message.key}, &MessageAdvice::message);
        if (about != advice.end()) addAdvice(text, advice, *about, conditions);
    }
}

Frame noFrame(bool, bool) { return {}; }

void addTable(std::string& text, const Run& run, LineNumber) {
    const int count = run.selection->Count();
    text += pointOf(run.request) + ", " + std::to_string(count) +
            (count == 1 ? " compressor\n" : " compressors\n");
    std::vector<Cells> lines{headings()};
    for (const auto& compressor : *run.selection) lines.push_back(cellsOf(*compressor));
    const auto widths = widthsOf(lines, usualWidths());
    auto line = lines.begin();
    text += lineText(*line, widths, words);
    auto advice = run.advice.begin();
    for (const auto& compressor : *run.selection) {
        text += lineText(*++line, widths, words);
        if (advice == run.advice.end())
            for (const std::string& each : texts(*compressor)) text += "    " + each + '\n';
        else
            addWithAdvice(text, *compressor, *advice++, run.request.conditions);
    }
}

Frame csvFrame(bool isBatch, bool hasHeading) {
    if (!hasHeading) return {};
    std::vector<std::string> fields{"refrigerant", "series", "model", "ted", "tcd", "mark"};
    if (isBatch) fields.insert(fields.begin(), "line");
    for (const Column& column : columns) fields.emplace_back(definitionOf(column.variable).name);
    fields.emplace_back("messages");
    return {csvLine(fields), {}, {}};
}

void addCsv(std::string& text, const Run& run, LineNumber line) {
    const std::string number = line ? std::to_string(*line) + ',' : std::string();
    const clsProjectConditions& conditions = run.request.conditions;
    const std::string point =
        ',' + storedText(conditions.TEvaporatingDew) + ',' + storedText(conditions.TCondensationDew) + ',';
    for (const auto& compressor : *run.selection) {
        const Verdict verdict = verdictOf(*compressor);
        text += number + csvField(compressor->Refrigerant) + ',' + csvField(compressor->Serie) + ',' +
                csvField(compressor->Model) + point + wordOf(verdict) + ',';
        for (const Column& column : columns) {
            if (isListed(*compressor, verdict, column))
                text += storedText(compressor->Variables[column.variable]);
            text += ',';
        }
        std::string messages;
        for (const std::string& each : texts(*compressor)) messages += (messages.empty() ? "" : " ") + each;
        text += csvField(messages) + '\n';
    }
}

/// The list as a form shows it that was calculated with the request.
ResultTable listOf(const Run& run) {
    const bool hasEconomizer = run.request.conditions.EcoCalculateMode != EconomizerMode::none;
    return listResults(*run.selection, catalogueColumns(), {.hasEconomizer = hasEconomizer});
}

void addListXml(std::string& text, const Run& run, LineNumber) {
    text += resultsRecords(listOf(run)).toXml();
}

void addListCsv(std::string& text, const Run& run, LineNumber) {
    text += resultsRecords(listOf(run)).toCsv(userDecimalMark());
}

constexpr std::array allFormats = {
    Format{"table", true, true, 64, noFrame, addTable},
    Format{"csv", true, false, 64, csvFrame, addCsv},
    Format{"json", true, true, 8, jsonFrame, addJson},
    Format{"jsonl", true, true, 8, noFrame, addJsonLine},
    Format{"xml", false, false, 0, noFrame, addListXml},
    Format{"list-csv", false, false, 0, noFrame, addListCsv},
};

}  // namespace

std::span<const Format> formats() { return allFormats; }

const Format& formatOf(const std::string& name) {
    const auto* const found = std::ranges::find(allFormats, name, &Format::name);
    if (found != allFormats.end()) return *found;
    std::vector<std::string> names;
    for (const Format& format : allFormats) names.emplace_back(format.name);
    throw BadRequest(notOneOf("format", name, names));
}

}  // namespace marvello::select

#include "tools/select/Output.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <set>

#include "data/Csv.h"
#include "data/Globals.h"
#include "data/Texts.h"

namespace marvello::select {

namespace {

struct Column {
    const char* heading;
    const char* variable;
    int decimals;
};

constexpr std::array columns = {
    Column{"Q0 kW", "Q0", 1}, Column{"Pta kW", "Pta", 1}, Column{"CA A", "CA", 1},
    Column{"COP", "COP", 2},  Column{"T21 C", "T21", 1},  Column{"Pra kW", "Pra", 1},
};

const char* mark(const clsCompressor& compressor) {
    if (compressor.Messages.Error.Count() > 0) return "error";
    return compressor.Messages.Attention.Count() > 0 ? "warning" : "ok";
}

std::string label(const clsCompressor& compressor) { return compressor.Serie + "-" + compressor.Model; }

bool isListed(const clsCompressor& compressor, const Column& column) {
    return compressor.Messages.Error.Count() == 0 && compressor.Variables.Exist(column.variable) &&
           compressor.Variables.Item(column.variable).isNumber();
}

/// The texts of the errors, or without errors those of the warnings and notes.
std::vector<std::string> texts(const clsCompressor& compressor) {
    std::vector<std::string> result;
    std::set<std::string> told;
    const auto take = [&](const clsMessages& messages) {
        for (const clsMessage& message : messages) {
            std::string text = message.Description();
            if (text.empty()) text = gApplication().DictionaryRead("messages.failedstep");
            if (!told.insert(text).second) continue;
            result.push_back(std::move(text));
            if (!message.Cause.empty()) result.push_back("Cause: " + message.Cause);
        }
    };
    take(compressor.Messages.Error);
    if (!result.empty()) return result;
    take(compressor.Messages.Attention);
    take(compressor.Messages.Information);
    return result;
}

std::string fixed(double value, int decimals) {
    std::array<char, 400> buffer{};  // the largest double has 309 digits
    std::snprintf(buffer.data(), buffer.size(), "%.*f", decimals, value);
    return buffer.data();
}

/// Letters, not bytes.
std::size_t widthOf(const std::string& text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

std::string padded(std::string text, std::size_t wanted, bool right) {
    const std::size_t width = widthOf(text);
    if (width >= wanted) return text;
    return right ? text.insert(0, wanted - width, ' ') : text.append(wanted - width, ' ');
}

using Cells = std::vector<std::string>;

Cells headings() {
    Cells cells{"Compressor", ""};
    for (const Column& column : columns) cells.emplace_back(column.heading);
    return cells;
}

Cells cellsOf(const clsCompressor& compressor) {
    Cells cells{label(compressor), mark(compressor)};
    for (const Column& column : columns)
        cells.push_back(isListed(compressor, column)
                            ? fixed(compressor.Variables(column.variable), column.decimals)
                            : "");
    return cells;
}

/// The columns are as wide as usual, or as their widest cell and a blank need.
std::vector<std::size_t> widthsOf(const std::vector<Cells>& lines) {
    std::vector<std::size_t> widths(columns.size() + 2, 9);
    widths.front() = 20;
    for (const Cells& line : lines)
        for (std::size_t i = 0; i < line.size(); ++i) widths[i] = std::max(widths[i], widthOf(line[i]) + 1);
    return widths;
}

std::string lineText(const Cells& cells, const std::vector<std::size_t>& widths) {
    std::string text;
    for (std::size_t i = 0; i < cells.size(); ++i) text += padded(cells[i], widths[i], i > 1);
    return text + '\n';
}

std::string pointOf(const Request& request) {
    const clsProjectConditions& c = request.conditions;
    return request.refrigerant + " " + request.series + " at " + storedText(c.TEvaporatingDew) + "/" +
           storedText(c.TCondensationDew) + " C";
}

}  // namespace

std::string asTable(const std::vector<Run>& runs) {
    std::string out;
    for (const Run& run : runs) {
        const int count = run.selection->Count();
        out += pointOf(run.request) + ", " + std::to_string(count) +
               (count == 1 ? " compressor\n" : " compressors\n");
        std::vector<Cells> lines{headings()};
        for (const auto& compressor : *run.selection) lines.push_back(cellsOf(*compressor));
        const auto widths = widthsOf(lines);
        auto line = lines.begin();
        out += lineText(*line, widths);
        for (const auto& compressor : *run.selection) {
            out += lineText(*++line, widths);
            for (const std::string& text : texts(*compressor)) out += "    " + text + '\n';
        }
    }
    return out;
}

std::string asCsv(const std::vector<Run>& runs) {
    std::vector<std::string> fields{"refrigerant", "series", "model", "ted", "tcd", "mark"};
    for (const Column& column : columns) fields.emplace_back(column.variable);
    fields.emplace_back("messages");
    std::string out = csvLine(fields);
    for (const Run& run : runs) {
        for (const auto& compressor : *run.selection) {
            fields = {compressor->Refrigerant,
                      compressor->Serie,
                      compressor->Model,
                      storedText(run.request.conditions.TEvaporatingDew),
                      storedText(run.request.conditions.TCondensationDew),
                      mark(*compressor)};
            for (const Column& column : columns)
                fields.push_back(isListed(*compressor, column)
                                     ? storedText(compressor->Variables(column.variable))
                                     : std::string());
            std::string& all = fields.emplace_back();
            for (const std::string& text : texts(*compressor)) all += (all.empty() ? "" : " ") + text;
            out += csvLine(fields);
        }
    }
    return out;
}

}  // namespace marvello::select

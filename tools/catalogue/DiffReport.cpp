#include "tools/catalogue/DiffReport.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <utility>

#include "data/Csv.h"
#include "data/Numbers.h"
#include "data/Texts.h"
#include "tools/catalogue/ChangeReasons.h"
#include "tools/catalogue/DiffPage.h"

namespace marvello {

namespace {

std::string counted(std::size_t count, const std::string& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

/// Both texts with what they share at their ends left out, where they are long.
std::pair<std::string, std::string> shortened(std::string before, std::string after) {
    for (std::string* const text : {&before, &after})
        for (const char* end : {"\r", "\n"}) replaceAll(*text, end, " ");
    constexpr std::size_t most = 60;
    constexpr std::size_t kept = 16;  // around what differs
    if (letterCount(before) <= most && letterCount(after) <= most) return {before, after};
    const std::size_t shorter = std::min(before.size(), after.size());
    std::size_t head = 0;
    while (head < shorter && before[head] == after[head]) ++head;
    std::size_t tail = 0;
    while (tail < shorter - head && before[before.size() - 1 - tail] == after[after.size() - 1 - tail])
        ++tail;
    const auto cut = [&](const std::string& text) {
        std::size_t from = head > kept ? head - kept : 0;
        std::size_t to = std::min(text.size(), text.size() - tail + kept);
        // A help document that is another one altogether does not go into a line either.
        constexpr std::size_t longest = 200;
        to = std::min(to, from + longest);
        while (from > 0 && isContinuation(text[from])) --from;
        while (to < text.size() && isContinuation(text[to])) ++to;
        return (from > 0 ? "…" : "") + text.substr(from, to - from) + (to < text.size() ? "…" : "");
    };
    return {cut(before), cut(after)};
}

/// Both numbers with as many digits as tell them apart, six at least.
std::pair<std::string, std::string> shownPair(std::optional<double> before, std::optional<double> after) {
    constexpr int fewest = 6;
    constexpr int most = 17;
    const auto shown = [](std::optional<double> value, int digits) {
        std::array<char, 40> text{};
        if (!value) return std::string("-");
        std::snprintf(text.data(), text.size(), "%.*g", digits, *value);
        return plainText(storedNumber(text.data()).value_or(*value));
    };
    for (int digits = fewest;; ++digits) {
        std::pair<std::string, std::string> texts{shown(before, digits), shown(after, digits)};
        if (texts.first != texts.second || digits == most) return texts;
    }
}

std::string percentText(const FigureChange& figure) {
    const auto percent = figure.percent();
    if (!percent) return {};
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%+.3g", *percent);
    std::string digits = plainText(storedNumber(text.data() + 1).value_or(0));
    return text.front() + digits + " %";
}

std::string pointText(const clsPoint& point) {
    return storedText(point.x) + "/" + storedText(point.Y) + " °C";
}

/// What a row is called where a result names it as its reason.
std::string reasonText(const RowChange& row) {
    std::string text = row.table + " " + row.key;
    if (row.kind != ChangeKind::changed) return text + " (" + std::string(nameOf(row.kind)) + ")";
    std::string columns;
    for (const ColumnChange& column : row.columns) columns += (columns.empty() ? "" : ", ") + column.column;
    return text + " (" + columns + ")";
}

std::string messageText(const NamedMessage& message) {
    return message.severity + ": " +
           (message.text.empty() ? message.key : message.text + " (" + message.key + ")");
}

std::string reasonsOf(const ResultChange& change, const CatalogueDiff& rows) {
    std::string text;
    for (const std::size_t reason : change.reasons)
        text += (text.empty() ? "" : "; ") + reasonText(rows.rows[reason]);
    return text;
}

// The findings as sections of entries, for people.

DiffSection tableSection(const CatalogueDiff& diff) {
    DiffSection section{"Tables and columns", "Table"};
    for (const TableChange& change : diff.tables)
        section.entries.push_back({"", change.table, "", {}, {change.what}});
    return section;
}

/// How many results name each changed row.
std::map<std::size_t, std::size_t> effects(const ResultDiff& results) {
    std::map<std::size_t, std::size_t> counts;
    for (const ResultChange& change : results.changes)
        for (const std::size_t row : change.reasons) ++counts[row];
    return counts;
}

std::string effectText(std::size_t count) {
    return count == 0 ? "changes no result at a usual operating point"
                      : "is among the reasons of " + counted(count, "changed result");
}

void addRowSections(const DiffFindings& findings, std::vector<DiffSection>& sections) {
    std::map<std::size_t, std::size_t> counts;
    if (findings.results) counts = effects(*findings.results);
    for (std::size_t i = 0; i < findings.rows.rows.size(); ++i) {
        const RowChange& row = findings.rows.rows[i];
        if (sections.empty() || sections.back().title != row.table) sections.push_back({row.table, "Row"});
        DiffEntry entry{std::string(nameOf(row.kind)), row.key, row.place, {}, {}};
        for (const ColumnChange& column : row.columns) {
            auto [before, after] = shortened(column.before, column.after);
            entry.lines.push_back({column.column, std::move(before), std::move(after), "", ""});
        }
        if (findings.results && isReadByCalculations(row)) entry.notes.push_back(effectText(counts[i]));
        sections.back().entries.push_back(std::move(entry));
    }
}

DiffEntry resultEntry(const ResultChange& change, const CatalogueDiff& rows) {
    DiffEntry entry{std::string(nameOf(change.kind)), change.model, "", {}, {}};
    if (change.stateBefore != change.stateAfter)
        entry.lines.push_back({"state", change.stateBefore.empty() ? "-" : change.stateBefore,
                               change.stateAfter.empty() ? "-" : change.stateAfter, "", ""});
    for (const FigureChange& figure : change.figures) {
        auto [before, after] = shownPair(figure.before, figure.after);
        entry.lines.push_back(
            {figure.figure, std::move(before), std::move(after), figure.unit, percentText(figure)});
    }
    for (const NamedMessage& message : change.lost)
        entry.notes.push_back("message lost: " + messageText(message));
    for (const NamedMessage& message : change.gained)
        entry.notes.push_back("message gained: " + messageText(message));
    const std::string reasons = reasonsOf(change, rows);
    entry.notes.push_back(reasons.empty() ? "no changed row of its own explains it"
                                          : "because of " + reasons);
    return entry;
}

void addResultSections(const DiffFindings& findings, std::vector<DiffSection>& sections) {
    for (const ResultChange& change : findings.results->changes) {
        const std::string title = "Results of " + change.serie + " with " + change.refrigerant + " at " +
                                  pointText(change.point) + (change.economized ? ", economizer" : "");
        auto section = std::ranges::find(sections, title, &DiffSection::title);
        if (section == sections.end()) section = sections.insert(section, {title, "Model"});
        section->entries.push_back(resultEntry(change, findings.rows));
    }
}

std::string summaryOf(const DiffFindings& findings) {
    if (findings.areEqual()) return "The catalogues are equal.";
    std::array<std::size_t, 3> counts{};
    for (const RowChange& row : findings.rows.rows) ++counts[static_cast<std::size_t>(row.kind)];
    std::string text = counted(counts[2], "row") + " changed, " + std::to_string(counts[0]) + " added, " +
                       std::to_string(counts[1]) + " removed";
    if (!findings.rows.tables.empty())
        text += ", " + counted(findings.rows.tables.size(), "difference") + " of tables and columns";
    if (findings.results)
        text += "; " + counted(findings.results->changes.size(), "result") + " changed (of " +
                std::to_string(findings.results->calculations) + " calculations in both)";
    return text + ".";
}

std::string csvOf(const DiffFindings& findings) {
    std::string text = csvLine({"what", "change", "table", "key", "place", "column", "before", "after",
                                "unit", "percent", "reasons"});
    for (const TableChange& change : findings.rows.tables)
        text += csvLine({"table", change.what, change.table, "", "", "", "", "", "", "", ""});
    for (const RowChange& row : findings.rows.rows) {
        const std::string kind(nameOf(row.kind));
        if (row.columns.empty())
            text += csvLine({"row", kind, row.table, row.key, row.place, "", "", "", "", "", ""});
        for (const ColumnChange& column : row.columns)
            text += csvLine({"row", kind, row.table, row.key, row.place, column.column, column.before,
                             column.after, "", "", ""});
    }
    if (!findings.results) return text;
    const auto stored = [](const std::optional<double>& value) { return value ? storedText(*value) : ""; };
    for (const ResultChange& change : findings.results->changes) {
        const std::string reasons = reasonsOf(change, findings.rows);
        const auto add = [&](const std::string& column, const std::string& before, const std::string& after,
                             const std::string& unit, const std::string& percent) {
            text += csvLine({"result", std::string(nameOf(change.kind)), "",
                             change.refrigerant + ", " + change.serie + ", " + change.model +
                                 (change.economized ? ", economizer" : ""),
                             storedText(change.point.x) + "/" + storedText(change.point.Y), column, before,
                             after, unit, percent, reasons});
        };
        if (change.stateBefore != change.stateAfter)
            add("state", change.stateBefore, change.stateAfter, "", "");
        for (const FigureChange& figure : change.figures)
            add(figure.figure, stored(figure.before), stored(figure.after), figure.unit,
                stored(figure.percent()));
        for (const NamedMessage& message : change.lost) add(message.severity, message.key, "", "", "");
        for (const NamedMessage& message : change.gained) add(message.severity, "", message.key, "", "");
    }
    return text;
}

std::string entryText(const DiffEntry& entry) {
    std::string text = "  " + (entry.change.empty() ? "" : padded(entry.change, 9, false)) + entry.name +
                       (entry.place.empty() ? "" : "  (" + entry.place + ")") + "\n";
    std::size_t width = 0;
    for (const DiffLine& line : entry.lines) width = std::max(width, letterCount(line.caption));
    for (const DiffLine& line : entry.lines)
        text += "      " + padded(line.caption, width + 2, false) + line.before + " -> " + line.after +
                (line.unit.empty() ? "" : " " + line.unit) +
                (line.percent.empty() ? "" : "  (" + line.percent + ")") + "\n";
    for (const std::string& note : entry.notes) text += "      " + note + "\n";
    return text;
}

}  // namespace

std::string diffText(const DiffFindings& findings, DiffFormat format) {
    if (format == DiffFormat::csv) return csvOf(findings);
    std::vector<DiffSection> sections;
    if (!findings.rows.tables.empty()) sections.push_back(tableSection(findings.rows));
    addRowSections(findings, sections);
    if (findings.results) addResultSections(findings, sections);
    const std::string summary = summaryOf(findings);
    if (format == DiffFormat::html)
        return diffPage({findings.before, findings.after, summary, std::move(sections)});
    std::string text;
    for (const DiffSection& section : sections) {
        text += section.title + "\n";
        for (const DiffEntry& entry : section.entries) text += entryText(entry);
        text += "\n";
    }
    return text + summary + "\n";
}

}  // namespace marvello

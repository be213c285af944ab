#include "tools/catalogue/DiffPage.h"

#include <algorithm>

#include "data/Texts.h"

namespace marvello {

namespace {

constexpr const char* style = R"(
:root { color-scheme: light dark; --line: #d5d9de; --quiet: #5f6b78; --head: #f3f5f7; }
@media (prefers-color-scheme: dark) { :root { --line: #3a4149; --quiet: #9aa5b1; --head: #23282e; } }
body { font: 14px/1.45 system-ui, sans-serif; margin: 2rem auto; max-width: 72rem; padding: 0 1rem; }
h1 { font-size: 1.4rem; font-weight: 600; margin-bottom: .3rem; }
h2 { font-size: 1.05rem; font-weight: 600; margin: 2rem 0 .5rem; }
p { margin: .2rem 0; }
.quiet { color: var(--quiet); }
table { border-collapse: collapse; table-layout: fixed; width: 100%; }
thead th:first-child { width: 24%; }
thead th:nth-child(2) { width: 17%; }
thead th:nth-child(5) { width: 8%; }
thead th:nth-child(6) { width: 10%; }
th, td { text-align: left; vertical-align: top; padding: .25rem .6rem; overflow-wrap: anywhere; }
th { background: var(--head); font-weight: 600; }
th[scope=rowgroup] { background: none; }
th p { font-weight: normal; }
td { font-variant-numeric: tabular-nums; }
tbody { border-top: 1px solid var(--line); }
.number { text-align: right; white-space: nowrap; }
@media print { body { margin: 0; max-width: none; } tbody { break-inside: avoid; } }
)";

std::string escaped(std::string text) {
    replaceAll(text, "&", "&amp;");
    replaceAll(text, "<", "&lt;");
    replaceAll(text, ">", "&gt;");
    replaceAll(text, "\"", "&quot;");
    return text;
}

std::string cell(const std::string& text, const std::string& attributes = {}) {
    return "<td" + attributes + ">" + escaped(text) + "</td>";
}

/// The first column goes over all lines of the entry.
std::string entryRows(const DiffEntry& entry) {
    const std::size_t lines = std::max<std::size_t>(entry.lines.size() + entry.notes.size(), 1);
    std::string text = "<tbody>\n<tr><th scope=\"rowgroup\" rowspan=\"" + std::to_string(lines) + "\">" +
                       escaped(entry.name);
    std::string about = entry.change;
    if (!entry.place.empty()) about += (about.empty() ? "" : ", ") + entry.place;
    if (!about.empty()) text += "<p class=\"quiet\">" + escaped(about) + "</p>";
    text += "</th>";
    std::string begin;  // of each line but the first
    for (const DiffLine& line : entry.lines) {
        text += begin + cell(line.caption) + cell(line.before) + cell(line.after) + cell(line.unit) +
                cell(line.percent, " class=\"number\"") + "</tr>\n";
        begin = "<tr>";
    }
    for (const std::string& note : entry.notes) {
        text += begin + cell(note, " colspan=\"5\" class=\"quiet\"") + "</tr>\n";
        begin = "<tr>";
    }
    if (entry.lines.empty() && entry.notes.empty()) text += "<td colspan=\"5\"></td></tr>\n";
    return text + "</tbody>\n";
}

}  // namespace

std::string diffPage(const DiffReport& report) {
    std::string text =
        "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
        "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
        "<title>Changes of the catalogue</title>\n<style>";
    text += style;
    text += "</style>\n</head>\n<body>\n<h1>Changes of the catalogue</h1>\n<p class=\"quiet\">From " +
            escaped(report.before) + " to " + escaped(report.after) + "</p>\n<p>" + escaped(report.summary) +
            "</p>\n";
    for (const DiffSection& section : report.sections) {
        text += "<h2>" + escaped(section.title) + "</h2>\n<table>\n<thead><tr><th>" +
                escaped(section.entryCaption) +
                "</th><th>Value</th><th>Before</th><th>After</th>"
                "<th>Unit</th><th class=\"number\">Change</th></tr></thead>\n";
        for (const DiffEntry& entry : section.entries) text += entryRows(entry);
        text += "</table>\n";
    }
    return text + "</body>\n</html>\n";
}

}  // namespace marvello

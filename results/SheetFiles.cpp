#include "results/SheetFiles.h"

#include <array>
#include <string_view>

namespace marvello {

namespace {

using Kind = SheetLine::Kind;

std::string escaped(std::string_view text, std::string_view signs, const std::vector<std::string>& instead) {
    std::string result;
    for (const char sign : text) {
        const std::size_t found = signs.find(sign);
        result += found == std::string_view::npos ? std::string(1, sign) : instead[found];
    }
    return result;
}

/// The texts of a line in the order of the headings.
std::array<std::string, 6> cellsOf(const SheetLine& line) {
    return {line.symbol, line.meaning, line.formula, line.numbers, line.result, line.unit};
}

std::string textOf(const SheetLine& line) {
    constexpr std::string_view indent = "  ";
    std::string text(indent);
    if (line.kind == Kind::message)
        return text + line.meaning + (line.meaning.empty() ? "" : ": ") + line.result + '\n';
    if (line.kind == Kind::test) {
        text += line.meaning.empty() ? "" : line.meaning + ": ";
        text += line.formula + (line.numbers.empty() ? "" : ": " + line.numbers);
        return text + ": " + line.result + '\n';
    }
    const std::string next = '\n' + std::string(indent) + std::string(line.symbol.size(), ' ') + " = ";
    text += line.symbol + " = " + (line.formula.empty() ? line.result : line.formula);
    if (!line.numbers.empty() && line.numbers != line.result) text += next + line.numbers;
    if (!line.formula.empty() && line.formula != line.result) text += next + line.result;
    text += line.unit.empty() ? "" : ' ' + line.unit;
    return text + "    " + line.meaning + '\n';
}

}  // namespace

std::string sheetAsText(const std::string& title, const std::vector<SheetSection>& sections) {
    std::string text = title + '\n';
    for (const SheetSection& section : sections) {
        text += '\n' + section.title + '\n';
        for (const SheetLine& line : section.lines) text += textOf(line);
    }
    return text;
}

std::string sheetAsMarkdown(const std::string& title, const std::vector<SheetSection>& sections) {
    const auto row = [](const auto& cells) {
        std::string text = "|";
        for (const std::string& cell : cells)
            text += ' ' + escaped(cell, "|*<", {"\\|", "\\*", "\\<"}) + " |";
        return text + '\n';
    };
    std::string text = "# " + title + '\n';
    for (const SheetSection& section : sections) {
        text += "\n## " + section.title + "\n\n" + row(sheetHeadings()) + "|---|---|---|---|---:|---|\n";
        for (const SheetLine& line : section.lines) text += row(cellsOf(line));
    }
    return text;
}

std::string sheetAsHtml(const std::string& title, const std::vector<SheetSection>& sections) {
    const auto plain = [](std::string_view text) { return escaped(text, "&<>", {"&amp;", "&lt;", "&gt;"}); };
    const auto row = [&](const auto& cells, const std::string& kind) {
        std::string text = "<tr>";
        for (const std::string& cell : cells)
            text.append("<")
                .append(kind)
                .append(">")
                .append(plain(cell))
                .append("</")
                .append(kind)
                .append(">");
        return text + "</tr>\n";
    };
    std::string text =
        "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>" + plain(title) +
        "</title>\n<style>body { font: 10pt sans-serif } table { border-collapse: collapse; width: 100% }\n"
        "th, td { border-bottom: 1px solid #ccc; padding: 2px 8px; text-align: left; vertical-align: top }\n"
        "td:nth-child(5) { text-align: right; white-space: nowrap }</style></head>\n<body><h1>" +
        plain(title) + "</h1>\n";
    for (const SheetSection& section : sections) {
        text += "<h2>" + plain(section.title) + "</h2>\n<table>\n" + row(sheetHeadings(), "th");
        for (const SheetLine& line : section.lines) text += row(cellsOf(line), "td");
        text += "</table>\n";
    }
    return text + "</body></html>\n";
}

}  // namespace marvello

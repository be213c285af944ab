#include "tools/catalogue/DiffCommand.h"

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <CLI/Option.hpp>
#include <CLI/Validators.hpp>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <stdexcept>

#include "data/FileText.h"
#include "platform/Interrupt.h"
#include "platform/Terminal.h"
#include "tools/catalogue/DiffReport.h"
#include "tools/catalogue/Dump.h"

namespace marvello {

namespace {

namespace fs = std::filesystem;

constexpr int equal = 0;
constexpr int different = 1;
constexpr int faulty = 2;

const std::map<std::string, DiffFormat>& formats() {
    static const std::map<std::string, DiffFormat> all{
        {"table", DiffFormat::table}, {"csv", DiffFormat::csv}, {"html", DiffFormat::html}};
    return all;
}

/// Says on a terminal how far the calculations are, once they take long.
class ProgressLine {
  public:
    void show(std::size_t done, std::size_t all) {
        constexpr auto pause = std::chrono::milliseconds(500);
        const auto now = std::chrono::steady_clock::now();
        if (!isWanted_ || now - shown_ < pause) return;
        shown_ = now;
        std::fprintf(stderr, "\rcalculating: %zu of %zu", done, all);
        isShown_ = true;
    }
    ~ProgressLine() {
        if (isShown_) std::fprintf(stderr, "\r%40s\r", "");
    }
    ProgressLine() = default;
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

  private:
    const bool isWanted_ = isTerminal(stderr);
    std::chrono::steady_clock::time_point shown_ = std::chrono::steady_clock::now();
    bool isShown_ = false;
};

/// An interrupt of the user while the compressors are calculated.
struct Interrupted {};

/// Calculates the compressors of both. Throws Interrupted, without leaving a temporary file behind.
ResultDiff resultsOf(const Content& before, const Content& after, const CatalogueDiff& rows) {
    const Interrupt interrupt;
    ProgressLine line;
    return compareResults(before, after, rows, [&](std::size_t done, std::size_t all) {
        if (Interrupt::isAsked()) throw Interrupted();
        line.show(done, all);
    });
}

/// The content that the engine calculates with.
Content contentOf(const std::string& place, Faults& faults) {
    if (fs::is_directory(place)) return readContent(place, faults);
    std::string doubt;
    Content content = readCatalogue(place, &doubt);
    if (!doubt.empty()) std::cerr << "warning: " << place << ": " << doubt << '\n';
    return content;
}

int refuse(const Faults& faults, const std::string& place) {
    constexpr std::size_t most = 20;
    for (std::size_t i = 0; i < std::min(faults.lines().size(), most); ++i)
        std::cerr << faults.lines()[i] << '\n';
    if (faults.lines().size() > most) std::cerr << "and " << faults.lines().size() - most << " more errors\n";
    std::cerr << place << " has errors; correct them, or compare the rows alone with --no-results\n";
    return faulty;
}

void checkIsNoInput(const std::string& output, const std::string& input) {
    std::error_code ignored;
    if (fs::equivalent(output, input, ignored))
        throw std::runtime_error("--output: " + output + " is one of the catalogues; choose another name.");
}

void writeReport(const std::string& text, const std::string& output) {
    if (output.empty()) return printText(text);
    std::ofstream stream(output, std::ios::binary);
    stream << text;
    stream.close();
    if (!stream) throw std::runtime_error("The report cannot be written to " + output + ".");
}

}  // namespace

DiffCommand::DiffCommand(CLI::App& program)
    : command_(program.add_subcommand("diff", "Say what two catalogues differ in, and what that does")) {
    command_->add_option("OLD", before_, "A folder of text tables or a catalogue file")->required();
    command_->add_option("NEW", after_, "The one to compare it with, of either kind")->required();
    command_->add_option("--format", format_, "table, csv or html (table)")
        ->check(CLI::IsMember(formats()).description(""));
    command_->add_flag("--no-results", isWithoutResults_, "Compare the rows alone, and calculate nothing");
    command_->add_option("--output", output_, "A file for the report in place of the standard output");
}

int DiffCommand::run() const try {
    if (!output_.empty())
        for (const std::string& input : {before_, after_}) checkIsNoInput(output_, input);
    Faults faults;
    const auto before = readPlainTables(before_, faults);
    if (!faults.empty()) return refuse(faults, before_);
    const auto after = readPlainTables(after_, faults);
    if (!faults.empty()) return refuse(faults, after_);
    DiffFindings findings{before_, after_, compareTables(before, after)};
    // The same rows give the same results.
    if (!isWithoutResults_ && !findings.rows.isEmpty()) {
        const Content contentBefore = contentOf(before_, faults);
        if (!faults.empty()) return refuse(faults, before_);
        const Content contentAfter = contentOf(after_, faults);
        if (!faults.empty()) return refuse(faults, after_);
        findings.results = resultsOf(contentBefore, contentAfter, findings.rows);
    }
    writeReport(diffText(findings, formats().at(format_)), output_);
    return findings.areEqual() ? equal : different;
} catch (const Interrupted&) {
    return Interrupt::status;
}

}  // namespace marvello

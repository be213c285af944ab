// marvello-catalogue: for who maintains a catalogue. Builds the catalogue file from its text tables, checks
// them, compares two of them, writes the tables of a file or of a Jet database, and fits surfaces to rating
// points.

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <cmath>
#include <exception>
#include <filesystem>
#include <iostream>
#include <optional>
#include <stdexcept>

#include "data/FileText.h"
#include "data/Session.h"
#include "data/Texts.h"
#include "tools/catalogue/Check.h"
#include "tools/catalogue/DiffCommand.h"
#include "tools/catalogue/Dump.h"
#include "tools/catalogue/Fit.h"
#include "tools/catalogue/ImportCommand.h"
#include "tools/catalogue/Index.h"

namespace {

namespace fs = std::filesystem;
using namespace marvello;

constexpr int done = 0;
constexpr int failed = 2;

void print(const std::vector<std::string>& lines, const std::string& what) {
    constexpr std::size_t most = 50;
    for (std::size_t index = 0; index < std::min(lines.size(), most); ++index)
        std::cerr << lines[index] << '\n';
    if (lines.size() > most) std::cerr << "and " << lines.size() - most << " more " << what << "s\n";
}

std::string counted(std::size_t count, const std::string& what) {
    if (count == 0) return "no " + what;
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

struct ContentRequest {
    std::string folder;
    std::string fluids;
    std::optional<std::string> output;  ///< None for a check alone.
    bool isStrict = false;
    bool isForced = false;
};

/// Reads and checks the content; writes it when there is an output.
int runContent(const ContentRequest& request) {
    const bool isCheck = !request.output;
    if (!isCheck && request.output->empty())
        throw std::runtime_error("OUTPUT: the name of the catalogue file is empty.");
    Faults faults;
    const auto content = readContent(request.folder, faults);
    // A row at fault is not there, and what refers to it would only repeat the fault.
    if (faults.empty())
        checkContent(content, request.fluids.empty() ? std::nullopt : std::optional<fs::path>(request.fluids),
                     fs::path(request.folder) / "pictures", faults);
    print(faults.lines(), "error");
    if (isCheck || request.isStrict) print(faults.warnings(), "warning");
    printText(counted(faults.lines().size(), "error") + ", " + counted(faults.warnings().size(), "warning") +
              ": " + contentSummary(content) + "\n");
    if (!faults.empty() || (request.isStrict && !faults.warnings().empty())) return failed;
    if (!isCheck) writeCatalogue(content, *request.output, request.isForced);
    return done;
}

struct FitArguments {
    std::string file;
    RatingNames names;
    FitRequest request;
    std::string limitPoints;
    std::string contentFolder;
    std::string limitId;
};

/// The corners of the envelope that the arguments name.
std::vector<clsPoint> limitOf(const FitArguments& arguments) {
    if (!arguments.limitPoints.empty()) {
        const clsPoints line = parsePoints(arguments.limitPoints);
        return {line.begin(), line.end()};
    }
    if (arguments.limitId.empty()) return {};
    Faults faults;
    const auto content = readContent(arguments.contentFolder, faults);
    if (!faults.empty()) throw std::runtime_error(faults.lines().front());
    const Index index(content);
    const auto* const line = lineOfType(index.lines(arguments.limitId), limitType::application);
    if (!line)
        throw std::runtime_error("The envelope \"" + arguments.limitId + "\" has no application limit in " +
                                 arguments.contentFolder + ".");
    return {line->points.begin(), line->points.end()};
}

int runFit(FitArguments arguments) {
    if (arguments.request.polynomialId.find_first_of("';|,\"") != std::string::npos)
        throw std::runtime_error("--id: a name cannot hold one of ' ; | , \".");
    if (!std::isfinite(arguments.request.field))
        throw std::runtime_error("--field: the value is not finite.");
    const std::optional<std::string> text = fileText(arguments.file);
    if (!text) throw std::runtime_error("The file " + arguments.file + " cannot be read.");
    const std::string name = fs::path(arguments.file).filename().string();

    Faults faults;
    arguments.request.limit = limitOf(arguments);
    const auto points = readRatingPoints(*text, name, arguments.names, faults);
    const auto columns =
        faults.empty() ? fitColumns(points, arguments.request, name, faults) : std::vector<FittedColumn>{};
    if (!faults.empty()) {
        print(faults.lines(), "error");
        return failed;
    }
    // The rows can go straight into a table; the rest is for the eye.
    for (const auto& column : columns) printText(polynomialRow(column, arguments.request) + "\n");
    for (std::size_t i = 0; i < columns.size(); ++i) std::cerr << fitReport(columns[i], points, i);
    return done;
}

void describeFit(CLI::App& command, FitArguments& arguments, CLI::Option*& field) {
    command
        .add_option("POINTS", arguments.file, "A CSV table of rating points, columns named in its first line")
        ->required();
    command.add_option("--evaporating", arguments.names.evaporating,
                       "The column of the evaporating dew temperature, degrees Celsius (evaporating)");
    command.add_option("--condensing", arguments.names.condensing,
                       "The column of the condensing dew temperature, degrees Celsius (condensing)");
    command
        .add_option(
            "--value", arguments.names.values,
            "A column to fit, repeatable; without it all others. Columns whose names begin with power "
            "or Pta give rows of type 1, others of type 0")
        ->allow_extra_args(false);
    command.add_flag("--discharge", arguments.request.isDischarge,
                     "Fit discharge temperatures: nine coefficients, type 3");
    command.add_option("--id", arguments.request.polynomialId, "fPolynomialID of the rows (NAME)");
    field = command.add_option("--field", arguments.request.field,
                               "fField of the rows (100; with --discharge the superheat, 10)");
    auto* const limit = command.add_option("--limit", arguments.limitPoints,
                                           "The envelope, \"x,y;x,y;...\", to warn where points are missing");
    auto* const content =
        command.add_option("--content", arguments.contentFolder, "A folder of text tables, for --limit-id");
    command.add_option("--limit-id", arguments.limitId, "The envelope of tLimits instead of --limit")
        ->needs(content)
        ->excludes(limit);
}

}  // namespace

int main(int argc, char** argv) try {
    const Session session;
    CLI::App program(
        "Maintains the catalogue of Marvello: builds it from text tables, checks them, and more.",
        "marvello-catalogue");
    program.require_subcommand(1);

    ContentRequest content;
    auto* const build = program.add_subcommand("build", "Check the tables and write the catalogue file");
    auto* const check = program.add_subcommand("check", "Check the tables only, and tell the warnings");
    for (auto* const command : {build, check}) {
        command->add_option("CONTENT_FOLDER", content.folder, "The folder of the text tables")->required();
        command->add_option("--fluids", content.fluids, "The folder in which each fluid file must stand");
        command->add_flag("--strict", content.isStrict, "Take warnings for errors");
    }
    std::string output;
    build->add_option("OUTPUT", output, "The catalogue file to write")->required();
    build->add_flag("--force", content.isForced, "Replace a file that is not a catalogue");

    std::string file;
    std::string folder;
    bool isForced = false;
    auto* const dump = program.add_subcommand("dump", "Write the text tables of a catalogue file");
    dump->add_option("FILE", file, "The catalogue file")->required();
    dump->add_option("FOLDER", folder, "Where the tables are written")->required();
    dump->add_flag("--force", isForced, "Replace the tables that are there");

    const DiffCommand diff(program);
    const ImportCommand importing(program);

    FitArguments fitting;
    CLI::Option* field = nullptr;
    auto* const fit = program.add_subcommand("fit", "Fit the coefficients of a surface to rating points");
    describeFit(*fit, fitting, field);

    try {
        program.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        printText(program.help());
        return done;
    } catch (const CLI::ParseError& error) {
        return program.exit(error) == 0 ? done : failed;
    }
    if (*dump) {
        std::string doubt;
        writeTables(readCatalogue(file, &doubt), folder, isForced);
        if (!doubt.empty())
            std::cerr << "warning: " << file << ": " << doubt << "; look at the tables before you use them"
                      << '\n';
        return done;
    }
    if (diff.isGiven()) return diff.run();
    if (importing.isGiven()) return importing.run();
    if (*fit) {
        constexpr double usualSuperheat = 10;  // K
        if (fitting.request.isDischarge && field->count() == 0) fitting.request.field = usualSuperheat;
        return runFit(std::move(fitting));
    }
    if (*build) content.output = output;
    return runContent(content);
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return failed;
}

// A selection without a window, on the engine of the program.

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cmath>
#include <exception>
#include <map>
#include <string>
#include <thread>

#include "data/FileText.h"
#include "data/Numbers.h"
#include "data/Session.h"
#include "data/clsApplication.h"
#include "thermo/RefpropLibrary.h"
#include "tools/select/BatchRun.h"
#include "tools/select/CompareCommand.h"
#include "tools/select/CycleCommand.h"
#include "tools/select/Exit.h"
#include "tools/select/ExplainCommand.h"
#include "tools/select/FindCommand.h"
#include "tools/select/MapCommand.h"
#include "tools/select/Output.h"
#include "tools/select/PartLoadCommand.h"
#include "tools/select/ProjectCommand.h"
#include "tools/select/RatingCommand.h"
#include "tools/select/RefrigerantListing.h"
#include "tools/select/Request.h"
#include "tools/select/Run.h"
#include "tools/select/YearCommand.h"

namespace marvello::select {

namespace {

struct Arguments {
    std::map<std::string, std::string> options;  ///< By name of the request option.
    std::string format = "table";
    std::string jobs;
    std::string firstLine = "1";
    std::string folder;
    bool list = false;
    bool listRefrigerants = false;
    bool inverter = false;
    bool isBatch = false;
    bool advice = false;
    BatchOptions batch{.file = {}, .columns = {}, .language = defaultLanguage};
};

/// Reads a whole number from 1 on.
long long wholeNumber(const std::string& option, const std::string& text, long long maximum) try {
    return wholeNumberIn(text, 1, maximum);
} catch (const BadRequest& fault) {
    throw BadRequest(option + ": " + fault.what());
}

/// As many as there are processors if nothing is said.
int jobsOf(const std::string& text) {
    constexpr int most = 256;
    if (text.empty()) return std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 1, most);
    return static_cast<int>(wholeNumber("jobs", text, most));
}

/// One where the property library cannot do with more; says so if more were asked for.
int possibleJobs(int jobs, bool areAskedFor) {
    if (jobs == 1 || isRefpropConcurrent()) return jobs;
    if (areAskedFor)
        complain("jobs: the property library in the application folder calculates in one thread alone", done);
    return 1;
}

ExitStatus statusOf(bool hasCompressor) {
    if (hasCompressor) return done;
    complain("No compressor matches.", nothingMatches);
    return nothingMatches;
}

int selectBatch(const BatchOptions& options, const Format& format, const Request& base,
                const Choices& choices) {
    const BatchEnd end = runBatch(options, format, base, choices);
    if (end.isInterrupted)
        return complain("interrupted after line " + std::to_string(end.lastLine), interrupted);
    return end.hasBadLine ? someLinesBad : statusOf(end.hasCompressor);
}

int selectOne(const Format& format, const Request& request) {
    const Run run = carryOut(request);
    for (const std::string& remark : run.remarks) complain(remark, done);
    const Frame frame = format.frame(false, true);
    std::string text = frame.opening;
    format.add(text, run, {});
    printText(text + frame.closing);
    return statusOf(run.selection->Count() > 0);
}

int select(const Arguments& arguments) {
    const Format& format = formatOf(arguments.format);
    if (arguments.isBatch && !format.isForBatches)
        throw BadRequest("format: " + arguments.format +
                         " is the list of one selection; a batch has table, csv, json and jsonl");
    if (arguments.advice && !format.hasAdvice)
        throw BadRequest("advice: the format " + arguments.format +
                         " has no place for it; table, json and jsonl have");
    BatchOptions batch = arguments.batch;
    batch.jobs = jobsOf(arguments.jobs);
    batch.firstLine = wholeNumber("first-line", arguments.firstLine, 1'000'000'000'000'000);
    const Session session(arguments.folder);
    openCatalogue(batch.language);
    const Choices choices = catalogueChoices();
    Request base;
    base.hasAdvice = arguments.advice;
    for (const RequestOption& option : requestOptions()) {
        const auto given = arguments.options.find(std::string(option.name));
        if (given != arguments.options.end()) readOption(base, option, given->second, choices);
    }
    if (arguments.list || arguments.listRefrigerants) {
        printText(arguments.list ? catalogueListing(arguments.inverter)
                                 : refrigerantListing(arguments.inverter));
        return done;
    }
    if (!arguments.isBatch) return selectOne(format, base);
    batch.jobs = possibleJobs(batch.jobs, !arguments.jobs.empty());
    return selectBatch(batch, format, base, choices);
}

void addBatchOptions(CLI::App& app, Arguments& arguments) {
    BatchOptions& batch = arguments.batch;
    auto* const file = app.add_option("--batch", batch.file,
                                      "CSV file with one operating point a line, or - for standard input");
    app.add_option("--columns", batch.columns,
                   "with --batch: names of the columns of a file without a heading, such as ted,tcd")
        ->needs(file);
    app.add_flag_callback(
           "--no-header", [&batch] { batch.hasHeading = false; },
           "with --batch: leaves the heading of CSV out")
        ->needs(file);
    app.add_option("--first-line", arguments.firstLine,
                   "with --batch: number of the first line, of a piece of a longer file (1)")
        ->needs(file);
    app.add_option("--jobs", arguments.jobs, "with --batch: number of threads, 1 to 256 (the processors)")
        ->needs(file);
    app.add_flag("--strict", batch.isStrict, "with --batch: stops at the first bad line")->needs(file);
}

int run(int argc, char** argv) {
    CLI::App app("Selects Kestrom refrigeration compressors at an operating point.", "marvello-select");
    Arguments arguments;
    std::map<std::string, std::string> given;
    for (const RequestOption& option : requestOptions()) {
        const std::string name(option.name);
        app.add_option("--" + name, given[name], std::string(option.help));
    }
    app.add_flag("--inverter", arguments.inverter, "with either list: what runs on an inverter");
    app.add_option("--language", arguments.batch.language, "language of the texts (en-EN)");
    app.add_option("--format", arguments.format,
                   "table, csv, json or jsonl, or the list as the window exports it: xml or list-csv");
    app.add_flag("--advice", arguments.advice,
                 "adds to each message which input ends it, at which value (table, json and jsonl)");
    addBatchOptions(app, arguments);
    app.add_option("--app-folder", arguments.folder, "folder with db.mdb, the fluid library and Fluids");
    app.add_flag("--list", arguments.list, "prints refrigerants, series and models");
    app.add_flag("--list-refrigerants", arguments.listRefrigerants,
                 "prints the refrigerants with safety class, GWP, ODP and temperatures");
    const CompareCommand compare(app);
    const CycleCommand cycle(app);
    const FindCommand find(app);
    const MapCommand map(app);
    const PartLoadCommand partLoad(app);
    const ProjectCommand project(app);
    const RatingCommand rating(app);
    const ExplainCommand explain(app);
    const YearCommand year(app);
    app.set_version_flag("--version", "marvello-select " MARVELLO_VERSION);
    try {
        app.parse(argc, argv);
        if (compare.isGiven()) return compare.run();
        if (cycle.isGiven()) return cycle.run();
        if (find.isGiven()) return find.run();
        if (map.isGiven()) return map.run();
        if (partLoad.isGiven()) return partLoad.run();
        if (project.isGiven()) return project.run();
        if (rating.isGiven()) return rating.run();
        if (explain.isGiven()) return explain.run();
        if (year.isGiven()) return year.run();
    } catch (const CLI::CallForHelp&) {
        printText(app.help());
        return done;
    } catch (const CLI::CallForVersion& version) {
        printText(std::string(version.what()) + "\n");
        return done;
    } catch (const CLI::ParseError& fault) {
        return complain(fault.what(), refused);
    }
    for (const auto& [name, text] : given) {
        if (app.count("--" + name) > 0) arguments.options[name] = text;
    }
    arguments.isBatch = app.count("--batch") > 0;
    return select(arguments);
}

}  // namespace

}  // namespace marvello::select

int main(int argc, char** argv) {
    using namespace marvello::select;
    try {
        return run(argc, argv);
    } catch (const NothingMatches& fault) {
        return complain(fault.what(), nothingMatches);
    } catch (const std::exception& fault) {
        return complain(fault.what(), refused);
    }
}

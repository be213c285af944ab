// A selection without a window, on the engine of the program.

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "data/FileText.h"
#include "data/Session.h"
#include "data/clsApplication.h"
#include "data/clsDatabase.h"
#include "thermo/RefpropLibrary.h"
#include "tools/select/Batch.h"
#include "tools/select/Output.h"
#include "tools/select/Request.h"
#include "tools/select/Run.h"

namespace marvello::select {

namespace {

enum ExitStatus { done = 0, nothingMatches = 1, refused = 2, someLinesBad = 3 };

struct Arguments {
    std::map<std::string, std::string> options;  ///< By name of the request option.
    std::string language = defaultLanguage;
    std::string format = "table";
    std::string batchFile;
    std::string folder;
    bool list = false;
    bool inverter = false;
    bool isBatch = false;
    bool isStrict = false;  ///< Stops at the first bad line.
};

std::string readFile(const std::string& file) {
    std::optional<std::string> text = fileText(file);
    if (!text) throw BadRequest("the file " + file + " cannot be read");
    return *std::move(text);
}

int complain(const std::string& sentence, ExitStatus status) {
    std::fprintf(stderr, "marvello-select: %s\n", sentence.c_str());
    return status;
}

/// Runs a line of a batch; what is wrong with it, empty for nothing.
std::string runLine(BatchLine& line, std::vector<Run>& runs) {
    if (!line.fault.empty()) return line.fault;
    try {
        runs.push_back(carryOut(std::move(line.request)));
    } catch (const DatabaseError&) {
        throw;  // no other line would be better off
    } catch (const FluidLibraryError&) {
        throw;
    } catch (const std::exception& fault) {
        return fault.what();
    }
    for (const std::string& remark : runs.back().remarks) complain(line.place + ": " + remark, done);
    return {};
}

/// Runs the lines, and says which are bad. True if all are good.
bool runBatch(const Arguments& arguments, const Request& base, const Choices& choices,
              std::vector<Run>& runs) {
    bool areGood = true;
    for (BatchLine& line : readBatch(readFile(arguments.batchFile), arguments.batchFile, base, choices)) {
        const std::string fault = runLine(line, runs);
        if (fault.empty()) continue;
        complain(line.place + ": " + fault, done);
        areGood = false;
        if (arguments.isStrict) break;
    }
    return areGood;
}

std::string textOf(const std::vector<Run>& runs, const Arguments& arguments) {
    if (arguments.format == "json") return asJson(runs, arguments.isBatch);
    if (arguments.format == "csv") return asCsv(runs);
    if (arguments.format == "xml") return asListXml(runs.front());
    if (arguments.format == "list-csv") return asListCsv(runs.front());
    return asTable(runs);
}

int select(const Arguments& arguments) {
    const std::vector<std::string> formats{"table", "csv", "json", "xml", "list-csv"};
    if (std::ranges::find(formats, arguments.format) == formats.end())
        throw BadRequest(notOneOf("format", arguments.format, formats));
    if (arguments.isBatch && (arguments.format == "xml" || arguments.format == "list-csv"))
        throw BadRequest("format: " + arguments.format +
                         " is the list of one selection; a batch has table, csv and json");
    const Session session(arguments.folder);
    openCatalogue(arguments.language);
    const Choices choices = catalogueChoices();
    Request base;
    for (const auto& [name, text] : arguments.options) readOption(base, name, text, choices);
    if (arguments.list) {
        printText(catalogueListing(arguments.inverter));
        return done;
    }

    std::vector<Run> runs;
    bool areGood = true;
    if (arguments.isBatch) {
        areGood = runBatch(arguments, base, choices, runs);
    } else {
        runs.push_back(carryOut(base));
        for (const std::string& remark : runs.back().remarks) complain(remark, done);
    }
    printText(textOf(runs, arguments));
    if (!areGood) return someLinesBad;
    const auto has = [](const Run& run) { return run.selection->Count() > 0; };
    if (std::ranges::any_of(runs, has)) return done;
    return complain("No compressor matches.", nothingMatches);
}

int run(int argc, char** argv) {
    CLI::App app("Selects Kestrom refrigeration compressors at an operating point.", "marvello-select");
    Arguments arguments;
    std::map<std::string, std::string> given;
    for (const RequestOption& option : requestOptions()) {
        const std::string name(option.name);
        app.add_option("--" + name, given[name], std::string(option.help));
    }
    app.add_flag("--inverter", arguments.inverter, "with --list: what runs on an inverter");
    app.add_option("--language", arguments.language, "language of the texts (en-EN)");
    app.add_option("--format", arguments.format,
                   "table, csv or json, or the list as the window exports it: xml or list-csv");
    auto* const batch =
        app.add_option("--batch", arguments.batchFile, "CSV file with one operating point a line");
    app.add_flag("--strict", arguments.isStrict, "with --batch: stops at the first bad line")->needs(batch);
    app.add_option("--app-folder", arguments.folder, "folder with db.mdb, the fluid library and Fluids");
    app.add_flag("--list", arguments.list, "prints refrigerants, series and models");
    app.set_version_flag("--version", "marvello-select " MARVELLO_VERSION);
    try {
        app.parse(argc, argv);
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

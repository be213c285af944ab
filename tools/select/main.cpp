// A selection without a window, on the engine of the program.

#include <CLI/CLI.hpp>

#include <cstdio>
#include <exception>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "data/ApplicationFolder.h"
#include "data/clsApplication.h"
#include "tools/csv/FileText.h"
#include "tools/select/Batch.h"
#include "tools/select/Output.h"
#include "tools/select/Request.h"
#include "tools/select/Run.h"

namespace marvello::select {

namespace {

enum ExitStatus { done = 0, nothingMatches = 1, refused = 2 };

struct Arguments {
    std::map<std::string, std::string> options;  ///< By name of the request option.
    std::string language = defaultLanguage;
    std::string format = "table";
    std::string batchFile;
    std::string folder;
    bool list = false;
    bool inverter = false;
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

int select(const Arguments& arguments) {
    setApplicationFolder(arguments.folder);
    openCatalogue(arguments.language);
    if (arguments.list) {
        printText(catalogueListing(arguments.inverter));
        return done;
    }

    Request base;
    for (const auto& [name, text] : arguments.options) readOption(base, name, text);
    const bool batch = !arguments.batchFile.empty();
    const std::vector<Request> requests =
        batch ? readBatch(readFile(arguments.batchFile), arguments.batchFile, base) : std::vector{base};

    std::vector<Run> runs;
    int compressors = 0;
    for (const Request& request : requests) {
        runs.push_back(carryOut(request));
        compressors += runs.back().selection->Count();
        for (const std::string& remark : runs.back().remarks) complain(remark, done);
    }
    const std::string out = arguments.format == "json"  ? asJson(runs, batch)
                            : arguments.format == "csv" ? asCsv(runs)
                                                        : asTable(runs);
    printText(out);
    if (compressors > 0) return done;
    return complain("No compressor matches.", nothingMatches);
}

int run(int argc, char** argv) {
    CLI::App app("Selects Kestrom refrigeration compressors at a duty point.", "marvello-select");
    Arguments arguments;
    std::map<std::string, std::string> given;
    for (const RequestOption& option : requestOptions()) {
        const std::string name(option.name);
        app.add_option("--" + name, given[name], std::string(option.help));
    }
    app.add_flag("--inverter", arguments.inverter, "with --list: what runs on an inverter");
    app.add_option("--language", arguments.language, "language of the texts (en-EN)");
    app.add_option("--format", arguments.format, "table, csv or json")
        ->check(CLI::IsMember({"table", "csv", "json"}));
    app.add_option("--batch", arguments.batchFile, "CSV file with one duty point a line");
    app.add_option("--app-folder", arguments.folder, "folder with db.mdb, the fluid library and Fluids");
    app.add_flag("--list", arguments.list, "prints refrigerants, series and models");
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp& help) {
        return app.exit(help);
    } catch (const CLI::ParseError& fault) {
        return complain(fault.what(), refused);
    }
    for (const auto& [name, text] : given) {
        if (app.count("--" + name) > 0) arguments.options[name] = text;
    }

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

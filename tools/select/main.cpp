// A selection without a window, on the engine of the program.

#include <CLI/CLI.hpp>

#include <cstdio>
#include <exception>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "data/ApplicationFolder.h"
#include "data/clsApplication.h"
#include "tools/csv/Csv.h"
#include "tools/csv/Faults.h"
#include "tools/csv/FileText.h"
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

/// One request a line of the file, the columns named as the options; an option of the command line holds for
/// every line that does not state it.
std::vector<Request> readBatch(const std::string& file, const Request& base) {
    const std::optional<std::string> text = fileText(file);
    if (!text) throw BadRequest("the file " + file + " cannot be read");
    Faults faults;
    const std::vector<CsvRecord> records = readCsv(*text, file, faults);
    if (!faults.empty()) throw BadRequest(faults.lines().front());
    if (records.empty()) throw BadRequest(file + " has no header line");
    const std::vector<std::string>& header = records.front().fields;
    std::vector<Request> requests;
    for (std::size_t i = 1; i < records.size(); ++i) {
        const std::string place = file + ":" + std::to_string(records[i].line) + ": ";
        if (records[i].fields.size() != header.size()) {
            throw BadRequest(place + "the line has " + std::to_string(records[i].fields.size()) +
                             " fields, not " + std::to_string(header.size()));
        }
        Request request = base;
        try {
            for (std::size_t column = 0; column < header.size(); ++column) {
                const std::string& field = records[i].fields[column];
                if (!field.empty()) readOption(request, header[column], field);
            }
            checkRequest(request);
        } catch (const BadRequest& fault) {
            throw BadRequest(place + fault.what());
        }
        requests.push_back(request);
    }
    return requests;
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
    const std::vector<Request> requests = batch ? readBatch(arguments.batchFile, base) : std::vector{base};

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

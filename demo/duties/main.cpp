// marvello-duties: runs the compressors of the demonstration catalogue at their usual duties, and lists which
// messages of the selection rules some compressor gives at some duty.
#include <CLI/CLI.hpp>
#include <exception>
#include <iomanip>
#include <iostream>
#include <string>

#include "catalogue/Globals.h"
#include "data/Session.h"
#include "demo/duties/Duties.h"

namespace {

using namespace marvello::duties;

/// False when a series with a refrigerant gives no compressor without error.
bool printUsualRuns(const std::vector<marvello::generate::SeriesPlan>& plans, bool economized) {
    std::cout << (economized ? "With economizer, approach 10 K\n" : "Without economizer\n")
              << "series    refrigerant  compressors  without error  errors\n";
    bool all = true;
    for (const UsualRun& run : usualRuns(plans, economized)) {
        std::cout << std::left << std::setw(10) << run.serie << std::setw(13) << run.refrigerant << std::right
                  << std::setw(11) << run.compressors << std::setw(15) << run.withoutError;
        for (const std::string& key : run.errors) std::cout << "  " << key;
        std::cout << '\n';
        all = all && run.withoutError > 0;
    }
    return all;
}

void printProvocations(const std::vector<marvello::generate::SeriesPlan>& plans) {
    const auto found = provocations(plans);
    std::cout << "message              list         first at\n";
    for (const auto& message : messagesOfTheRules()) {
        std::cout << std::left << std::setw(21) << message.first << std::setw(13) << message.second;
        const auto where = found.find(message);
        if (where == found.end()) {
            std::cout << "nowhere\n";
            continue;
        }
        const Provocation& at = where->second;
        std::cout << at.serie << ' ' << at.refrigerant << ' ' << at.model << " at " << at.duty << '\n';
    }
    for (const auto& [message, at] : found) {
        if (std::ranges::find(messagesOfTheRules(), message) == messagesOfTheRules().end())
            std::cout << "not of the rules: " << message.first << " as " << message.second << ", " << at.serie
                      << ' ' << at.refrigerant << ' ' << at.model << " at " << at.duty << '\n';
    }
}

int run(int argc, char** argv) {
    CLI::App options("Runs the demonstration catalogue at usual duties and lists the messages it can give.");
    std::string folder = MARVELLO_APP_FOLDER;
    bool messages = false;
    options.add_option("--app-folder", folder, "folder with db.mdb, the fluid library and Fluids");
    options.add_flag("--messages", messages, "lists where each message of the rules comes");
    CLI11_PARSE(options, argc, argv);
    const marvello::Session session(folder);
    marvello::openCatalogue();
    const std::string tree = MARVELLO_SOURCE_FOLDER;
    const auto plans = marvello::generate::allSeries(tree + "/demo/generate/plans", tree + "/content");
    if (messages) {
        printProvocations(plans);
        return 0;
    }
    const bool plain = printUsualRuns(plans, false);
    const bool economized = printUsualRuns(plans, true);
    return plain && economized ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}

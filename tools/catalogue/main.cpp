// marvello-catalogue: builds the catalogue file from its text tables, or only checks them.

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <exception>
#include <filesystem>
#include <iostream>
#include <optional>

#include "tools/catalogue/Content.h"

namespace {

constexpr int done = 0;
constexpr int failed = 2;

void print(const marvello::Faults& faults) {
    constexpr std::size_t most = 50;
    const auto& lines = faults.lines();
    for (std::size_t index = 0; index < std::min(lines.size(), most); ++index)
        std::cerr << lines[index] << '\n';
    if (lines.size() > most) std::cerr << "and " << lines.size() - most << " more faults\n";
}

/// Reads and checks the content; writes it when there is an output.
int run(const std::string& folder, const std::string& fluids, const std::string& output) {
    marvello::Faults faults;
    const auto content = marvello::readContent(folder, faults);
    // A row at fault is not there, and what refers to it would only repeat the fault.
    if (faults.empty())
        marvello::checkReferences(
            content, fluids.empty() ? std::nullopt : std::optional<std::filesystem::path>(fluids), faults);
    if (!faults.empty()) {
        print(faults);
        return failed;
    }
    if (!output.empty()) marvello::writeCatalogue(content, output);
    return done;
}

}  // namespace

int main(int argc, char** argv) try {
    std::string folder;
    std::string output;
    std::string fluids;
    CLI::App program("Builds the catalogue of Marvello from text tables.", "marvello-catalogue");
    program.require_subcommand(1);

    auto* const build = program.add_subcommand("build", "Check the tables and write the catalogue file");
    auto* const check = program.add_subcommand("check", "Check the tables only");
    for (auto* const command : {build, check}) {
        command->add_option("CONTENT_FOLDER", folder, "The folder of the text tables")->required();
        command->add_option("--fluids", fluids, "The folder in which each fluid file must stand");
    }
    build->add_option("OUTPUT", output, "The catalogue file to write")->required();

    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return program.exit(error) == 0 ? done : failed;
    }
    return run(folder, fluids, output);
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return failed;
}

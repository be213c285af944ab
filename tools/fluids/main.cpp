// The property library on its own: how far it is from reference states, and tables of what it computes.

#include <CLI/CLI.hpp>

#include <cstdio>
#include <exception>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "data/FileText.h"
#include "data/Numbers.h"
#include "data/Session.h"
#include "tools/fluids/Accuracy.h"
#include "tools/fluids/Composition.h"
#include "tools/fluids/Refusal.h"
#include "tools/fluids/StateTables.h"

namespace marvello::properties {
namespace {

enum ExitStatus { done = 0, statesRefused = 1, refused = 2 };

/// What was typed; options that were not are empty.
struct Arguments {
    std::vector<std::string> refrigerant;
    std::string data;
    std::string csvFile;
    std::string folder;
    std::string from, to, step;
};

int complain(const std::string& sentence, ExitStatus status) {
    std::fprintf(stderr, "marvello-fluids: %s\n", sentence.c_str());
    return status;
}

void write(const std::string& file, const std::string& text) {
    std::ofstream stream(file, std::ios::binary);
    stream << text;
    stream.close();
    if (!stream) throw Refusal("The file " + file + " cannot be written.");
}

/// To the file of --csv, or to standard output.
void deliver(const Arguments& arguments, const std::string& text) {
    if (arguments.csvFile.empty()) {
        printText(text);
    } else {
        write(arguments.csvFile, text);
    }
}

std::optional<double> numberOf(const char* option, const std::string& text) {
    if (text.empty()) return std::nullopt;
    const std::optional<double> found = storedNumber(text);
    if (!found) throw Refusal(std::string(option) + ": \"" + text + "\" is no number.");
    return found;
}

TemperatureRange rangeOf(const Arguments& arguments) {
    TemperatureRange range;
    range.from = numberOf("--from", arguments.from).value_or(range.from);
    range.to = numberOf("--to", arguments.to);
    range.step = numberOf("--step", arguments.step).value_or(range.step);
    return range;
}

int accuracy(const Arguments& arguments) {
    const Comparison comparison = compare(arguments.data);
    if (!arguments.csvFile.empty()) write(arguments.csvFile, asCsv(comparison));
    printText(asTable(comparison));
    for (const std::string& refusal : comparison.refusals) complain(refusal, statesRefused);
    return comparison.refusals.empty() ? done : statesRefused;
}

int run(int argc, char** argv) {
    CLI::App app("Figures of the property library.", "marvello-fluids");
    Arguments arguments;
    app.require_subcommand(1);
    app.add_option("--app-folder", arguments.folder, "folder with the fluid library and Fluids");
    const auto addCommand = [&](const char* name, const char* help) {
        CLI::App* command = app.add_subcommand(name, help);
        command->add_option("--csv", arguments.csvFile, "writes all numbers to this file");
        command->fallthrough();
        return command;
    };
    const auto addRefrigerant = [&](CLI::App* command) {
        command
            ->add_option(
                "refrigerant", arguments.refrigerant,
                "fluid files with mass fractions (R32=0.5 R125=0.5), one alone, or a name of blends.csv")
            ->required();
        command->add_option("--data", arguments.data, "folder with blends.csv");
        command->add_option("--from", arguments.from, "degrees Celsius (-40)");
        command->add_option("--to", arguments.to, "degrees Celsius (60)");
        command->add_option("--step", arguments.step, "kelvin (5)");
    };
    CLI::App* const compared = addCommand("accuracy", "compares the library with tables of reference states");
    compared->add_option("--data", arguments.data, "folder with the tables")->required();
    CLI::App* const table = addCommand("table", "prints a saturation table");
    addRefrigerant(table);
    CLI::App* const lines = addCommand("isotherms", "writes lines of constant temperature as CSV");
    addRefrigerant(lines);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp& help) {
        return app.exit(help);
    } catch (const CLI::ParseError& fault) {
        return complain(fault.what(), refused);
    }

    const Session session(arguments.folder);
    if (compared->parsed()) return accuracy(arguments);
    const Composition composition = compositionOf(arguments.refrigerant, arguments.data);
    deliver(arguments, table->parsed()
                           ? saturationTable(composition, rangeOf(arguments), !arguments.csvFile.empty())
                           : isotherms(composition, rangeOf(arguments)));
    return done;
}

}  // namespace
}  // namespace marvello::properties

int main(int argc, char** argv) {
    using namespace marvello::properties;
    try {
        return run(argc, argv);
    } catch (const std::exception& fault) {
        return complain(fault.what(), refused);
    }
}

// marvello-generate: computes the demonstration catalogue's compressors from a model of screw compressors and
// the property library, and writes them as text tables.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <iomanip>
#include <iostream>
#include <string>

#include "demo/generate/Catalogue.h"
#include "demo/generate/TechnicalData.h"

namespace {

using marvello::generate::GeneratedCatalogue;

void printFits(const GeneratedCatalogue& catalogue) {
    std::cout << std::left << std::setw(24) << "surface" << std::setw(11) << "of" << std::right
              << std::setw(6) << "row" << std::setw(22) << "application: rms, max" << std::setw(21)
              << "over limit: rms, max" << "   (%)\n"
              << std::fixed;
    for (const auto& fit : catalogue.fits) {
        std::cout << std::left << std::setw(24) << fit.polynomial << std::setw(11) << fit.quantity
                  << std::right << std::setprecision(0) << std::setw(6) << fit.field << std::setprecision(3);
        for (const auto& error : {fit.application, fit.over})
            std::cout << std::setw(12) << 100 * error.rms << std::setw(9) << 100 * error.largest;
        std::cout << '\n';
    }
}

/// Prints a line for each series and refrigerant; false when one is not as a screw compressor is.
bool printSummaries(const GeneratedCatalogue& catalogue) {
    std::cout << "series    refrigerant  models  worst rms %  isentropic eff.  discharge C  COP          "
                 "frequency law rms %\n"
              << std::fixed;
    double worst = 0;
    bool sound = true;
    for (const auto& line : catalogue.summaries) {
        std::cout << std::left << std::setw(10) << line.serie << std::setw(13) << line.refrigerant
                  << std::right << std::setw(6) << line.models << std::setprecision(2) << std::setw(13)
                  << 100 * line.worstFit << std::setw(9) << line.leastEfficiency << " .. "
                  << line.greatestEfficiency << std::setprecision(1) << std::setw(13) << line.hottestDischarge
                  << std::setprecision(2) << std::setw(7) << line.leastCop << " .. " << std::setw(5)
                  << line.greatestCop;
        if (line.frequencyError > 0) std::cout << std::setw(10) << 100 * line.frequencyError;
        std::cout << (line.isSound() ? "" : "   NOT SOUND") << '\n';
        worst = std::max(worst, line.worstFit);
        sound = sound && line.isSound();
    }
    std::cout << catalogue.compressors.rows.size() << " compressors, " << catalogue.polynomials.rows.size()
              << " surfaces, " << catalogue.motors.rows.size() << " motors, " << catalogue.limits.rows.size()
              << " envelope lines; worst rms " << 100 * worst << " %\n";
    return sound;
}

/// Prints how well R407C's mid temperatures are converted; false when one misses by 0.05 K or more.
bool printConversions(const GeneratedCatalogue& catalogue) {
    constexpr double allowed = 0.05;
    bool sound = true;
    std::cout << std::setprecision(4);
    for (const auto& line : catalogue.conversionFits) {
        std::cout << line.name << ": rms " << line.error.rms << " K, largest " << line.error.largest
                  << " K over " << line.states << " states\n";
        sound = sound && line.error.largest < allowed;
    }
    return sound;
}

int run(int argc, char** argv) {
    CLI::App options("Computes the demonstration catalogue's compressors and writes them as text tables.");
    std::string folder;
    std::string plans = MARVELLO_PLANS;
    bool all = false;
    options.add_option("folder", folder, "folder of the catalogue's tables, for instance content")
        ->required()
        ->check(CLI::ExistingDirectory);
    options.add_option("--plans", plans, "folder with series.csv, models.csv, ranges.csv and bodies.csv")
        ->check(CLI::ExistingDirectory);
    options.add_flag("--fits", all, "prints the error of every surface");
    CLI11_PARSE(options, argc, argv);
    const auto series = marvello::generate::allSeries(plans, folder);
    const auto technical = marvello::generate::technicalData(series, plans);
    const auto catalogue = marvello::generate::generateCatalogue(
        series, marvello::generate::readCompositions(folder).at("R407C"));
    if (all) printFits(catalogue);
    const bool summariesAreSound = printSummaries(catalogue);
    if (!printConversions(catalogue) || !summariesAreSound) {
        std::cerr
            << "What is marked is not sound: rms above 1.5 %, isentropic efficiency outside 0.45 to 0.78 "
               "or a discharge of 140 C and more; or a conversion misses by 0.05 K. Nothing was written.\n";
        return 1;
    }
    marvello::generate::writeTables(catalogue, folder);
    marvello::generate::writeTable(technical.heads, folder);
    marvello::generate::writeTable(technical.rows, folder);
    return 0;
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

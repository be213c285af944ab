// marvello-generate: computes the demonstration catalogue's compressors from a model of screw compressors and
// the property library, and writes them as text tables.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <iomanip>
#include <iostream>
#include <string>

#include "tools/generate/Catalogue.h"

namespace {

/// Prints how well each surface fits; false when one is worse than the catalogue allows.
bool report(const marvello::generate::GeneratedCatalogue& catalogue) {
    constexpr double allowed = 0.015;
    double worst = 0;
    std::cout << std::left << std::setw(20) << "surface" << std::setw(11) << "of" << std::right
              << std::setw(5) << "step" << std::setw(22) << "application: rms, max" << std::setw(21)
              << "over limit: rms, max" << "   (%)\n"
              << std::fixed << std::setprecision(3);
    for (const auto& fit : catalogue.fits) {
        std::cout << std::left << std::setw(20) << fit.polynomial << std::setw(11) << fit.quantity
                  << std::right << std::setw(5) << fit.step;
        for (const auto& error : {fit.application, fit.over}) {
            std::cout << std::setw(12) << 100 * error.rms << std::setw(9) << 100 * error.largest;
            worst = std::max(worst, error.rms);
        }
        std::cout << '\n';
    }
    std::cout << catalogue.compressors.rows.size() << " compressors; worst rms " << 100 * worst << " %\n";
    return worst < allowed;
}

int run(int argc, char** argv) {
    CLI::App options("Computes the demonstration catalogue's compressors and writes them as text tables.");
    std::string folder;
    options.add_option("folder", folder, "where the tables go, for instance content")
        ->required()
        ->check(CLI::ExistingDirectory);
    CLI11_PARSE(options, argc, argv);
    const auto catalogue = marvello::generate::generateCatalogue();
    if (!report(catalogue)) {
        std::cerr << "A surface does not fit its compressor; nothing was written.\n";
        return 1;
    }
    marvello::generate::writeTables(catalogue, folder);
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

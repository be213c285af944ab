#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "demo/generate/CsvTable.h"
#include "demo/generate/R407cConversions.h"
#include "demo/generate/Series.h"
#include "tools/surface/Surface.h"

namespace marvello::generate {

/// How well one surface of the catalogue stands for its compressor.
struct FitRow {
    std::string polynomial;
    std::string quantity;
    double field;          ///< what the row is kept by
    FitError application;  ///< over the application limit
    FitError over;         ///< over the limit around it
};

/// What all models of a series do with a refrigerant, at full load over the application limit.
struct Summary {
    std::string serie;
    std::string refrigerant;
    std::size_t models = 0;
    double worstFit = 0;  ///< greatest rms of its surfaces
    double leastEfficiency = 1;
    double greatestEfficiency = 0;
    double hottestDischarge = 0;  ///< degC
    double leastCop = 1e9;
    double greatestCop = 0;
    double frequencyError = 0;  ///< greatest rms of a frequency law

    /// Whether this is within what a screw compressor does.
    bool isSound() const;
};

struct GeneratedCatalogue {
    CsvTable compressors;
    CsvTable polynomials;
    CsvTable motors;
    CsvTable limits;
    CsvTable conversions;  ///< of temperatures of R407C
    std::vector<FitRow> fits;
    std::vector<Summary> summaries;
    std::vector<Conversion> conversionFits;
};

/// Computes the compressors of all series, and the conversions of `r407c`. The result is the same on each
/// run.
GeneratedCatalogue generateCatalogue(const std::vector<SeriesPlan>& series,
                                     const std::vector<FluidPart>& r407c);

/// Writes all tables.
void writeTables(const GeneratedCatalogue& catalogue, const std::filesystem::path& folder);

}  // namespace marvello::generate

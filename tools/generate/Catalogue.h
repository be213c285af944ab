#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tools/generate/Surface.h"

namespace marvello::generate {

/// One table as it is written: the column names and the rows.
struct CsvTable {
    std::string name;
    std::vector<std::string> columns;
    std::vector<std::vector<std::string>> rows;
};

/// How well one surface of the catalogue stands for its compressor.
struct FitRow {
    std::string polynomial;
    std::string quantity;
    int step;
    FitError application;  ///< over the application limit
    FitError over;         ///< over the limit around it
};

struct GeneratedCatalogue {
    CsvTable compressors;
    CsvTable polynomials;
    CsvTable motors;
    CsvTable limits;
    std::vector<FitRow> fits;
};

/// Computes the demonstration catalogue: every series, model and refrigerant. The result is the same on each
/// run.
GeneratedCatalogue generateCatalogue();

/// Writes the four tables as NAME.csv (RFC 4180) into a folder. Throws std::runtime_error when a file cannot
/// be written.
void writeTables(const GeneratedCatalogue& catalogue, const std::filesystem::path& folder);

}  // namespace marvello::generate

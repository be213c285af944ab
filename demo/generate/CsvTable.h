#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace marvello::generate {

/// One table as it is written: the column names and the rows.
struct CsvTable {
    std::string name;
    std::vector<std::string> columns;
    std::vector<std::vector<std::string>> rows;
};

/// Writes a table as NAME.csv (RFC 4180) into a folder. Throws std::runtime_error if the file cannot be
/// written.
void writeTable(const CsvTable& table, const std::filesystem::path& folder);

}  // namespace marvello::generate

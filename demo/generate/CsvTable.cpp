#include "demo/generate/CsvTable.h"

#include <fstream>
#include <stdexcept>

#include "data/Csv.h"

namespace marvello::generate {

void writeTable(const CsvTable& table, const std::filesystem::path& folder) {
    const std::filesystem::path path = folder / (table.name + ".csv");
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << csvLine(table.columns);
    for (const auto& row : table.rows) file << csvLine(row);
    file.close();
    if (!file) throw std::runtime_error(path.string() + " cannot be written.");
}

}  // namespace marvello::generate

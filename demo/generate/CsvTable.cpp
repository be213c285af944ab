#include "demo/generate/CsvTable.h"

#include <fstream>
#include <stdexcept>

#include "tools/csv/Csv.h"

namespace marvello::generate {

void writeTable(const CsvTable& table, const std::filesystem::path& folder) {
    const std::filesystem::path path = folder / (table.name + ".csv");
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    const auto writeRow = [&file](const std::vector<std::string>& fields) {
        const char* separator = "";
        for (const std::string& field : fields) {
            file << separator << csvField(field);
            separator = ",";
        }
        file << '\n';
    };
    writeRow(table.columns);
    for (const auto& row : table.rows) writeRow(row);
    file.close();
    if (!file) throw std::runtime_error(path.string() + " cannot be written.");
}

}  // namespace marvello::generate

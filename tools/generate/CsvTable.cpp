#include "tools/generate/CsvTable.h"

#include <fstream>
#include <stdexcept>

namespace marvello::generate {
namespace {

/// A field of RFC 4180: in quotes where it holds a separator or a quote, which is doubled.
std::string csvField(const std::string& value) {
    if (value.find_first_of(",\"\n") == std::string::npos) return value;
    std::string field = "\"";
    for (const char letter : value) {
        if (letter == '"') field += '"';
        field += letter;
    }
    return field + '"';
}

}  // namespace

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

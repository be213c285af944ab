#include "tests/tools/SmallContent.h"

#include <algorithm>
#include <fstream>

namespace marvello::test {

namespace fs = std::filesystem;

std::vector<std::string> linesOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

void writeLines(const fs::path& file, const std::vector<std::string>& lines) {
    std::ofstream stream(file, std::ios::binary);
    for (const auto& line : lines) stream << line << '\n';
}

void writeSmallContent(const fs::path& folder) {
    const std::vector<std::string> models{"R134A,TK-A,120,", "R134A,TK-A,165,", "R134A,NL-H,165,",
                                          "R134A,TK-B,140,", "R134A,TK-D,140,"};
    const fs::path whole = fs::path(MARVELLO_SOURCE_FOLDER) / "content";
    const auto keep = [&](const std::string& table, const auto& isKept) {
        const auto lines = linesOf(whole / table);
        std::vector<std::string> kept{lines.front()};
        std::copy_if(lines.begin() + 1, lines.end(), std::back_inserter(kept), isKept);
        writeLines(folder / table, kept);
        return kept;
    };
    for (const auto& entry : fs::directory_iterator(whole))
        if (entry.is_regular_file()) fs::copy_file(entry.path(), folder / entry.path().filename());
    const auto compressors = keep("tCompressors.csv", [&](const std::string& line) {
        return std::ranges::any_of(models, [&](const auto& model) { return line.starts_with(model); });
    });
    // What a compressor names stands in its row between commas.
    const auto isNamed = [&](const std::string& line) {
        const std::string id = "," + line.substr(0, line.find(',') + 1);
        return std::ranges::any_of(compressors,
                                   [&](const auto& row) { return row.find(id) != std::string::npos; });
    };
    keep("tPolynomials.csv", isNamed);
    keep("tLimits.csv", isNamed);
    // "catalog,TK-A-120,eng,1000" has the rows "1000,...".
    const auto heads = keep("tParametersHead.technical.csv", [&](const std::string& line) {
        return std::ranges::any_of(models, [&](std::string model) {
            model = model.substr(model.find(',') + 1);
            model[model.find(',')] = '-';
            return line.starts_with("catalog," + model);
        });
    });
    keep("tParametersRows.technical.csv", [&](const std::string& line) {
        return std::ranges::any_of(heads, [&](const std::string& told) {
            return told.ends_with("," + line.substr(0, line.find(',')));
        });
    });
}

}  // namespace marvello::test

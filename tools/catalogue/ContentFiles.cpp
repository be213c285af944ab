#include "tools/catalogue/ContentFiles.h"

#include <algorithm>

namespace marvello {

namespace fs = std::filesystem;

ContentFileName contentFileName(const fs::path& file) {
    ContentFileName name;
    name.extension = file.extension().string();
    std::string stem = file.stem().string();
    const auto takePart = [&stem] {
        const auto dot = std::min(stem.find('.'), stem.size());
        std::string part = stem.substr(0, dot);
        stem.erase(0, std::min(dot + 1, stem.size()));
        return part;
    };
    name.table = takePart();
    name.language = takePart();
    name.document = stem;
    return name;
}

bool isFileNamePart(const std::string& text) {
    return !text.empty() && text.find_first_of("/\\.") == std::string::npos;
}

std::vector<fs::path> contentFiles(const fs::path& folder) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(folder))
        if (entry.is_regular_file()) files.push_back(entry.path());
    std::ranges::sort(files);
    return files;
}

}  // namespace marvello

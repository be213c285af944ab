#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace marvello {

/// What the name of a file in the content folder says: "table.language.document.extension".
struct ContentFileName {
    std::string table;
    std::string language;  ///< Second part: of a table by language, or any further part of another one.
    std::string document;  ///< Third part, of a help document.
    std::string extension;
};

ContentFileName contentFileName(const std::filesystem::path& file);

/// Whether a text can stand between the dots of a file's name.
bool isFileNamePart(const std::string& text);

/// The file of the rows that an import could not take.
inline constexpr const char* rejectedName = "rejected.csv";

/// The regular files of a folder, by name.
std::vector<std::filesystem::path> contentFiles(const std::filesystem::path& folder);

}  // namespace marvello

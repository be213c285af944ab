#pragma once

#include <filesystem>
#include <string>

#include "tools/catalogue/Content.h"

namespace marvello {

/// The content of a catalogue file, in the order in which the program meets it. Throws std::runtime_error for
/// a file that is no catalogue, has an unknown schema version or holds what the tables cannot. A file that
/// was changed since it was built is read all the same, as is one of schema version 1; `doubt` then says so.
Content readCatalogue(const std::filesystem::path& file, std::string* doubt = nullptr);

/// Writes the text tables of a content: one file a table, of a table by language one a language, and a help
/// document a file of its own. Building them gives the same catalogue file again. Refuses a folder that has
/// tables, unless `replace` is set; see writeTableFiles(). Throws std::runtime_error.
void writeTables(const Content& content, const std::filesystem::path& folder, bool replace);

}  // namespace marvello

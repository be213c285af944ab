#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "data/Faults.h"
#include "tools/catalogue/Schema.h"

namespace marvello {

/// A value as it is stored; std::monostate is NULL.
using Value = std::variant<std::monostate, std::string, int, double>;

/// One row of a table and where it stands.
struct Record {
    std::string file;
    int line = 0;
    std::vector<Value> values;  ///< In the order of the table's columns.
};

/// The rows of one table.
struct TableContent {
    const Table* table = nullptr;
    std::vector<Record> records;

    const std::string& text(const Record& record, std::string_view column) const;
    int integer(const Record& record, std::string_view column) const;
    double real(const Record& record, std::string_view column) const;
    /// Of a column that may be empty.
    std::optional<double> optionalReal(const Record& record, std::string_view column) const;
    std::string optionalText(const Record& record, std::string_view column) const;
};

/// The content of a catalogue, by table in the order of schemaTables().
struct Content {
    std::vector<TableContent> tables;

    const TableContent& table(std::string_view name) const;
};

/// Reads the text tables of a folder: "table.csv" or, in several parts, "table.part.csv"; of a table by
/// language "table.language.csv", and a help document also as "thelp.language.name.rtf". All that does not
/// fit the schema is a fault; rows at fault are left out.
Content readContent(const std::filesystem::path& folder, Faults& faults);

/// Writes the catalogue file, whole or not at all. Replaces a catalogue, keeping its access rights and the
/// links that lead to it, or an empty file; another regular file only if `force` is set. Throws
/// std::runtime_error if it cannot be written.
void writeCatalogue(const Content& content, const std::filesystem::path& output, bool force = false);

/// Stores the digest of a catalogue file in it, anew after a change. Throws.
void sealCatalogue(const std::filesystem::path& file);

}  // namespace marvello

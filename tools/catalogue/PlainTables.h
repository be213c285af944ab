#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "data/Faults.h"
#include "tools/catalogue/Content.h"

namespace marvello {

/// A row as it is written; NULL is an empty field.
struct PlainRow {
    std::string place;  ///< "tMotors.csv:12", or "row 12" of a catalogue file.
    std::vector<std::string> fields;
};

/// A table as it is written, whether the schema knows it or not.
struct PlainTable {
    std::string name;
    std::vector<std::string> columns;
    std::vector<PlainRow> rows;

    /// The table of the schema, or null.
    const Table* known() const;
    /// The position of a column, found without regard to case; the count of columns when there is none.
    std::size_t columnIndex(std::string_view column) const;
    /// The field of a row, or an empty text if the table lacks the column.
    const std::string& field(const PlainRow& row, std::string_view column) const;
};

/// All tables of a folder of text tables or of a catalogue file, those of the schema first and in its order.
/// Values are not checked. Throws std::runtime_error for a place that cannot be read; what is wrong with a
/// text table as such is a fault.
std::vector<PlainTable> readPlainTables(const std::filesystem::path& place, Faults& faults);

}  // namespace marvello

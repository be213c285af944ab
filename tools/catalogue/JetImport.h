#pragma once

#include <string>
#include <vector>

#include "tools/catalogue/Content.h"
#include "tools/catalogue/JetFile.h"

namespace marvello {

/// A field that was not taken, with its row or alone; the reason is that of this field, and may be empty.
struct RejectedField {
    std::string table;
    std::size_t row = 0;  ///< in the order of the database, from 1
    std::string key;
    std::string column;
    std::string value;
    std::string reason;
};

/// What a Jet database gives.
struct JetImport {
    Content content;
    /// What could not be taken of whole tables and columns, as "table: reason".
    std::vector<std::string> tableFaults{};
    /// What could not be taken of rows, as "table row 3 (key): column: reason".
    std::vector<std::string> rowFaults{};
    /// All fields of the rows that could not be taken, and the values of unknown columns of the others.
    std::vector<RejectedField> rejected{};
    std::size_t rejectedRows = 0;

    bool isWhole() const { return tableFaults.empty() && rowFaults.empty(); }
};

/// Takes the tables of a Jet database into the content of a catalogue. Each table and column that the
/// catalogue does not know, and each value that does not fit, is a fault; rows with one are rejected. Throws
/// std::runtime_error if the database cannot be read at all.
JetImport importJet(const JetFile& file);

/// Returns the rejected fields as a text table.
std::string rejectedText(const std::vector<RejectedField>& rejected);

}  // namespace marvello

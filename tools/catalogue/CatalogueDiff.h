#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/catalogue/PlainTables.h"

namespace marvello {

/// A column of a row that both catalogues have, with what each says.
struct ColumnChange {
    std::string column;
    std::string before;
    std::string after;
};

enum class ChangeKind { added, removed, changed };

/// Returns "added", "removed" or "changed".
std::string_view nameOf(ChangeKind kind);

/// A row that is in one catalogue alone, or says something else in the other.
struct RowChange {
    ChangeKind kind{};
    std::string table;
    std::string key;    ///< "R134A, TK-A, 120"; of a table without a key the values that tell rows apart.
    std::string place;  ///< Where the row is now, or was.
    std::vector<ColumnChange> columns{};  ///< Of a changed row.
    /// The row that is there now or, of one that was removed, the former one; it belongs to the tables that
    /// were compared.
    const PlainTable* in = nullptr;
    const PlainRow* row = nullptr;
};

/// What is different about a table as such.
struct TableChange {
    std::string table;
    std::string what;
};

/// How the rows of two catalogues differ.
struct CatalogueDiff {
    std::vector<TableChange> tables;
    std::vector<RowChange> rows;

    bool isEmpty() const { return tables.empty() && rows.empty(); }
};

/// Compares two catalogues row by row. Rows are matched by the key of their table, case ignored, and those of
/// a table without one by what they hold; what remains of these is matched by the columns that name it. A
/// number or a polyline that is only written in another way is no change. The diff refers to the tables.
CatalogueDiff compareTables(const std::vector<PlainTable>& before, const std::vector<PlainTable>& after);

}  // namespace marvello

#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace marvello {

/// What a column holds.
enum class ColumnKind {
    name,      ///< A text that statements and key lists look up: without regard to case, never empty.
    text,      ///< Any other text that must not be empty.
    freeText,  ///< A text that may be empty.
    nullable,  ///< A text; an empty field is NULL.
    integer,   ///< 32 bits with sign.
    byte,      ///< 0 to 255.
    real,
    optionalReal,  ///< A number; an empty field is NULL.
    boolean,       ///< "True" or "False", stored as 1 or 0.
    points,        ///< A polyline of at least four points, "x,y;x,y;...", with any "(" and ")".
};

struct Column {
    std::string_view name;
    ColumnKind kind;
};

/// One table of the catalogue.
struct Table {
    std::string_view name;
    std::vector<Column> columns;
    // NOLINTBEGIN(readability-redundant-member-init): GCC asks for these where a table leaves a member out.
    /// The columns that tell a row from all others; none when rows may repeat.
    std::vector<std::string_view> key{};
    /// Of a table without a key, the columns by which a row is named: several rows may have the same.
    std::vector<std::string_view> naming{};
    /// The columns of the index next to the key, for statements that go by others or want another order.
    std::vector<std::string_view> index{};
    /// The columns of a second index, by which a single row is found. The first one is none of `index`'s
    /// first, so that statements over many rows keep to that one and its order.
    std::vector<std::string_view> lookup{};
    /// The rows keep the order of the files, so that a statement without "order by" gives it back; a table
    /// without this stands in the order of its key.
    bool keepsOrder = false;
    /// The column that a file gives by its name, "table.language.csv", instead of in each row.
    std::string_view languageColumn{};
    /// Catalogues of this schema may lack the table: a program reads that as a table without rows.
    bool isOptional = false;
    // NOLINTEND(readability-redundant-member-init)

    /// The position of a column, found without regard to case; the count of columns when there is none.
    std::size_t columnIndex(std::string_view column) const;
};

/// All tables of a catalogue file.
std::span<const Table> schemaTables();

/// The statements that make the table and its index.
std::string createStatements(const Table& table);

}  // namespace marvello

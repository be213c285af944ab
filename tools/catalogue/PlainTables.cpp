#include "tools/catalogue/PlainTables.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Statement.h>

#include <algorithm>
#include <fstream>
#include <stdexcept>
#include <string_view>

#include "data/CatalogueDigest.h"
#include "data/Csv.h"
#include "data/FileText.h"
#include "data/Numbers.h"
#include "data/Texts.h"
#include "tools/catalogue/ContentFiles.h"
#include "tools/catalogue/TableExchange.h"

namespace marvello {

namespace {

namespace fs = std::filesystem;

const Table* knownTable(std::string_view name) {
    const auto found = std::ranges::find_if(
        schemaTables(), [&](const Table& table) { return equalIgnoringCase(table.name, name); });
    return found == schemaTables().end() ? nullptr : &*found;
}

/// The column of a name, added if there is none.
std::size_t columnOf(PlainTable& table, const std::string& name) {
    const std::size_t index = table.columnIndex(name);
    if (index < table.columns.size()) return index;
    table.columns.push_back(name);
    for (PlainRow& row : table.rows) row.fields.emplace_back();
    return index;
}

class FolderReader {
  public:
    explicit FolderReader(Faults& faults) : faults_(faults) {}

    std::vector<PlainTable> tables(const fs::path& folder) {
        finishExchange(folder);
        for (const fs::path& file : contentFiles(folder)) {
            const ContentFileName name = contentFileName(file);
            const bool isDocument = name.extension == ".rtf" && name.table == "thelp";
            if ((name.extension != ".csv" && !isDocument) || file.filename() == rejectedName) continue;
            const auto text = fileText(file);
            if (!text)
                faults_.add(file.filename().string(), "the file cannot be read");
            else if (isDocument)
                addDocument(file, name, *text);
            else
                addTable(file, name, *text);
        }
        return std::move(tables_);
    }

  private:
    PlainTable& tableOf(const std::string& name) {
        const auto found = std::ranges::find(tables_, name, &PlainTable::name);
        if (found != tables_.end()) return *found;
        return tables_.emplace_back(PlainTable{name, {}, {}});
    }

    void addDocument(const fs::path& file, const ContentFileName& name, const std::string& text) {
        PlainTable& table = tableOf(name.table);
        PlainRow row{file.filename().string(), std::vector<std::string>(table.columns.size())};
        const auto set = [&](const char* column, const std::string& value) {
            const std::size_t index = columnOf(table, column);
            row.fields.resize(table.columns.size());
            row.fields[index] = value;
        };
        set("flanguage", name.language);
        set("ffield", name.document);
        set("fhelp", text);
        table.rows.push_back(std::move(row));
    }

    void addTable(const fs::path& file, const ContentFileName& name, const std::string& text) {
        const std::string fileName = file.filename().string();
        const auto records = readCsv(text, fileName, faults_);
        if (records.empty()) {
            faults_.add(fileName, 1, "the line of column names is missing");
            return;
        }
        PlainTable& table = tableOf(name.table);
        const Table* const known = table.known();
        const std::string language(known ? known->languageColumn : std::string_view());
        if (!language.empty()) columnOf(table, language);
        std::vector<std::size_t> columns;
        for (const std::string& column : records.front().fields) columns.push_back(columnOf(table, column));
        for (auto record = records.begin() + 1; record != records.end(); ++record) {
            if (record->fields.size() != columns.size()) {
                faults_.add(fileName, record->line,
                            "the row has " + std::to_string(record->fields.size()) + " fields and not " +
                                std::to_string(columns.size()));
                continue;
            }
            PlainRow row{fileName + ":" + std::to_string(record->line),
                         std::vector<std::string>(table.columns.size())};
            if (!language.empty()) row.fields[table.columnIndex(language)] = name.language;
            for (std::size_t i = 0; i < columns.size(); ++i) row.fields[columns[i]] = record->fields[i];
            table.rows.push_back(std::move(row));
        }
    }

    Faults& faults_;
    std::vector<PlainTable> tables_;
};

std::string textOf(const SQLite::Column& column, bool isBoolean) {
    if (column.isNull()) return {};
    if (column.isFloat()) return storedText(column.getDouble());
    if (isBoolean && column.isInteger()) return column.getInt() != 0 ? "True" : "False";
    return column.getString();
}

PlainTable tableIn(const SQLite::Database& database, const std::string& name) {
    PlainTable table{name, {}, {}};
    std::string quoted = name;
    replaceAll(quoted, "\"", "\"\"");
    const Table* const known = table.known();
    SQLite::Statement rows(
        database, "SELECT * FROM \"" + quoted + "\"" + (known && known->keepsOrder ? " ORDER BY rowid" : ""));
    std::vector<bool> areBooleans;
    for (int i = 0; i < rows.getColumnCount(); ++i) {
        table.columns.emplace_back(rows.getColumnName(i));
        const std::size_t index = known ? known->columnIndex(table.columns.back()) : 0;
        areBooleans.push_back(known && index < known->columns.size() &&
                              known->columns[index].kind == ColumnKind::boolean);
    }
    while (rows.executeStep()) {
        PlainRow row{"row " + std::to_string(table.rows.size() + 1), {}};
        for (std::size_t i = 0; i < areBooleans.size(); ++i)
            row.fields.push_back(textOf(rows.getColumn(static_cast<int>(i)), areBooleans[i]));
        table.rows.push_back(std::move(row));
    }
    return table;
}

bool isJet(const fs::path& file) {
    constexpr std::string_view name = "Standard Jet DB";
    std::string head(name.size() + 4, '\0');
    return std::ifstream(file, std::ios::binary)
               .read(head.data(), static_cast<std::streamsize>(head.size())) &&
           head.ends_with(name);
}

std::vector<PlainTable> tablesInFile(const fs::path& file) try {
    if (isJet(file))
        throw std::runtime_error(file.string() +
                                 " is a Jet database; marvello-catalogue import writes its tables.");
    const SQLite::Database database(file.string(), SQLite::OPEN_READONLY);
    SQLite::Statement names(database,
                            "SELECT name FROM sqlite_schema WHERE type='table' AND name NOT LIKE 'sqlite_%'");
    std::vector<PlainTable> tables;
    while (names.executeStep())
        if (const std::string name = names.getColumn(0).getString(); name != digestTable)
            tables.push_back(tableIn(database, name));
    return tables;
} catch (const SQLite::Exception& failure) {
    throw std::runtime_error("The catalogue " + file.string() + " cannot be read: " + failure.what() + ".");
}

std::size_t placeInSchema(const PlainTable& table) {
    const Table* const known = table.known();
    return known ? static_cast<std::size_t>(known - schemaTables().data()) : schemaTables().size();
}

}  // namespace

const Table* PlainTable::known() const { return knownTable(name); }

std::size_t PlainTable::columnIndex(std::string_view column) const {
    const auto found = std::ranges::find_if(
        columns, [&](const std::string& each) { return equalIgnoringCase(each, column); });
    return static_cast<std::size_t>(found - columns.begin());
}

const std::string& PlainTable::field(const PlainRow& row, std::string_view column) const {
    static const std::string none;
    const std::size_t index = columnIndex(column);
    return index < row.fields.size() ? row.fields[index] : none;
}

std::vector<PlainTable> readPlainTables(const fs::path& place, Faults& faults) {
    std::error_code ignored;
    if (!fs::exists(place, ignored)) throw std::runtime_error("There is no " + place.string() + ".");
    auto tables = fs::is_directory(place) ? FolderReader(faults).tables(place) : tablesInFile(place);
    if (std::ranges::none_of(tables, [](const PlainTable& table) { return table.known() != nullptr; }))
        throw std::runtime_error(place.string() + " has none of the tables of a catalogue.");
    std::ranges::stable_sort(tables, {}, placeInSchema);
    return tables;
}

}  // namespace marvello

#include "tools/catalogue/Dump.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Statement.h>

#include <algorithm>
#include <map>
#include <stdexcept>

#include "data/Csv.h"
#include "data/clsApplication.h"
#include "data/clsDatabase.h"
#include "tools/catalogue/ContentFiles.h"
#include "tools/catalogue/Fields.h"
#include "tools/catalogue/TableExchange.h"

namespace marvello {

namespace {

namespace fs = std::filesystem;

Value storedValue(const SQLite::Column& column, ColumnKind kind) {
    switch (kind) {
        case ColumnKind::integer:
        case ColumnKind::byte:
        case ColumnKind::boolean:
            return column.getInt();
        case ColumnKind::real:
            return column.getDouble();
        case ColumnKind::nullable:
            return column.isNull() ? Value() : Value(column.getString());
        case ColumnKind::optionalReal:
            return column.isNull() ? Value() : Value(column.getDouble());
        case ColumnKind::name:
        case ColumnKind::text:
        case ColumnKind::freeText:
        case ColumnKind::points:
            break;
    }
    return column.getString();
}

TableContent readTable(SQLite::Database& database, const fs::path& file, const Table& table) {
    TableContent content{&table, {}};
    if (table.isOptional && !database.tableExists(std::string(table.name))) return content;
    std::string columns;
    for (const auto& column : table.columns)
        columns += (columns.empty() ? "" : ",") + std::string(column.name);
    // A keyed table comes in the order of its key.
    std::string order;
    if (table.keepsOrder) order = " ORDER BY rowid";
    SQLite::Statement rows(database, "SELECT " + columns + " FROM " + std::string(table.name) + order);
    while (rows.executeStep()) {
        Record record{file.filename().string(), static_cast<int>(content.records.size()) + 1, {}};
        for (std::size_t i = 0; i < table.columns.size(); ++i)
            record.values.push_back(storedValue(rows.getColumn(static_cast<int>(i)), table.columns[i].kind));
        content.records.push_back(std::move(record));
    }
    return content;
}

std::string languageOf(const Table& table, const Record& record) {
    if (table.languageColumn.empty()) return {};
    const auto& language = std::get<std::string>(record.values[table.columnIndex(table.languageColumn)]);
    if (!isFileNamePart(language))
        throw std::runtime_error("the language \"" + language + "\" cannot be part of a file's name");
    return language;
}

/// A help document is a file of its own, where its name can be part of a file's.
bool isDocument(const TableContent& content, const Record& record) {
    return content.table->name == "thelp" && isFileNamePart(content.text(record, "ffield"));
}

/// The files of a table with their texts.
std::map<std::string, std::string> filesOf(const TableContent& content) {
    const Table& table = *content.table;
    const auto fieldsOf = [&](const auto& fieldOf) {
        std::vector<std::string> fields;
        for (std::size_t i = 0; i < table.columns.size(); ++i)
            if (table.columns[i].name != table.languageColumn) fields.push_back(fieldOf(i));
        return csvLine(fields);
    };
    const std::string head = fieldsOf([&](std::size_t i) { return std::string(table.columns[i].name); });
    const auto fileName = [&](const std::string& language) {
        return std::string(table.name) + (language.empty() ? "" : "." + language) + ".csv";
    };
    std::map<std::string, std::string> files;
    for (const auto& record : content.records) {
        const std::string language = languageOf(table, record);
        if (isDocument(content, record)) {
            files["thelp." + language + "." + content.text(record, "ffield") + ".rtf"] =
                content.text(record, "fhelp");
            continue;
        }
        files.try_emplace(fileName(language), head).first->second +=
            fieldsOf([&](std::size_t i) { return fieldText(record.values[i], table.columns[i].kind); });
    }
    // A table without rows is there all the same.
    if (files.empty()) files[fileName(table.languageColumn.empty() ? "" : defaultLanguage)] = head;
    return files;
}

/// The first schema has the same tables; the digest and an index came with the second one.
bool isOfTheFirstSchema(const fs::path& file) {
    try {
        const SQLite::Database database(file.string(), SQLite::OPEN_READONLY);
        SQLite::Statement id(database, "PRAGMA application_id");
        SQLite::Statement version(database, "PRAGMA user_version");
        return id.executeStep() && id.getColumn(0).getInt() == clsDatabase::applicationId &&
               version.executeStep() && version.getColumn(0).getInt() == 1;
    } catch (const SQLite::Exception&) {
        return false;
    }
}

/// Why the rows may not be what was built; empty if nothing speaks against them.
std::string doubtAbout(clsDatabase& catalogue) {
    if (!catalogue.isOpen()) return "it is of an older schema, without a digest to check it by";
    try {
        catalogue.checkUndamaged();
        return {};
    } catch (const DatabaseError&) {
        return "it was changed or damaged since it was built";
    }
}

}  // namespace

Content readCatalogue(const fs::path& file, std::string* doubt) {
    clsDatabase catalogue;
    try {
        catalogue.Connect("Data Source=" + file.string());  // says what is no catalogue of this schema
    } catch (const DatabaseError&) {
        if (!isOfTheFirstSchema(file)) throw;
    }
    if (doubt) *doubt = doubtAbout(catalogue);
    Content content;
    try {
        SQLite::Database database(file.string(), SQLite::OPEN_READONLY);
        for (const auto& table : schemaTables()) content.tables.push_back(readTable(database, file, table));
    } catch (const SQLite::Exception& failure) {
        throw std::runtime_error("The catalogue " + file.string() + " cannot be read: " + failure.what() +
                                 ".");
    }
    return content;
}

void writeTables(const Content& content, const fs::path& folder, bool replace) {
    std::map<std::string, std::string> files;
    try {
        for (const auto& table : content.tables) files.merge(filesOf(table));
    } catch (const std::exception& failure) {
        throw std::runtime_error("The tables cannot be written to " + folder.string() + ": " +
                                 failure.what() + ".");
    }
    writeTableFiles(folder, files, replace);
}

}  // namespace marvello

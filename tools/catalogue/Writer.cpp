#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include <stdexcept>
#include <system_error>

#include "data/clsDatabase.h"
#include "tools/catalogue/Content.h"

namespace marvello {

namespace {

namespace fs = std::filesystem;

void bind(SQLite::Statement& statement, int position, const Value& value) {
    if (const auto* const text = std::get_if<std::string>(&value))
        statement.bind(position, *text);
    else if (const auto* const whole = std::get_if<int>(&value))
        statement.bind(position, *whole);
    else if (const auto* const real = std::get_if<double>(&value))
        statement.bind(position, *real);
    else
        statement.bind(position);
}

void writeTable(SQLite::Database& database, const TableContent& content) {
    database.exec(createStatements(*content.table));
    std::string places;
    for (std::size_t column = 0; column < content.table->columns.size(); ++column)
        places += column == 0 ? "?" : ",?";
    SQLite::Statement insert(database,
                             "INSERT INTO " + std::string(content.table->name) + " VALUES (" + places + ")");
    for (const auto& record : content.records) {
        for (std::size_t column = 0; column < record.values.size(); ++column)
            bind(insert, static_cast<int>(column) + 1, record.values[column]);
        insert.exec();
        insert.reset();
    }
}

void writeAll(const Content& content, const fs::path& file) {
    SQLite::Database database(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    // No journal beside a file that is thrown away when anything fails; the header then says delete mode.
    database.exec(
        "PRAGMA journal_mode=OFF; PRAGMA application_id=" + std::to_string(clsDatabase::applicationId) +
        "; PRAGMA user_version=" + std::to_string(clsDatabase::schemaVersion));
    {
        SQLite::Transaction transaction(database);
        for (const auto& table : content.tables) writeTable(database, table);
        transaction.commit();
    }
    database.exec("VACUUM");
}

}  // namespace

void writeCatalogue(const Content& content, const fs::path& output) {
    const fs::path unfinished = output.string() + ".new";
    std::error_code ignored;
    try {
        fs::remove(unfinished);
        writeAll(content, unfinished);
        fs::rename(unfinished, output);
    } catch (const std::exception& failure) {
        fs::remove(unfinished, ignored);
        throw std::runtime_error("The catalogue " + output.string() +
                                 " cannot be written: " + failure.what() + ".");
    }
}

}  // namespace marvello

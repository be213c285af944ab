#include "data/clsDatabase.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Statement.h>
#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <limits>
#include <string>
#include <system_error>
#include <utility>

#include "data/Texts.h"

namespace marvello {

namespace {

/// The file that a connection string of the provider's form names. The name ends at ";Persist Security Info"
/// and not at the first ";", which a folder name may hold.
std::string dataSource(const std::string& connectionString) {
    constexpr std::string_view begin = "data source=";
    const std::string lower = lowered(connectionString);
    const auto at = lower.find(begin);
    if (at == std::string::npos) throw DatabaseError("The connection string names no data source.");
    const auto start = at + begin.size();
    std::string file = trimmed(std::string_view(connectionString)
                                   .substr(start, lower.find(";persist security info", start) - start));
    std::ranges::replace(file, '\\', '/');
    return file;
}

int pragma(SQLite::Database& database, const std::string& name) {
    return database.execAndGet("PRAGMA " + name).getInt();
}

/// A misspelt column in double quotes is an error then, and not a text.
void switchOffDoubleQuotedTexts(SQLite::Database& database) {
    sqlite3_db_config(database.getHandle(), SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(database.getHandle(), SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
}

void checkIsCatalogue(SQLite::Database& database, const std::string& file) {
    if (pragma(database, "application_id") != clsDatabase::applicationId)
        throw DatabaseError("The file " + file + " is not a catalogue of this program.");
    const int version = pragma(database, "user_version");
    if (version != clsDatabase::schemaVersion)
        throw DatabaseError("The catalogue " + file + " has schema version " + std::to_string(version) +
                            "; this program reads version " + std::to_string(clsDatabase::schemaVersion) +
                            ".");
}

}  // namespace

std::string sqlText(std::string_view text) {
    std::string result = "'";
    for (const char c : text) result.append(c == '\'' ? 2 : 1, c);
    return result + "'";
}

struct clsDatabase::Connection {
    SQLite::Database database;
};

struct RecordSet::Implementation {
    // The order matters: the statement is finalised before the connection goes.
    std::shared_ptr<void> connection;
    SQLite::Statement statement;
    bool hasRow = false;

    void step() {
        try {
            hasRow = statement.executeStep();
        } catch (const SQLite::Exception& failure) {
            throw DatabaseError("The statement \"" + statement.getQuery() + "\" failed: " + failure.what() +
                                ".");
        }
    }

    /// The value of a column of the current row.
    SQLite::Column value(std::string_view column) const {
        if (!hasRow) throw DatabaseError("There is no row to read " + std::string(column) + " from.");
        for (int index = 0; index < statement.getColumnCount(); ++index)
            if (equalIgnoringCase(statement.getColumnName(index), column)) return statement.getColumn(index);
        throw DatabaseError("The result of \"" + statement.getQuery() + "\" has no column " +
                            std::string(column) + ".");
    }

    /// The value of a column when `fits` holds for it.
    template <class Fits>
    SQLite::Column valueOf(std::string_view column, const char* kind, Fits fits) const {
        SQLite::Column found = value(column);
        if (found.isNull()) throw DatabaseError("The column " + std::string(column) + " has no value.");
        if (!fits(found))
            throw DatabaseError("The value \"" + found.getString() + "\" of the column " +
                                std::string(column) + " is not " + kind + ".");
        return found;
    }
};

RecordSet::RecordSet(std::unique_ptr<Implementation> implementation)
    : implementation_(std::move(implementation)) {}
RecordSet::RecordSet(RecordSet&&) noexcept = default;
RecordSet& RecordSet::operator=(RecordSet&&) noexcept = default;
RecordSet::~RecordSet() = default;

bool RecordSet::eof() const { return !implementation_->hasRow; }

void RecordSet::moveNext() {
    if (eof()) throw DatabaseError("There is no row to move on from.");
    implementation_->step();
}

double RecordSet::number(std::string_view column) const {
    return implementation_
        ->valueOf(column, "a number", [](const auto& value) { return value.isFloat() || value.isInteger(); })
        .getDouble();
}

int RecordSet::integer(std::string_view column) const {
    using Range = std::numeric_limits<int>;
    const auto fits = [](const auto& value) {
        return value.isInteger() && value.getInt64() >= Range::min() && value.getInt64() <= Range::max();
    };
    return implementation_->valueOf(column, "a whole number", fits).getInt();
}

bool RecordSet::boolean(std::string_view column) const {
    const auto fits = [](const auto& value) {
        return value.isInteger() && (value.getInt64() == 0 || value.getInt64() == 1);
    };
    return implementation_->valueOf(column, "true or false", fits).getInt() != 0;
}

std::string RecordSet::text(std::string_view column) const {
    return implementation_->valueOf(column, "a text", [](const auto& value) { return value.isText(); })
        .getString();
}

bool RecordSet::isNull(std::string_view column) const { return implementation_->value(column).isNull(); }

std::string RecordSet::NullToDefault(std::string_view column, std::string_view defaultText) const {
    const SQLite::Column value = implementation_->value(column);
    if (value.isNull()) return std::string(defaultText);
    return value.isFloat() ? storedText(value.getDouble()) : value.getString();
}

clsDatabase::clsDatabase() = default;

clsDatabase::~clsDatabase() { CloseConnection(); }

bool clsDatabase::Connect(const std::string& connectionString) {
    if (!trimmed(connectionString).empty()) ConnectionString = connectionString;
    if (connection_) return true;

    const std::string file = dataSource(ConnectionString);
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(file, ignored))
        throw DatabaseError("There is no catalogue file " + file + ".");
    try {
        connection_ = std::make_shared<Connection>(Connection{SQLite::Database(file, SQLite::OPEN_READONLY)});
        switchOffDoubleQuotedTexts(connection_->database);
        checkIsCatalogue(connection_->database, file);
    } catch (const SQLite::Exception& failure) {
        CloseConnection();
        if (failure.getErrorCode() == SQLITE_NOTADB)
            throw DatabaseError("The file " + file + " is not a catalogue of this program.");
        throw DatabaseError("The catalogue " + file + " cannot be read: " + failure.what() + ".");
    } catch (const DatabaseError&) {
        CloseConnection();
        throw;
    }
    return true;
}

RecordSet clsDatabase::Execute(const std::string& sql) {
    if (!connection_) throw DatabaseError("The statement \"" + sql + "\" needs an open connection.");
    ++executedStatements_;
    try {
        auto result = std::make_unique<RecordSet::Implementation>(
            RecordSet::Implementation{connection_, SQLite::Statement(connection_->database, sql)});
        result->step();
        return RecordSet(std::move(result));
    } catch (const SQLite::Exception& failure) {
        throw DatabaseError("The statement \"" + sql + "\" failed: " + failure.what() + ".");
    }
}

bool clsDatabase::CloseConnection() {
    connection_.reset();
    return false;
}

long long clsDatabase::executedStatements() const { return executedStatements_; }

}  // namespace marvello

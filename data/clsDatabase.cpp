#include "data/clsDatabase.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Statement.h>
#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "data/CatalogueDigest.h"
#include "data/Numbers.h"
#include "data/Texts.h"
#include "platform/Files.h"

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

/// Only tables are read, and what a file brings along is not carried out. A misspelt column in double quotes
/// is an error, and not a text.
void switchOffWhatNoCatalogueNeeds(SQLite::Database& database) {
    for (const int option : {SQLITE_DBCONFIG_DQS_DML, SQLITE_DBCONFIG_DQS_DDL, SQLITE_DBCONFIG_ENABLE_TRIGGER,
                             SQLITE_DBCONFIG_ENABLE_VIEW, SQLITE_DBCONFIG_TRUSTED_SCHEMA})
        sqlite3_db_config(database.getHandle(), option, 0, nullptr);
}

constexpr int ofOneThread = SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX;

/// How long another program may keep the file to itself, ms.
constexpr int patience = 500;

/// What a failure of SQLite means for the file.
std::string meaningOf(const SQLite::Exception& failure, const std::string& file) {
    switch (failure.getExtendedErrorCode()) {
        case SQLITE_READONLY_ROLLBACK:
        case SQLITE_READONLY_RECOVERY:
        case SQLITE_READONLY_CANTINIT:
            return "The catalogue " + file +
                   " has a journal next to it, left over by a program that was changing the file. Install or "
                   "build "
                   "the catalogue again, and remove the journal.";
        default:
            break;
    }
    switch (failure.getErrorCode()) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return "The catalogue " + file +
                   " is locked by another program. Close that program, or wait until it is done, and try "
                   "again.";
        case SQLITE_NOTADB:
            return "The file " + file + " is not a catalogue of this program.";
        case SQLITE_CORRUPT:
            return "The catalogue " + file + " is damaged: " + failure.what() +
                   ". Install or build the catalogue again.";
        default:
            return "The catalogue " + file + " cannot be read: " + failure.what() + ".";
    }
}

/// Whether it is the file that fails, and not the statement.
bool isOfTheFile(const SQLite::Exception& failure) {
    const int code = failure.getErrorCode();
    return code == SQLITE_BUSY || code == SQLITE_LOCKED || code == SQLITE_CORRUPT || code == SQLITE_NOTADB ||
           code == SQLITE_IOERR || failure.getExtendedErrorCode() == SQLITE_READONLY_ROLLBACK;
}

DatabaseError failureOf(const std::string& sql, const SQLite::Exception& failure, const std::string& file) {
    if (isOfTheFile(failure)) return DatabaseError(meaningOf(failure, file));
    return DatabaseError("The statement \"" + sql + "\" failed: " + failure.what() + ".");
}

/// The open file itself, which may have another name by now; none for a database without one.
sqlite3_file* openFile(const SQLite::Database& database) {
    sqlite3_file* file = nullptr;
    sqlite3_file_control(database.getHandle(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    return file == nullptr || file->pMethods == nullptr ? nullptr : file;
}

CataloguePages pagesOf(SQLite::Database& database) {
    sqlite3_file* file = openFile(database);
    CataloguePages pages;
    if (file == nullptr) return pages;
    sqlite3_int64 size = 0;
    if (file->pMethods->xFileSize(file, &size) == SQLITE_OK) pages.fileSize = size;
    pages.pageSize = pragma(database, "page_size");
    SQLite::Statement root(database, "SELECT rootpage FROM sqlite_schema WHERE name=? AND type='table'");
    root.bind(1, digestTable);
    if (root.executeStep()) pages.digestPage = root.getColumn(0).getInt64();
    pages.read = [file](std::span<unsigned char> bytes, std::int64_t position) {
        return file->pMethods->xRead(file, bytes.data(), static_cast<int>(bytes.size()), position) ==
               SQLITE_OK;
    };
    return pages;
}

/// The digest of the file, if it is the one that the file bears.
std::string soundDigest(SQLite::Database& database) {
    const std::string digest = catalogueDigest(pagesOf(database));
    const bool isSound =
        !digest.empty() &&
        database.execAndGet(std::string("SELECT fDigest FROM ") + digestTable).getString() == digest;
    return isSound ? digest : std::string();
}

/// The count of changes that the file itself keeps; it tells two writes within one tick of the clock.
std::uint32_t changesOf(const SQLite::Database& database) {
    constexpr sqlite3_int64 place = 24;
    std::array<unsigned char, sizeof(std::uint32_t)> bytes{};
    sqlite3_file* file = openFile(database);
    if (file == nullptr || file->pMethods->xRead(file, bytes.data(), bytes.size(), place) != SQLITE_OK)
        return 0;
    std::uint32_t changes = 0;
    for (const unsigned char byte : bytes) changes = changes << 8 | byte;
    return changes;
}

void checkIsCatalogue(SQLite::Database& database, const std::string& file) {
    if (pragma(database, "application_id") != clsDatabase::applicationId)
        throw DatabaseError("The file " + file + " is not a catalogue of this program.");
    const int version = pragma(database, "user_version");
    if (version != clsDatabase::schemaVersion)
        throw DatabaseError(
            "The catalogue " + file + " was made for " +
            (version < clsDatabase::schemaVersion ? "an older" : "a newer") +
            " version of Marvello: it has schema version " + std::to_string(version) +
            ", and this program reads version " + std::to_string(clsDatabase::schemaVersion) + ". " +
            (version < clsDatabase::schemaVersion ? "Install or build the catalogue of this version."
                                                  : "Update the program or choose another catalogue."));
}

}  // namespace

std::string sqlText(std::string_view text) {
    std::string result = "'";
    for (const char c : text) result.append(c == '\'' ? 2 : 1, c);
    return result + "'";
}

struct clsDatabase::Connection {
    SQLite::Database database;
    std::string file;
    std::optional<FileStamp> stamp{};
    std::uint32_t changes = 0;
    std::string checkedDigest{};
    std::shared_ptr<const void> kept{};
};

struct RecordSet::Implementation {
    // The order matters: the statement is finalised before the connection goes.
    std::shared_ptr<void> connection;
    SQLite::Statement statement;
    std::string file;
    bool hasRow = false;
    std::vector<std::string_view> columns{};  ///< Their names, which live as long as the statement.
    mutable std::size_t expected = 0;  ///< The column after the one read last: most are read in their order.

    void readColumns() {
        for (int index = 0; index < statement.getColumnCount(); ++index)
            columns.emplace_back(statement.getColumnName(index));
    }

    void step() {
        try {
            hasRow = statement.executeStep();
        } catch (const SQLite::Exception& failure) {
            throw failureOf(statement.getQuery(), failure, file);
        }
    }

    /// The value of a column of the current row.
    SQLite::Column value(std::string_view column) const {
        if (!hasRow) throw DatabaseError("There is no row to read " + std::string(column) + " from.");
        for (std::size_t tried = 0; tried < columns.size(); ++tried) {
            const std::size_t index = (expected + tried) % columns.size();
            if (!equalIgnoringCase(columns[index], column)) continue;
            expected = index + 1;
            return statement.getColumn(static_cast<int>(index));
        }
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
    const auto fits = [](const auto& value) {
        return (value.isFloat() || value.isInteger()) && std::isfinite(value.getDouble());
    };
    return implementation_->valueOf(column, "a finite number", fits).getDouble();
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

std::optional<double> RecordSet::optionalNumber(std::string_view column) const {
    if (isNull(column)) return std::nullopt;
    return number(column);
}

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

    connection_ = opened(dataSource(ConnectionString));
    return true;
}

std::shared_ptr<clsDatabase::Connection> clsDatabase::opened(const std::string& file) {
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(file, ignored))
        throw DatabaseError("There is no catalogue file " + file + ".");
    try {
        const auto stamp = stampOf(file);  // first: a write after it is noticed
        auto connection = std::make_shared<Connection>(
            Connection{SQLite::Database(file, ofOneThread, patience), file, stamp});
        switchOffWhatNoCatalogueNeeds(connection->database);
        checkIsCatalogue(connection->database, file);
        connection->changes = changesOf(connection->database);
        ++openings_;
        return connection;
    } catch (const SQLite::Exception& failure) {
        throw DatabaseError(meaningOf(failure, file));
    }
}

clsDatabase::Connection& clsDatabase::open() const {
    if (!connection_) throw DatabaseError("The catalogue is not open.");
    return *connection_;
}

bool clsDatabase::followFile() {
    Connection& now = open();
    const auto stamp = stampOf(now.file);
    if (!stamp || (stamp == now.stamp && changesOf(now.database) == now.changes)) return false;
    connection_ = opened(now.file);
    return true;
}

const std::string& clsDatabase::checkedDigest() const { return open().checkedDigest; }

std::shared_ptr<const void>& clsDatabase::kept() { return open().kept; }

RecordSet clsDatabase::Execute(const std::string& sql) {
    if (!connection_) throw DatabaseError("The statement \"" + sql + "\" needs an open connection.");
    ++executedStatements_;
    try {
        auto result = std::make_unique<RecordSet::Implementation>(RecordSet::Implementation{
            connection_, SQLite::Statement(connection_->database, sql), connection_->file});
        result->step();
        result->readColumns();  // a first step may have prepared the statement anew
        return RecordSet(std::move(result));
    } catch (const SQLite::Exception& failure) {
        throw failureOf(sql, failure, connection_->file);
    }
}

bool clsDatabase::hasTable(const std::string& name) {
    return !Execute("Select name from sqlite_schema where type='table' and name=" + sqlText(name) +
                    " collate nocase")
                .eof();
}

void clsDatabase::checkUndamaged() {
    Connection& now = open();
    if (!now.checkedDigest.empty()) return;
    const std::string& file = now.file;
    try {
        now.checkedDigest = soundDigest(now.database);
    } catch (const SQLite::Exception& failure) {
        const int code = failure.getErrorCode();
        if (code == SQLITE_BUSY || code == SQLITE_LOCKED) throw DatabaseError(meaningOf(failure, file));
    }
    if (now.checkedDigest.empty())
        throw DatabaseError("The catalogue " + file +
                            " is damaged: it is not as it was built. Install or build the catalogue again.");
}

bool clsDatabase::CloseConnection() {
    connection_.reset();
    return false;
}

long long clsDatabase::executedStatements() const { return executedStatements_; }

}  // namespace marvello

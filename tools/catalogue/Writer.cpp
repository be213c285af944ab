#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <memory>
#include <span>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <vector>

#include "data/CatalogueDigest.h"
#include "data/clsDatabase.h"
#include "platform/Files.h"
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
    // No journal next to a file that is thrown away when anything fails; the header then says delete mode.
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

CataloguePages pagesOf(const fs::path& file) {
    const SQLite::Database database(file.string(), SQLite::OPEN_READONLY);
    const auto ask = [&](const std::string& sql) {
        SQLite::Statement statement(database, sql);
        statement.executeStep();
        return statement.getColumn(0).getInt64();
    };
    return {
        .fileSize = static_cast<std::int64_t>(fs::file_size(file)),
        .pageSize = ask("PRAGMA page_size"),
        .digestPage = ask(std::string("SELECT rootpage FROM sqlite_schema WHERE name='") + digestTable + "'"),
        .read = [stream = std::make_shared<std::ifstream>(file, std::ios::binary)](
                    std::span<unsigned char> bytes, std::int64_t position) {
            stream->seekg(position);
            stream->read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
            return stream->good();
        }};
}

/// The file itself where links lead to it, so that replacing it leaves them.
fs::path behindLinks(fs::path file) {
    constexpr int most = 40;  // as many as Linux follows
    for (int links = 0; fs::is_symlink(fs::symlink_status(file)); ++links) {
        if (links == most) throw std::runtime_error("its links lead round in a circle");
        file = file.parent_path() / fs::read_symlink(file);
    }
    return file;
}

/// Whether the head of the file is that of a catalogue of any schema version.
bool isCatalogue(const fs::path& file) {
    constexpr std::string_view magic("SQLite format 3\0", 16);
    constexpr std::size_t idAt = 68;  // of four bytes, the highest first
    std::array<char, idAt + 4> head{};
    std::ifstream stream(file, std::ios::binary);
    if (!stream.read(head.data(), head.size()) ||
        !std::string_view(head.data(), head.size()).starts_with(magic))
        return false;
    unsigned id = 0;
    for (std::size_t at = idAt; at < head.size(); ++at) id = id << 8 | static_cast<unsigned char>(head[at]);
    return id == static_cast<unsigned>(clsDatabase::applicationId);
}

void checkMayBeReplaced(const fs::path& file, bool force) {
    const fs::file_status status = fs::status(file);
    if (!fs::exists(status)) return;
    if (!fs::is_regular_file(status)) throw std::runtime_error("it is not a regular file");
    if (!force && fs::file_size(file) > 0 && !isCatalogue(file))
        throw std::runtime_error(
            "it is another file than a catalogue; choose another name, or --force to replace it");
}

/// A journal at the side would be played into the new file.
void checkHasNoJournal(const fs::path& file) {
    for (const char* ending : {"-journal", "-wal"})
        if (fs::exists(file.string() + ending))
            throw std::runtime_error("the journal " + file.filename().string() + ending +
                                     " is next to it; remove it first");
}

}  // namespace

void sealCatalogue(const fs::path& file) {
    const std::string blank(digestLength, '0');
    constexpr int patience = 5000;  // ms, while a program reads it
    SQLite::Database(file.string(), SQLite::OPEN_READWRITE, patience)
        .exec(std::string("PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF; DROP TABLE IF EXISTS ") +
              digestTable + "; CREATE TABLE " + digestTable +
              " (fDigest TEXT NOT NULL) STRICT; INSERT INTO " + digestTable + " VALUES ('" + blank + "')");
    const CataloguePages pages = pagesOf(file);
    const std::string digest = catalogueDigest(pages);
    std::vector<unsigned char> page(static_cast<std::size_t>(pages.pageSize));
    const std::int64_t begin = (pages.digestPage - 1) * pages.pageSize;
    // Through SQLite it would be a change of the first page as well, which the digest is over.
    const auto at = digest.empty() || !pages.read(page, begin)
                        ? page.end()
                        : std::search(page.begin(), page.end(), blank.begin(), blank.end());
    std::fstream stream(file, std::ios::binary | std::ios::in | std::ios::out);
    stream.seekp(begin + (at - page.begin()));
    stream << digest;
    stream.close();
    if (at == page.end() || !stream) throw std::runtime_error("its digest cannot be written");
}

void writeCatalogue(const Content& content, const fs::path& output, bool force) {
    if (output.empty()) throw std::runtime_error("The name of the catalogue file is empty.");
    fs::path unfinished;
    try {
        const fs::path file = behindLinks(fs::absolute(output));
        checkMayBeReplaced(file, force);
        checkHasNoJournal(file);
        unfinished = makeFreshFile(file.string() + ".");
        writeAll(content, unfinished);
        sealCatalogue(unfinished);
        takeRights(unfinished, file);
        settle(unfinished);
        fs::rename(unfinished, file);
    } catch (const std::exception& failure) {
        std::error_code ignored;
        if (!unfinished.empty()) fs::remove(unfinished, ignored);
        const auto* const system = dynamic_cast<const std::system_error*>(&failure);
        if (system && system->code() == std::errc::device_or_resource_busy)
            throw std::runtime_error("The catalogue " + output.string() +
                                     " cannot be replaced: it is a mount point. Write it to another place.");
        throw std::runtime_error("The catalogue " + output.string() + " cannot be written: " +
                                 (system ? system->code().message() : failure.what()) + ".");
    }
}

}  // namespace marvello

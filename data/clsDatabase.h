#pragma once

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace marvello {

/// A failed open, a failed statement, a damaged file, a missing column or a NULL where a value is needed.
/// `what()` says in a sentence or two what is wrong with the file, the statement or the column.
class DatabaseError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The text as an SQL literal: in single quotes, those inside doubled.
std::string sqlText(std::string_view text);

/// A forward-only result of clsDatabase::Execute. It is at its first row when it is returned. Columns
/// are found by name without regard to case. Any number of results may be open on one connection, and an open
/// result outlives CloseConnection.
class RecordSet {
  public:
    RecordSet(RecordSet&&) noexcept;
    RecordSet& operator=(RecordSet&&) noexcept;
    ~RecordSet();

    /// True when there is no current row.
    bool eof() const;
    /// Goes to the next row. Throws DatabaseError if the statement fails.
    void moveNext();

    /// The value of a column of the current row. Each throws DatabaseError for an unknown column, for NULL
    /// and for a value that is not of the kind asked for, as an infinite number.
    double number(std::string_view column) const;
    int integer(std::string_view column) const;
    bool boolean(std::string_view column) const;
    std::string text(std::string_view column) const;

    bool isNull(std::string_view column) const;
    /// The number, or none for NULL. Throws as number() does otherwise.
    std::optional<double> optionalNumber(std::string_view column) const;
    /// The value as text, or `defaultText` for NULL.
    std::string NullToDefault(std::string_view column, std::string_view defaultText) const;

  private:
    friend class clsDatabase;
    struct Implementation;
    explicit RecordSet(std::unique_ptr<Implementation> implementation);
    std::unique_ptr<Implementation> implementation_;
};

/// The one read-only connection to the catalogue file, of one thread.
class clsDatabase {
  public:
    /// `PRAGMA application_id` of a catalogue file: the letters "Marv".
    static constexpr int applicationId = 0x4D617276;
    /// `PRAGMA user_version` of the schema that this program reads.
    static constexpr int schemaVersion = 2;

    clsDatabase();
    ~clsDatabase();
    clsDatabase(const clsDatabase&) = delete;
    clsDatabase& operator=(const clsDatabase&) = delete;

    /// Of the provider's form; only its "Data Source" is used. "\" in it separates folders as "/" does.
    std::string ConnectionString;

    /// Opens the connection unless it is open already. An argument that is not blank replaces
    /// ConnectionString first. True when the connection is open; throws DatabaseError when the file is
    /// missing, is no catalogue, has another schema version, or is locked by another program for longer than
    /// a moment. The file is opened for reading alone, so that a catalogue in a read-only folder serves; its
    /// views and triggers are switched off.
    bool Connect(const std::string& connectionString);

    /// Runs the text as it is. Throws DatabaseError on a closed connection or a failing statement.
    RecordSet Execute(const std::string& sql);

    bool isOpen() const { return connection_ != nullptr; }

    /// Whether the open file has the table, case ignored. Throws DatabaseError as Execute() does.
    bool hasTable(const std::string& name);

    /// Opens the file anew if another one bears its name now, or if it was written to, since it was opened;
    /// true if it did. A file that is gone stays open. Throws DatabaseError if the new one is no catalogue,
    /// and the connection stays as it was.
    bool followFile();

    /// The digest of the open file once it was compared with the file; empty before.
    const std::string& checkedDigest() const;

    /// What a higher module keeps of the open file: gone with the connection, and empty at first.
    std::shared_ptr<const void>& kept();

    /// Compares the open file with the digest that it was built with, the first time after Connect(); for
    /// those who calculate from its rows. Throws DatabaseError if the file is damaged.
    void checkUndamaged();

    /// Closes the connection if there is one; always false.
    bool CloseConnection();

    /// How many files were opened since construction: tells one opening from the next.
    long long openings() const { return openings_; }

    /// How many statements were run since construction, for benchmarks and tests.
    long long executedStatements() const;

  private:
    struct Connection;
    std::shared_ptr<Connection> opened(const std::string& file);
    Connection& open() const;

    std::shared_ptr<Connection> connection_;  ///< Shared with the open results.
    long long executedStatements_ = 0;
    long long openings_ = 0;
};

}  // namespace marvello

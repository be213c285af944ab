#pragma once

#include <SQLiteCpp/Database.h>

#include <filesystem>
#include <string>

#include "data/clsDatabase.h"
#include "tests/support/TemporaryFolder.h"

/// A catalogue file of its own for one test, made by `sql`, and nothing left of it afterwards.
class TestCatalogue {
  public:
    explicit TestCatalogue(const std::string& sql, int schemaVersion = marvello::clsDatabase::schemaVersion) {
        exec("PRAGMA application_id=" + std::to_string(marvello::clsDatabase::applicationId) +
             "; PRAGMA user_version=" + std::to_string(schemaVersion) + ";" + sql);
    }

    void exec(const std::string& sql) const {
        SQLite::Database(file().string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
            .exec("PRAGMA synchronous=OFF;" + sql);
    }

    /// A folder whose name holds what a connection string might stumble over.
    const std::filesystem::path& folder() const { return folder_; }
    std::filesystem::path file() const { return folder() / "db.mdb"; }

    std::string connectionString() const {
        return "Provider=Microsoft.Jet.OLEDB.4.0;Password=p;User ID=u;Data Source=" + folder().string() +
               "\\db.mdb;Persist Security Info=True;Jet OLEDB:System database=" + folder().string() + "\\db";
    }

  private:
    marvello::test::TemporaryFolder folder_{"marvello; data = 1"};
};

#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "tools/csv/Csv.h"

namespace marvello::properties {

/// A CSV table of reference states: lines beginning with "#" are remarks, the first other one names the
/// columns.
class ReferenceTable {
  public:
    /// Throws Refusal, with file and line, where the file is missing or ill-formed.
    explicit ReferenceTable(const std::filesystem::path& file);

    class Row {
      public:
        Row(const ReferenceTable& table, const CsvRecord& record) : table_(&table), record_(&record) {}

        /// Throw Refusal, with file and line, where there is no such column or no number in it.
        const std::string& text(const std::string& column) const;
        double number(const std::string& column) const;
        /// None for an empty field.
        std::optional<double> numberIfAny(const std::string& column) const;

      private:
        const ReferenceTable* table_;
        const CsvRecord* record_;
    };

    std::vector<Row> rows() const;

  private:
    std::string file_;
    std::vector<std::string> columns_;
    std::vector<CsvRecord> records_;
};

}  // namespace marvello::properties

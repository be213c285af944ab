#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace marvello::generate {

/// A text table with named columns, as the plans of the compressors stand in. A table that cannot be read, a
/// column that is not there and a field that is not what is asked for throw std::runtime_error with file,
/// line and column.
class PlanTable {
  public:
    explicit PlanTable(const std::filesystem::path& file);

    class Row {
      public:
        const std::string& text(std::string_view column) const;
        double number(std::string_view column) const;
        /// What an empty field stands for.
        double number(std::string_view column, double otherwise) const;
        /// The words of a field, separated by blanks.
        std::vector<std::string> words(std::string_view column) const;
        /// The place of the field's text among `choices`.
        std::size_t choice(std::string_view column, const std::vector<std::string_view>& choices) const;
        [[noreturn]] void fault(std::string_view column, const std::string& reason) const;

      private:
        friend class PlanTable;
        const PlanTable* table_ = nullptr;
        int line_ = 0;
        std::vector<std::string> fields_;
    };

    const std::vector<Row>& rows() const { return rows_; }

    PlanTable(const PlanTable&) = delete;  // the rows point to their table
    PlanTable& operator=(const PlanTable&) = delete;

  private:
    std::string file_;
    std::vector<std::string> columns_;
    std::vector<Row> rows_;
};

}  // namespace marvello::generate

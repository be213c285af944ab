#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace marvello {

/// A CSV file with named columns. Lines that begin with "#" are remarks, the first other one names the
/// columns. A file that cannot be read or has no rows, a column that is not there and a field that is not
/// what is asked for throw std::runtime_error with file, line and column.
class TextTable {
  public:
    explicit TextTable(const std::filesystem::path& file);

    class Row {
      public:
        const std::string& text(std::string_view column) const;
        double number(std::string_view column) const;
        /// The value of an empty field.
        double number(std::string_view column, double otherwise) const;
        /// None for an empty field.
        std::optional<double> numberIfAny(std::string_view column) const;
        /// The words of a field, separated by blanks.
        std::vector<std::string> words(std::string_view column) const;
        /// The place of the field's text among `choices`.
        std::size_t choice(std::string_view column, const std::vector<std::string_view>& choices) const;
        [[noreturn]] void fault(std::string_view column, const std::string& reason) const;

      private:
        friend class TextTable;
        const TextTable* table_ = nullptr;
        int line_ = 0;
        std::vector<std::string> fields_;
    };

    const std::vector<Row>& rows() const { return rows_; }

    TextTable(const TextTable&) = delete;  // the rows point to their table
    TextTable& operator=(const TextTable&) = delete;

  private:
    std::string file_;
    std::vector<std::string> columns_;
    std::vector<Row> rows_;
};

}  // namespace marvello

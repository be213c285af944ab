#include "data/TextTable.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "data/Csv.h"
#include "data/FileText.h"
#include "data/Numbers.h"

namespace marvello {

TextTable::TextTable(const std::filesystem::path& file) : file_(file.string()) {
    const std::optional<std::string> text = fileText(file);
    if (!text) throw std::runtime_error(file_ + " cannot be read.");
    Faults faults;
    std::vector<CsvRecord> records = readCsv(*text, file_, faults);
    if (!faults.empty()) throw std::runtime_error(faults.lines().front());
    for (CsvRecord& record : records) {
        if (record.fields.front().starts_with('#')) continue;
        if (columns_.empty()) {
            columns_ = std::move(record.fields);
            continue;
        }
        if (record.fields.size() != columns_.size()) {
            throw std::runtime_error(file_ + ":" + std::to_string(record.line) + ": " +
                                     std::to_string(record.fields.size()) + " fields, not " +
                                     std::to_string(columns_.size()));
        }
        Row& row = rows_.emplace_back();
        row.table_ = this;
        row.line_ = record.line;
        row.fields_ = std::move(record.fields);
    }
    if (columns_.empty()) throw std::runtime_error(file_ + " has no header line.");
    if (rows_.empty()) throw std::runtime_error(file_ + " has no rows.");
}

void TextTable::Row::fault(std::string_view column, const std::string& reason) const {
    throw std::runtime_error(table_->file_ + ":" + std::to_string(line_) + ": " + std::string(column) + ": " +
                             reason);
}

const std::string& TextTable::Row::text(std::string_view column) const {
    const auto found = std::find(table_->columns_.begin(), table_->columns_.end(), column);
    if (found == table_->columns_.end()) fault(column, "there is no such column");
    return fields_[static_cast<std::size_t>(found - table_->columns_.begin())];
}

double TextTable::Row::number(std::string_view column) const {
    const auto value = storedNumber(text(column));
    if (!value) fault(column, '"' + text(column) + "\" is no number");
    return *value;
}

double TextTable::Row::number(std::string_view column, double otherwise) const {
    return text(column).empty() ? otherwise : number(column);
}

std::optional<double> TextTable::Row::numberIfAny(std::string_view column) const {
    if (text(column).empty()) return std::nullopt;
    return number(column);
}

std::vector<std::string> TextTable::Row::words(std::string_view column) const {
    std::istringstream stream(text(column));
    return {std::istream_iterator<std::string>(stream), {}};
}

std::size_t TextTable::Row::choice(std::string_view column,
                                   const std::vector<std::string_view>& choices) const {
    const auto found = std::find(choices.begin(), choices.end(), text(column));
    if (found == choices.end()) fault(column, '"' + text(column) + "\" is none of its words");
    return static_cast<std::size_t>(found - choices.begin());
}

}  // namespace marvello

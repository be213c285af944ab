#include "demo/generate/PlanTable.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <sstream>
#include <stdexcept>

#include "data/Numbers.h"
#include "tools/csv/Csv.h"
#include "tools/csv/FileText.h"

namespace marvello::generate {

PlanTable::PlanTable(const std::filesystem::path& file) : file_(file.string()) {
    const std::optional<std::string> text = fileText(file);
    if (!text) throw std::runtime_error(file_ + " cannot be read.");
    Faults faults;
    const std::vector<CsvRecord> records = readCsv(*text, file_, faults);
    if (!faults.empty()) throw std::runtime_error(faults.lines().front());
    if (records.empty()) throw std::runtime_error(file_ + " has no header line.");
    columns_ = records.front().fields;
    for (std::size_t i = 1; i < records.size(); ++i) {
        Row row;
        row.table_ = this;
        row.line_ = records[i].line;
        row.fields_ = records[i].fields;
        if (row.fields_.size() != columns_.size()) {
            throw std::runtime_error(file_ + ":" + std::to_string(row.line_) + ": " +
                                     std::to_string(row.fields_.size()) + " fields, not " +
                                     std::to_string(columns_.size()));
        }
        rows_.push_back(std::move(row));
    }
}

void PlanTable::Row::fault(std::string_view column, const std::string& reason) const {
    throw std::runtime_error(table_->file_ + ":" + std::to_string(line_) + ": " + std::string(column) + ": " +
                             reason);
}

const std::string& PlanTable::Row::text(std::string_view column) const {
    const auto found = std::find(table_->columns_.begin(), table_->columns_.end(), column);
    if (found == table_->columns_.end()) fault(column, "there is no such column");
    return fields_[static_cast<std::size_t>(found - table_->columns_.begin())];
}

double PlanTable::Row::number(std::string_view column) const {
    const auto value = storedNumber(text(column));
    if (!value) fault(column, '"' + text(column) + "\" is no number");
    return *value;
}

double PlanTable::Row::number(std::string_view column, double otherwise) const {
    return text(column).empty() ? otherwise : number(column);
}

std::vector<std::string> PlanTable::Row::words(std::string_view column) const {
    std::istringstream stream(text(column));
    return {std::istream_iterator<std::string>(stream), {}};
}

std::size_t PlanTable::Row::choice(std::string_view column,
                                   const std::vector<std::string_view>& choices) const {
    const auto found = std::find(choices.begin(), choices.end(), text(column));
    if (found == choices.end()) fault(column, '"' + text(column) + "\" is none of its words");
    return static_cast<std::size_t>(found - choices.begin());
}

}  // namespace marvello::generate

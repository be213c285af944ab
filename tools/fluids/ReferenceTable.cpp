#include "tools/fluids/ReferenceTable.h"

#include <algorithm>
#include <utility>

#include "data/Numbers.h"
#include "tools/csv/Faults.h"
#include "tools/csv/FileText.h"
#include "tools/fluids/Refusal.h"

namespace marvello::properties {

ReferenceTable::ReferenceTable(const std::filesystem::path& file) : file_(file.string()) {
    const std::optional<std::string> text = fileText(file);
    if (!text) throw Refusal("The file " + file_ + " cannot be read.");
    Faults faults;
    for (CsvRecord& record : readCsv(*text, file_, faults)) {
        if (record.fields.front().starts_with('#')) continue;
        if (columns_.empty()) {
            columns_ = record.fields;
        } else if (record.fields.size() != columns_.size()) {
            faults.add(file_, record.line,
                       "the line has " + std::to_string(record.fields.size()) + " fields, not " +
                           std::to_string(columns_.size()));
        } else {
            records_.push_back(std::move(record));
        }
    }
    if (!faults.empty()) throw Refusal(faults.lines().front() + ".");
    if (records_.empty()) throw Refusal("The file " + file_ + " has no rows.");
}

std::vector<ReferenceTable::Row> ReferenceTable::rows() const {
    std::vector<Row> found;
    found.reserve(records_.size());
    for (const CsvRecord& record : records_) found.emplace_back(*this, record);
    return found;
}

const std::string& ReferenceTable::Row::text(const std::string& column) const {
    const auto place = std::find(table_->columns_.begin(), table_->columns_.end(), column);
    if (place == table_->columns_.end())
        throw Refusal("The file " + table_->file_ + " has no column " + column + ".");
    return record_->fields[static_cast<std::size_t>(place - table_->columns_.begin())];
}

double ReferenceTable::Row::number(const std::string& column) const {
    const std::optional<double> found = storedNumber(text(column));
    if (!found) {
        throw Refusal(table_->file_ + ":" + std::to_string(record_->line) + ": " + column + ": \"" +
                      text(column) + "\" is no number.");
    }
    return *found;
}

std::optional<double> ReferenceTable::Row::numberIfAny(const std::string& column) const {
    if (text(column).empty()) return std::nullopt;
    return number(column);
}

}  // namespace marvello::properties

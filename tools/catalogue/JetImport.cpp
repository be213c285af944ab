#include "tools/catalogue/JetImport.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <map>
#include <optional>

#include "data/Csv.h"
#include "data/Numbers.h"
#include "data/Texts.h"
#include "tools/catalogue/ContentFiles.h"
#include "tools/catalogue/Fields.h"

namespace marvello {

namespace {

std::string counted(std::size_t count, const std::string& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

/// A long text in a sentence.
std::string quoted(const std::string& value) {
    constexpr std::size_t most = 40;
    if (value.size() <= most) return "\"" + value + "\"";
    std::size_t end = most;
    while ((static_cast<unsigned char>(value[end]) & 0xC0U) == 0x80U) --end;
    return "\"" + value.substr(0, end) + "...\"";
}

bool mayBeMissing(ColumnKind kind) {
    return kind == ColumnKind::nullable || kind == ColumnKind::freeText || kind == ColumnKind::optionalReal;
}

/// A number of 32 bits is written with as many digits as it has, so that 0.1 stays 0.1.
std::string singleText(const std::string& value) {
    const auto number = storedNumber(value);
    if (!number) return value;
    std::array<char, 64> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), static_cast<float>(*number)).ptr;
    return {text.data(), end};
}

/// A whole number may be in a column of any numbers.
std::string wholeText(const std::string& value) {
    const auto number = storedNumber(value);
    const bool fits =
        number && *number == std::floor(*number) && std::abs(*number) <= std::numeric_limits<int>::max();
    return fits ? std::to_string(static_cast<int>(*number)) : value;
}

/// True is -1 where a number stands for it.
std::string booleanText(const std::string& value) {
    const auto number = storedNumber(value);
    if (!number) return value;
    if (*number == 0) return "False";
    return *number == 1 || *number == -1 ? "True" : value;
}

/// A value of the database as a text table would have it.
std::string asField(const std::string& value, ColumnKind kind, const JetColumn& column) {
    switch (kind) {
        case ColumnKind::integer:
        case ColumnKind::byte:
            return wholeText(value);
        case ColumnKind::real:
        case ColumnKind::optionalReal:
            return column.type == "Single" ? singleText(value) : trimmed(value);
        case ColumnKind::boolean:
            return booleanText(value);
        case ColumnKind::name:
        case ColumnKind::text:
        case ColumnKind::freeText:
        case ColumnKind::nullable:
        case ColumnKind::points:
            break;
    }
    return value;
}

bool isBinary(const JetColumn& column) {
    return column.type.starts_with("OLE") || column.type.starts_with("Binary");
}

std::vector<RejectedField> rejectedFields(const JetTable& table, std::size_t row, const std::string& key) {
    std::vector<RejectedField> fields;
    for (std::size_t i = 0; i < table.columns.size(); ++i)
        fields.push_back({table.name, row + 1, key, table.columns[i].name, table.rows[row][i], {}});
    return fields;
}

/// Takes the rows of one table.
class TableImport {
  public:
    TableImport(const JetTable& jet, TableContent& content, JetImport& result)
        : jet_(jet), content_(content), table_(*content.table), result_(result) {}

    void run() {
        findColumns();
        for (std::size_t row = 0; row < jet_.rows.size(); ++row) take(row);
        for (const auto& [reason, count] : ofAll_)
            result_.tableFaults.push_back(std::string(table_.name) + ": " + reason + "; " +
                                          counted(count, "row") + " rejected");
    }

  private:
    void findColumns() {
        places_.resize(table_.columns.size());
        for (std::size_t i = 0; i < jet_.columns.size(); ++i) {
            const std::size_t index = table_.columnIndex(jet_.columns[i].name);
            if (index < places_.size())
                places_[index] = i;
            else
                sayUnknown(i);
        }
        for (std::size_t i = 0; i < places_.size(); ++i) {
            if (places_[i]) continue;
            const Column& column = table_.columns[i];
            if (mayBeMissing(column.kind))
                result_.tableFaults.push_back(std::string(table_.name) + ": the column " +
                                              std::string(column.name) + " is missing and stays empty");
            else if (jet_.rows.empty())
                result_.tableFaults.push_back(std::string(table_.name) + ": the column " +
                                              std::string(column.name) + " is missing");
        }
    }

    void sayUnknown(std::size_t column) {
        const auto count = static_cast<std::size_t>(std::ranges::count_if(
            jet_.rows, [&](const std::vector<std::string>& row) { return !row[column].empty(); }));
        result_.tableFaults.push_back(std::string(table_.name) + ": the catalogue has no column " +
                                      jet_.columns[column].name + "; " + counted(count, "value") +
                                      " left out");
    }

    /// The values of the key as they are in the database.
    std::string keyOf(std::size_t row) const {
        std::string key;
        for (const auto column : table_.key.empty() ? table_.naming : table_.key) {
            const auto place = places_[table_.columnIndex(column)];
            key += (key.empty() ? "" : ", ") + (place ? jet_.rows[row][*place] : "");
        }
        return key;
    }

    std::string reasonAgainst(const Column& column, const std::string& value, const JetColumn& from,
                              Value& taken) const {
        if (isBinary(from) && !value.empty()) return "it holds binary data and no text";
        if (value.size() >= cutTextLength)
            return "the text has " + std::to_string(cutTextLength) +
                   " bytes or more and cannot be read whole";
        const std::string field = asField(value, column.kind, from);
        auto [read, reason] = parsedField(field, column.kind);
        if (reason.empty() && column.name == table_.languageColumn && !isFileNamePart(field))
            reason = quoted(value) + " cannot be part of a file's name, as a language is";
        taken = std::move(read);
        return reason;
    }

    void take(std::size_t row) {
        Record record{jet_.name, static_cast<int>(row + 1), std::vector<Value>(table_.columns.size())};
        std::vector<RejectedField> fields = rejectedFields(jet_, row, keyOf(row));
        bool isSound = true;
        for (std::size_t i = 0; i < table_.columns.size(); ++i) {
            const Column& column = table_.columns[i];
            if (!places_[i]) {
                if (mayBeMissing(column.kind)) {
                    record.values[i] = parsedField({}, column.kind).value;
                    continue;
                }
                const std::string reason = "the column " + std::string(column.name) + " is missing";
                ++ofAll_[reason];
                fields.push_back({jet_.name, row + 1, keyOf(row), std::string(column.name), {}, reason});
                isSound = false;
                continue;
            }
            const std::string reason = reasonAgainst(column, jet_.rows[row][*places_[i]],
                                                     jet_.columns[*places_[i]], record.values[i]);
            if (reason.empty()) continue;
            isSound = false;
            fields[*places_[i]].reason = reason;
            say(row, std::string(column.name) + ": " + shortened(reason));
        }
        if (isSound) isSound = isNew(row, record, fields);
        if (isSound) {
            content_.records.push_back(std::move(record));
            keepUnknown(fields);
            return;
        }
        ++result_.rejectedRows;
        result_.rejected.insert(result_.rejected.end(), fields.begin(), fields.end());
    }

    /// The values of a row that the catalogue has no column for.
    void keepUnknown(const std::vector<RejectedField>& fields) {
        for (const RejectedField& field : fields)
            if (!field.value.empty() && table_.columnIndex(field.column) == table_.columns.size()) {
                result_.rejected.push_back(field);
                result_.rejected.back().reason = "the catalogue has no column " + field.column;
            }
    }

    bool isNew(std::size_t row, const Record& record, std::vector<RejectedField>& fields) {
        const std::string key = keyText(table_, record.values);
        if (key.empty()) return true;
        const auto [first, isAdded] = keys_.emplace(key, row + 1);
        if (isAdded) return true;
        const std::string reason = "row " + std::to_string(first->second) + " has the same key";
        for (const auto column : table_.key) fields[*places_[table_.columnIndex(column)]].reason = reason;
        say(row, reason);
        return false;
    }

    static std::string shortened(const std::string& reason) {
        constexpr std::size_t most = 160;
        if (reason.size() <= most) return reason;
        std::size_t end = most;
        while ((static_cast<unsigned char>(reason[end]) & 0xC0U) == 0x80U) --end;
        return reason.substr(0, end) + "...";
    }

    void say(std::size_t row, const std::string& reason) {
        result_.rowFaults.push_back(jet_.name + " row " + std::to_string(row + 1) + " (" + keyOf(row) +
                                    "): " + reason);
    }

    const JetTable& jet_;
    TableContent& content_;
    const Table& table_;
    JetImport& result_;
    std::vector<std::optional<std::size_t>> places_;  ///< In the database, of each column of the table.
    std::map<std::string, std::size_t> keys_;         ///< The row that has each key.
    std::map<std::string, std::size_t> ofAll_;        ///< How many rows have what is a reason for all.
};

void rejectTable(const JetTable& jet, JetImport& result) {
    result.tableFaults.push_back(jet.name + ": the catalogue has no such table; " +
                                 counted(jet.rows.size(), "row") + " rejected");
    for (std::size_t row = 0; row < jet.rows.size(); ++row) {
        const auto fields = rejectedFields(jet, row, {});
        result.rejected.insert(result.rejected.end(), fields.begin(), fields.end());
    }
    result.rejectedRows += jet.rows.size();
}

}  // namespace

JetImport importJet(const JetFile& file) {
    JetImport result;
    for (const Table& table : schemaTables()) result.content.tables.push_back({&table, {}});
    std::vector<bool> areFound(result.content.tables.size());
    for (const std::string& name : file.tables()) {
        const JetTable jet = file.read(name);
        for (const std::string& doubt : jet.doubts) result.tableFaults.push_back(name + ": " + doubt);
        const auto known = std::ranges::find_if(result.content.tables, [&](const TableContent& content) {
            return equalIgnoringCase(content.table->name, name);
        });
        if (known == result.content.tables.end()) {
            rejectTable(jet, result);
            continue;
        }
        areFound[static_cast<std::size_t>(known - result.content.tables.begin())] = true;
        TableImport(jet, *known, result).run();
    }
    for (const std::string& name : file.linkedTables())
        result.tableFaults.push_back(name + ": the table is a link to another database, which has its rows");
    for (std::size_t i = 0; i < areFound.size(); ++i)
        if (const Table& table = *result.content.tables[i].table; !areFound[i] && !table.isOptional)
            result.tableFaults.push_back(std::string(table.name) + ": the database has no such table");
    return result;
}

std::string rejectedText(const std::vector<RejectedField>& rejected) {
    std::string text = csvLine({"table", "row", "key", "column", "value", "reason"});
    for (const RejectedField& field : rejected)
        text += csvLine(
            {field.table, std::to_string(field.row), field.key, field.column, field.value, field.reason});
    return text;
}

}  // namespace marvello

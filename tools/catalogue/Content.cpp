#include "tools/catalogue/Content.h"

#include <algorithm>
#include <map>
#include <optional>
#include <system_error>

#include "data/Csv.h"
#include "data/FileText.h"
#include "data/Texts.h"
#include "tools/catalogue/ContentFiles.h"
#include "tools/catalogue/Fields.h"
#include "tools/catalogue/TableExchange.h"

namespace marvello {

namespace {

namespace fs = std::filesystem;

/// Reads the files of one table.
class TableReader {
  public:
    TableReader(TableContent& content, Faults& faults)
        : content_(content), table_(*content.table), faults_(faults) {}

    void readCsvFile(const fs::path& file, const std::string& language) {
        file_ = file.filename().string();
        language_ = language;
        if (!table_.languageColumn.empty() && language.empty()) {
            faults_.add(file_, "the name lacks the language: " + std::string(table_.name) + ".LANGUAGE.csv");
            return;
        }
        const auto text = read(file);
        if (!text) return;
        const auto before = faults_.lines().size();
        const auto records = readCsv(*text, file_, faults_);
        if (faults_.lines().size() != before) return;
        if (records.empty()) {
            faults_.add(file_, 1, "the line of column names is missing");
            return;
        }
        if (!readHeader(records.front())) return;
        for (auto record = records.begin() + 1; record != records.end(); ++record) readRecord(*record);
    }

    void readDocument(const fs::path& file, const ContentFileName& name) {
        file_ = file.filename().string();
        const auto body = read(file);
        if (!body) return;
        if (name.language.empty() || name.document.empty())
            faults_.add(file_, "the name lacks a part: thelp.LANGUAGE.DOCUMENT.rtf");
        else if (!isUtf8(*body))
            faults_.add(file_, "the text is not valid UTF-8");
        else if (trimmed(*body).empty())
            faults_.add(file_, "the document is empty");
        else
            addRecord({file_, 1, {name.language, name.document, *body}});
    }

  private:
    std::optional<std::string> read(const fs::path& file) {
        auto text = fileText(file);
        if (!text) faults_.add(file_, "the file cannot be read");
        return text;
    }

    /// Finds the table's columns; false when the file cannot be read any further.
    bool readHeader(const CsvRecord& header) {
        const auto before = faults_.lines().size();
        columns_.clear();
        for (const auto& field : header.fields) {
            const auto index = table_.columnIndex(field);
            if (index == table_.columns.size() || table_.columns[index].name == table_.languageColumn)
                faults_.add(file_, header.line, "the table has no column \"" + field + "\"");
            else if (std::ranges::find(columns_, index) != columns_.end())
                faults_.add(file_, header.line, "the column " + field + " stands twice");
            columns_.push_back(index);
        }
        for (std::size_t index = 0; index < table_.columns.size(); ++index) {
            const auto column = table_.columns[index].name;
            if (column != table_.languageColumn && std::ranges::find(columns_, index) == columns_.end())
                faults_.add(file_, header.line, "the column " + std::string(column) + " is missing");
        }
        return faults_.lines().size() == before;
    }

    void readRecord(const CsvRecord& csv) {
        if (csv.fields.size() != columns_.size()) {
            faults_.add(file_, csv.line,
                        "the row has " + std::to_string(csv.fields.size()) + " fields and not " +
                            std::to_string(columns_.size()));
            return;
        }
        Record record{file_, csv.line, std::vector<Value>(table_.columns.size())};
        if (!table_.languageColumn.empty())
            record.values[table_.columnIndex(table_.languageColumn)] = language_;
        bool sound = true;
        for (std::size_t field = 0; field < columns_.size(); ++field) {
            const Column& column = table_.columns[columns_[field]];
            auto [value, reason] = parsedField(csv.fields[field], column.kind);
            if (!reason.empty()) {
                faults_.add(file_, csv.line, std::string(column.name) + ": " + reason);
                sound = false;
            }
            record.values[columns_[field]] = std::move(value);
        }
        if (sound) addRecord(std::move(record));
    }

    void addRecord(Record record) {
        const std::string key = keyText(table_, record.values);
        if (!key.empty()) {
            const auto [first, isNew] = keys_.emplace(key, record.file + ":" + std::to_string(record.line));
            if (!isNew) {
                faults_.add(record.file, record.line, "the key stands already at " + first->second);
                return;
            }
        }
        content_.records.push_back(std::move(record));
    }

    TableContent& content_;
    const Table& table_;
    Faults& faults_;
    std::string file_;
    std::string language_;
    std::vector<std::size_t> columns_;  ///< The table's column of each field of the file.
    std::map<std::string, std::string> keys_;
};

}  // namespace

Content readContent(const fs::path& folder, Faults& faults) {
    Content content;
    for (const auto& table : schemaTables()) content.tables.push_back({&table, {}});

    std::error_code ignored;
    if (!fs::is_directory(folder, ignored)) {
        faults.add(folder.string(), "there is no such folder");
        return content;
    }
    try {
        finishExchange(folder);
    } catch (const std::exception& failure) {
        faults.add(folder.string(), failure.what());
        return content;
    }
    const auto files = contentFiles(folder);
    for (auto& tableContent : content.tables) {
        TableReader reader(tableContent, faults);
        bool found = false;
        for (const auto& file : files) {
            const ContentFileName name = contentFileName(file);
            if (name.table != tableContent.table->name) continue;
            if (name.extension == ".csv") {
                reader.readCsvFile(file, name.language);
                found = true;
            } else if (name.extension == ".rtf" && name.table == "thelp") {
                reader.readDocument(file, name);
                found = true;
            }
        }
        if (!found && !tableContent.table->isOptional)
            faults.add(folder.string(), "the table " + std::string(tableContent.table->name) + " is missing");
    }
    if (fs::exists(folder / rejectedName, ignored))
        faults.warn(rejectedName,
                    "the import could not take these rows; enter them in the tables, or remove the file");
    for (const auto& file : files) {
        if (file.filename() == rejectedName) continue;
        const auto known = std::ranges::find(schemaTables(), contentFileName(file).table, &Table::name);
        if (file.extension() == ".csv" && known == schemaTables().end())
            faults.add(file.filename().string(), "there is no table of this name");
    }
    return content;
}

const std::string& TableContent::text(const Record& record, std::string_view column) const {
    return std::get<std::string>(record.values[table->columnIndex(column)]);
}

int TableContent::integer(const Record& record, std::string_view column) const {
    return std::get<int>(record.values[table->columnIndex(column)]);
}

double TableContent::real(const Record& record, std::string_view column) const {
    return std::get<double>(record.values[table->columnIndex(column)]);
}

std::optional<double> TableContent::optionalReal(const Record& record, std::string_view column) const {
    const auto* const value = std::get_if<double>(&record.values[table->columnIndex(column)]);
    return value ? std::optional(*value) : std::nullopt;
}

std::string TableContent::optionalText(const Record& record, std::string_view column) const {
    const auto* const value = std::get_if<std::string>(&record.values[table->columnIndex(column)]);
    return value ? *value : std::string();
}

const TableContent& Content::table(std::string_view name) const {
    return *std::ranges::find(tables, name, [](const TableContent& each) { return each.table->name; });
}

}  // namespace marvello

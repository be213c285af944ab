#include "tools/catalogue/Content.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>
#include <optional>
#include <system_error>

#include "data/Csv.h"
#include "data/FileText.h"
#include "data/Numbers.h"
#include "data/Texts.h"
#include "tools/catalogue/TableExchange.h"

namespace marvello {

namespace {

namespace fs = std::filesystem;

/// A value, or the reason why the text is none.
struct Parsed {
    Value value;
    std::string reason;
};

template <class T>
bool parsesWholly(std::string_view text, T& value) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size();
}

Parsed parsedReal(std::string_view field) {
    double value = 0;
    if (!parsesWholly(field, value) || !std::isfinite(value))
        return {{}, "\"" + std::string(field) + "\" is not a number"};
    return {value, {}};
}

Parsed parsedInteger(std::string_view field, ColumnKind kind) {
    int value = 0;
    if (!parsesWholly(field, value)) return {{}, "\"" + std::string(field) + "\" is not a whole number"};
    if (kind == ColumnKind::byte && (value < 0 || value > 255))
        return {{}, std::string(field) + " is outside 0 to 255"};
    return {value, {}};
}

Parsed parsedName(const std::string& field) {
    if (trimmed(field) != field)
        return {{}, "\"" + field + "\" begins or ends with a blank; remove it, or nothing finds the name"};
    // Names are pasted into statements and into "key|caption;key|caption" lists.
    if (field.find_first_of("';|") != std::string::npos)
        return {{}, "\"" + field + "\" holds one of the characters ' ; | that a name cannot have"};
    return {field, {}};
}

Parsed parsedPoints(const std::string& field) {
    std::string text = field;
    std::erase_if(text, [](char c) { return c == '(' || c == ')'; });
    const auto points = splitText(text, ';');
    for (const std::string& point : points) {
        const auto comma = point.find(',');
        if (comma == std::string::npos || !storedNumber(point.substr(0, comma)) ||
            !storedNumber(point.substr(comma + 1)))
            return {{}, "\"" + point + "\" is not a point \"x,y\""};
    }
    if (points.size() < 4)
        return {{}, "a polyline needs at least four points and has " + std::to_string(points.size())};
    return {field, {}};
}

Parsed parsed(const std::string& field, ColumnKind kind) {
    const bool mayBeEmpty =
        kind == ColumnKind::nullable || kind == ColumnKind::freeText || kind == ColumnKind::optionalReal;
    if (trimmed(field).empty() && !mayBeEmpty) return {{}, "the value is missing"};
    switch (kind) {
        case ColumnKind::name:
            return parsedName(field);
        case ColumnKind::text:
        case ColumnKind::freeText:
            return {field, {}};
        case ColumnKind::nullable:
            return {field.empty() ? Value() : Value(field), {}};
        case ColumnKind::integer:
        case ColumnKind::byte:
            return parsedInteger(field, kind);
        case ColumnKind::real:
            return parsedReal(field);
        case ColumnKind::optionalReal:
            return trimmed(field).empty() ? Parsed{} : parsedReal(field);
        case ColumnKind::points:
            return parsedPoints(field);
        case ColumnKind::boolean:
            if (equalIgnoringCase(field, "true")) return {1, {}};
            if (equalIgnoringCase(field, "false")) return {0, {}};
            return {{}, "\"" + field + "\" is neither True nor False"};
    }
    return {};
}

/// What the name of a file in the content folder says.
struct FileName {
    std::string table;
    std::string language;  ///< Second part, of a table by language.
    std::string document;  ///< Third part, of a help document.
    std::string extension;
};

FileName splitName(const fs::path& file) {
    FileName name;
    name.extension = file.extension().string();
    std::string stem = file.stem().string();
    const auto takePart = [&stem] {
        const auto dot = std::min(stem.find('.'), stem.size());
        std::string part = stem.substr(0, dot);
        stem.erase(0, std::min(dot + 1, stem.size()));
        return part;
    };
    name.table = takePart();
    name.language = takePart();
    name.document = stem;
    return name;
}

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

    void readDocument(const fs::path& file, const FileName& name) {
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
            auto [value, reason] = parsed(csv.fields[field], column.kind);
            if (!reason.empty()) {
                faults_.add(file_, csv.line, std::string(column.name) + ": " + reason);
                sound = false;
            }
            record.values[columns_[field]] = std::move(value);
        }
        if (sound) addRecord(std::move(record));
    }

    void addRecord(Record record) {
        std::string key;
        for (const auto column : table_.key) key += keyText(record.values[table_.columnIndex(column)]) + '\n';
        if (!key.empty()) {
            const auto [first, isNew] = keys_.emplace(key, record.file + ":" + std::to_string(record.line));
            if (!isNew) {
                faults_.add(record.file, record.line, "the key stands already at " + first->second);
                return;
            }
        }
        content_.records.push_back(std::move(record));
    }

    static std::string keyText(const Value& value) {
        if (const auto* const text = std::get_if<std::string>(&value)) return lowered(*text);
        if (const auto* const whole = std::get_if<int>(&value)) return std::to_string(*whole);
        if (const auto* const real = std::get_if<double>(&value)) return storedText(*real);
        return {};
    }

    TableContent& content_;
    const Table& table_;
    Faults& faults_;
    std::string file_;
    std::string language_;
    std::vector<std::size_t> columns_;  ///< The table's column of each field of the file.
    std::map<std::string, std::string> keys_;
};

std::vector<fs::path> filesOf(const fs::path& folder) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(folder))
        if (entry.is_regular_file()) files.push_back(entry.path());
    std::ranges::sort(files);
    return files;
}

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
    const auto files = filesOf(folder);
    for (auto& tableContent : content.tables) {
        TableReader reader(tableContent, faults);
        bool found = false;
        for (const auto& file : files) {
            const FileName name = splitName(file);
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
    for (const auto& file : files) {
        const auto known = std::ranges::find(schemaTables(), splitName(file).table, &Table::name);
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

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "data/Texts.h"
#include "tools/catalogue/Content.h"

namespace marvello {

/// A row with its table, as the checks read it.
struct Row {
    const TableContent& table;
    const Record& record;
    Faults& faults;

    const std::string& text(std::string_view column) const { return table.text(record, column); }
    /// The text as it is compared.
    std::string key(std::string_view column) const { return lowered(text(column)); }
    int integer(std::string_view column) const { return table.integer(record, column); }
    double real(std::string_view column) const { return table.real(record, column); }
    /// None and "" for an empty field.
    std::optional<double> optionalReal(std::string_view column) const {
        return table.optionalReal(record, column);
    }
    std::string optionalText(std::string_view column) const { return table.optionalText(record, column); }

    /// File and line, for a remark at another place.
    std::string place() const { return record.file + ":" + std::to_string(record.line); }
    /// The values of the key, as "R134A, TK-A, 120".
    std::string name() const;
    void fault(const std::string& reason) const {
        faults.add(record.file, record.line, reason + " (" + name() + ")");
    }
    void warn(const std::string& reason) const {
        faults.warn(record.file, record.line, reason + " (" + name() + ")");
    }
};

template <class Check>
void forEachRow(const Content& content, std::string_view table, Faults& faults, Check check) {
    const TableContent& rows = content.table(table);
    for (const auto& record : rows.records) check(Row{rows, record, faults});
}

/// "a, b, c and 17 more", for a sentence that must not grow without end.
std::string shortList(const std::vector<std::string>& names);

}  // namespace marvello

#include "tests/fuzz/Edits.h"

#include <array>
#include <set>

#include "data/Texts.h"

namespace marvello::fuzz {

namespace {

template <class Kept>
void keep(Content& content, std::string_view name, Kept isKept) {
    for (TableContent& table : content.tables)
        if (table.table->name == name)
            std::erase_if(table.records, [&](const Record& record) { return !isKept(table, record); });
}

}  // namespace

Content cutContent() {
    Faults faults;
    Content content = readContent(MARVELLO_SOURCE_FOLDER "/content", faults);
    std::set<std::string> named;
    keep(content, "tCompressors", [&](const TableContent& table, const Record& record) {
        const std::string model = table.text(record, "fSerieID") + " " + table.text(record, "fModelID");
        const bool isKept = table.text(record, "fRefrigerantID") == "R134A" &&
                            (model == "TK-A 120" || model == "TK-D 140" || model == "NL-H 165");
        if (isKept)
            for (const Value& value : record.values)
                if (const auto* text = std::get_if<std::string>(&value)) named.insert(lowered(*text));
        return isKept;
    });
    const auto keepNamed = [&](const char* name, const char* column) {
        keep(content, name, [&](const TableContent& table, const Record& record) {
            return named.contains(lowered(table.text(record, column)));
        });
    };
    keepNamed("tPolynomials", "fPolynomialID");
    keepNamed("tLimits", "fLimitID");
    constexpr int most = 12;
    for (const char* table : {"tDictionary", "thelp", "tParametersHead", "tParametersRows"})
        keep(content, table,
             [left = most](const TableContent&, const Record&) mutable { return left-- > 0; });
    keep(content, "thelp", [](const TableContent& table, const Record& record) {
        return table.text(record, "fhelp").size() < 2000;
    });
    return content;
}

std::string withChangedBytes(std::string file, FuzzedDataProvider& changes) {
    while (changes.remaining_bytes() > 0) {
        const auto at = changes.ConsumeIntegralInRange<std::size_t>(0, file.size() - 1);
        file[at] = static_cast<char>(changes.ConsumeIntegral<std::uint8_t>());
        if (changes.ConsumeIntegral<std::uint8_t>() == 1) file.resize(at + 1);
    }
    return file;
}

std::string withChangedFields(std::string text, FuzzedDataProvider& changes) {
    constexpr std::array values{"",      "0",   "-1",    "1e300", "-1e-300", "2147483648", "nan", "\"",
                                ",",     ";;",  "|",     "\r\n",  "'",       "True",       "{x}", "@",
                                "R134A", "1,2", "0,0;0", "#",     "..",      "/",          "E",   "\xC3"};
    constexpr const char* separators = ",=\"\n";
    while (changes.remaining_bytes() > 0) {
        auto begin = changes.ConsumeIntegralInRange<std::size_t>(0, text.size());
        auto end = begin + changes.ConsumeIntegralInRange<std::size_t>(0, 8);
        if (changes.ConsumeBool()) {  // a whole field
            begin = std::min(text.find_first_of(separators, begin), text.size() - 1) + 1;
            end = text.find_first_of(separators, begin);
        }
        end = std::clamp(end, begin, text.size());
        const auto value = changes.ConsumeIntegralInRange<std::size_t>(0, 2 * values.size());
        text.replace(begin, end - begin,
                     value < values.size() ? values[value] : changes.ConsumeRandomLengthString(8));
        if (text.empty()) return text;
    }
    return text;
}

}  // namespace marvello::fuzz

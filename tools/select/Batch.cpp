#include "tools/select/Batch.h"

#include <algorithm>
#include <utility>

#include "data/Csv.h"
#include "data/Faults.h"

namespace marvello::select {

namespace {

/// The fields of a line; none for an empty one.
std::optional<std::vector<std::string>> fieldsOf(std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (!isUtf8(line)) throw BadRequest("the text is not valid UTF-8");
    Faults ignored;  // the record has its own
    std::vector<CsvRecord> records = readCsv(line, {}, ignored);
    if (records.empty()) return std::nullopt;
    if (!records.front().fault.empty()) throw BadRequest(records.front().fault);
    return std::move(records.front().fields);
}

}  // namespace

std::optional<BatchColumns> readColumns(std::string_view line) {
    const auto names = fieldsOf(line);
    if (!names) return std::nullopt;
    BatchColumns columns;
    const auto options = requestOptions();
    for (const std::string& name : *names) {
        const auto option = std::ranges::find(options, name, &RequestOption::name);
        if (option == options.end()) throw BadRequest("there is no option " + name);
        if (std::ranges::find(columns, &*option) != columns.end())
            throw BadRequest("the column " + name + " is there twice");
        columns.push_back(&*option);
    }
    return columns;
}

std::optional<Request> readRequest(std::string_view line, const BatchColumns& columns, const Request& base,
                                   const Choices& choices) {
    const auto fields = fieldsOf(line);
    if (!fields) return std::nullopt;
    if (fields->size() != columns.size())
        throw BadRequest("the line has " + std::to_string(fields->size()) + " fields, not " +
                         std::to_string(columns.size()));
    Request request = base;
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (!(*fields)[i].empty()) readOption(request, *columns[i], (*fields)[i], choices);
    checkRequest(request);
    return request;
}

}  // namespace marvello::select

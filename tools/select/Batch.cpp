#include "tools/select/Batch.h"

#include <algorithm>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

#include "data/Csv.h"
#include "data/Faults.h"

namespace marvello::select {

namespace {

/// The record of a line; none for an empty one. Each line is read for itself, so that a quote without end
/// spoils no other line.
std::optional<CsvRecord> recordOf(std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (!isUtf8(line)) return CsvRecord{0, {}, "the text is not valid UTF-8"};
    Faults ignored;  // the record has its own
    std::vector<CsvRecord> records = readCsv(line, {}, ignored);
    if (records.empty()) return std::nullopt;
    return std::move(records.front());
}

void checkHeader(const std::vector<std::string>& header, const std::string& place) {
    std::set<std::string> seen;
    for (const std::string& name : header) {
        const auto& options = requestOptions();
        if (std::ranges::find(options, name, &RequestOption::name) == options.end())
            throw BadRequest(place + "there is no option " + name);
        if (!seen.insert(name).second) throw BadRequest(place + "the column " + name + " is there twice");
    }
}

Request requestOf(const std::vector<std::string>& fields, const std::vector<std::string>& header,
                  const Request& base, const Choices& choices) {
    if (fields.size() != header.size())
        throw BadRequest("the line has " + std::to_string(fields.size()) + " fields, not " +
                         std::to_string(header.size()));
    Request request = base;
    for (std::size_t column = 0; column < header.size(); ++column)
        if (!fields[column].empty()) readOption(request, header[column], fields[column], choices);
    checkRequest(request);
    return request;
}

}  // namespace

std::vector<BatchLine> readBatch(const std::string& text, const std::string& file, const Request& base,
                                 const Choices& choices) {
    std::vector<BatchLine> lines;
    std::vector<std::string> header;
    int number = 0;
    for (std::size_t at = 0, end = 0; at < text.size(); at = end + 1) {
        end = std::min(text.find('\n', at), text.size());
        const std::string place = file + ":" + std::to_string(++number);
        auto record = recordOf(std::string_view(text).substr(at, end - at));
        if (!record) continue;
        if (header.empty()) {
            if (!record->fault.empty()) throw BadRequest(place + ": " + record->fault);
            header = std::move(record->fields);
            checkHeader(header, place + ": ");
            continue;
        }
        BatchLine& line = lines.emplace_back(BatchLine{place, {}, record->fault});
        if (!line.fault.empty()) continue;
        try {
            line.request = requestOf(record->fields, header, base, choices);
        } catch (const BadRequest& fault) {
            line.fault = fault.what();
        }
    }
    if (header.empty()) throw BadRequest(file + " has no header line");
    return lines;
}

}  // namespace marvello::select

#include "tools/select/Batch.h"

#include "tools/csv/Csv.h"
#include "tools/csv/Faults.h"

namespace marvello::select {

std::vector<Request> readBatch(const std::string& text, const std::string& file, const Request& base) {
    Faults faults;
    const std::vector<CsvRecord> records = readCsv(text, file, faults);
    if (!faults.empty()) throw BadRequest(faults.lines().front());
    if (records.empty()) throw BadRequest(file + " has no header line");
    const std::vector<std::string>& header = records.front().fields;
    std::vector<Request> requests;
    for (std::size_t i = 1; i < records.size(); ++i) {
        const std::string place = file + ":" + std::to_string(records[i].line) + ": ";
        if (records[i].fields.size() != header.size()) {
            throw BadRequest(place + "the line has " + std::to_string(records[i].fields.size()) +
                             " fields, not " + std::to_string(header.size()));
        }
        Request request = base;
        try {
            for (std::size_t column = 0; column < header.size(); ++column) {
                const std::string& field = records[i].fields[column];
                if (!field.empty()) readOption(request, header[column], field);
            }
            checkRequest(request);
        } catch (const BadRequest& fault) {
            throw BadRequest(place + fault.what());
        }
        requests.push_back(request);
    }
    return requests;
}

}  // namespace marvello::select

// Any text as rating points, as a batch of operating points and as a load profile: refused with file and
// line, or fitted and read.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include "data/Csv.h"
#include "engine/LoadProfile.h"
#include "tests/fuzz/Refusal.h"
#include "tools/catalogue/Fit.h"
#include "tools/select/Batch.h"

namespace {

using namespace marvello;

/// What is read can be written again and says the same then.
void readAgain(const std::string& text) {
    Faults faults;
    const auto records = readCsv(text, "a.csv", faults);
    if (!faults.empty()) return;
    std::string written;
    for (const CsvRecord& record : records) {
        for (const std::string& field : record.fields)
            written += (&field == &record.fields.front() ? "" : ",") + csvField(field);
        written += '\n';
    }
    if (written.starts_with("\xEF")) return;  // may begin with a byte order mark now
    const auto again = readCsv(written, "a.csv", faults);
    if (!faults.empty() || again.size() != records.size()) std::abort();
    for (std::size_t i = 0; i < records.size(); ++i)
        if (again[i].fields != records[i].fields) std::abort();
}

void fitPoints(const std::string& text) {
    for (const bool isDischarge : {false, true}) {
        Faults faults;
        const auto points = readRatingPoints(text, "a.csv", {}, faults);
        if (!faults.empty()) return;
        FitRequest request;
        request.isDischarge = isDischarge;
        request.limit = {{-10, 30}, {10, 30}, {10, 60}, {-10, 30}};
        const auto columns = fitColumns(points, request, "a.csv", faults);
        if (!faults.empty()) continue;
        for (std::size_t i = 0; i < columns.size(); ++i) {
            for (const double coefficient : columns[i].coefficients)
                if (!std::isfinite(coefficient)) std::abort();
            (void)polynomialRow(columns[i], request);
            (void)fitReport(columns[i], points, i);
        }
    }
}

/// A line of a batch; the first one with names has the columns.
void readDuty(std::string_view line, std::optional<select::BatchColumns>& columns) {
    const select::Choices choices{{0, 1}, {0, 1, 2}, {0, 1, 2}, {-1, 0, 1}, {1450}, {400}, {50, 60}};
    try {
        if (!columns) {
            columns = select::readColumns(line);
            return;
        }
        const auto request = select::readRequest(line, *columns, {}, choices);
        if (request && !std::isfinite(request->conditions.TEvaporatingDew)) std::abort();
    } catch (const select::BadRequest& refusal) {
        fuzz::checkIsForPeople(refusal);
    }
}

void readDuties(std::string_view text) {
    std::optional<select::BatchColumns> columns;
    for (std::size_t at = 0, end = 0; at < text.size(); at = end + 1) {
        end = std::min(text.find('\n', at), text.size());
        readDuty(text.substr(at, end - at), columns);
    }
}

void readProfile(const std::string& text) {
    for (const bool hasLoad : {true, false}) {
        try {
            const LoadProfile profile = loadProfileIn(text, "a.csv", hasLoad);
            if (profile.bins.empty() || !std::isfinite(profile.hours())) std::abort();
            for (const LoadBin& bin : profile.bins)
                if (!(bin.hours >= 0 && bin.load >= 0 && bin.load <= 1)) std::abort();
        } catch (const LoadProfileFault& refusal) {
            fuzz::checkIsForPeople(refusal);
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    readAgain(text);
    fitPoints(text);
    readDuties(text);
    readProfile(text);
    return 0;
}

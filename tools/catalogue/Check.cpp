#include "tools/catalogue/Check.h"

#include <set>

#include "tools/catalogue/Rows.h"

namespace marvello {

void checkContent(const Content& content, const std::optional<std::filesystem::path>& fluids,
                  const std::filesystem::path& pictures, Faults& faults) {
    checkReferences(content, fluids, faults);
    checkSurfaces(content, faults);
    checkEnvelopes(content, faults);
    checkPerformance(content, faults);
    checkRefrigerantFacts(content, faults);
    checkTexts(content, faults);
    checkParameterSets(content, faults);
    checkPictures(content, pictures, faults);
}

std::string contentSummary(const Content& content) {
    Faults none;
    std::set<std::string> series;
    forEachRow(content, "tCompressors", none, [&](const Row& row) { series.insert(row.key("fSerieID")); });
    const auto count = [&](const char* table) { return std::to_string(content.table(table).records.size()); };
    return count("tCompressors") + " compressors in " + std::to_string(series.size()) + " series, " +
           count("tRefrigeranti") + " refrigerants, " + count("tLimits") + " envelope lines, " +
           count("tMotors") + " motors, " + count("tLanguages") + " languages";
}

}  // namespace marvello

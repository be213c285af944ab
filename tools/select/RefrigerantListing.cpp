#include "tools/select/RefrigerantListing.h"

#include <vector>

#include "catalogue/CatalogueLists.h"
#include "catalogue/RefrigerantFacts.h"
#include "results/RefrigerantTexts.h"
#include "tools/select/AlignedTable.h"

namespace marvello::select {

std::string refrigerantListing(bool inverter) {
    std::vector<Cells> lines{{"Refrigerant", "Class", "GWP AR4", "GWP AR5", "GWP AR6", "ODP", "Boiling C",
                              "Glide K", "Critical C"}};
    for (const std::string& name : refrigerantsOf({.onInverter = inverter})) {
        const RefrigerantFacts facts = factsOf(name);
        lines.push_back({name, factText(facts.safetyClass), factText(facts.gwpAr4, gwpPattern),
                         factText(facts.gwpAr5, gwpPattern), factText(facts.gwpAr6, gwpPattern),
                         factText(facts.odp, odpPattern), factText(facts.boilingPoint, degreesPattern),
                         factText(facts.glide, degreesPattern),
                         factText(facts.criticalTemperature, degreesPattern)});
    }
    if (lines.size() == 1) return {};
    const std::vector<std::size_t> widths = widthsOf(lines, std::vector<std::size_t>(lines.front().size()));
    std::string listing;
    for (const Cells& line : lines) listing += lineText(line, widths, 2);
    return listing;
}

}  // namespace marvello::select

#include "tools/select/RefrigerantListing.h"

#include <array>
#include <vector>

#include "catalogue/CatalogueLists.h"
#include "catalogue/RefrigerantFacts.h"
#include "data/Texts.h"
#include "results/RefrigerantTexts.h"

namespace marvello::select {

namespace {

constexpr std::size_t columns = 9;
constexpr std::array<std::size_t, columns> widths{12, 6, 9, 9, 9, 7, 10, 8, 11};
using Cells = std::array<std::string, columns>;

std::string lineOf(const Cells& cells) {
    std::string line;
    for (std::size_t i = 0; i < columns; ++i) line += padded(cells.at(i), widths.at(i), i > 1);
    return line + '\n';
}

}  // namespace

std::string refrigerantListing(bool inverter) {
    const std::vector<std::string> names = refrigerantsOf({.onInverter = inverter});
    if (names.empty()) return {};
    std::string listing = lineOf({"Refrigerant", "Class", "GWP AR4", "GWP AR5", "GWP AR6", "ODP", "Boiling C",
                                  "Glide K", "Critical C"});
    for (const std::string& name : names) {
        const RefrigerantFacts facts = factsOf(name);
        listing += lineOf({name, factText(facts.safetyClass), factText(facts.gwpAr4, gwpPattern),
                           factText(facts.gwpAr5, gwpPattern), factText(facts.gwpAr6, gwpPattern),
                           factText(facts.odp, odpPattern), factText(facts.boilingPoint, degreesPattern),
                           factText(facts.glide, degreesPattern),
                           factText(facts.criticalTemperature, degreesPattern)});
    }
    return listing;
}

}  // namespace marvello::select

#include "tools/select/PutBack.h"

#include <array>
#include <utility>

#include "catalogue/SeriesTraits.h"

namespace marvello::select {

std::vector<std::string> putBackRemarks(const std::map<std::string, unsigned>& bySeries) {
    // The speed is not said: only an open drive has it, and its series permits it.
    constexpr std::array texts{
        std::pair{Selector::economizer, "no economizer; calculated without"},
        std::pair{Selector::oilCooling, "no choice of oil cooling; calculated with the catalogue's limit"},
        std::pair{Selector::motorVoltage, "no choice of the supply; calculated at 400 V and 50 Hz"},
        std::pair{Selector::motorSize, "no choice of the motor; calculated with the standard one"}};
    std::vector<std::string> remarks;
    for (const auto& [selector, text] : texts) {
        std::string names;
        for (const auto& [series, mask] : bySeries)
            if (allows(mask, selector)) names += (names.empty() ? "" : ", ") + series;
        if (!names.empty()) remarks.push_back(names + ": " + text);
    }
    return remarks;
}

}  // namespace marvello::select

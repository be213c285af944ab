#include "inputs/CoupleLeaders.h"

namespace marvello {

void CoupleLeaders::typed(std::string_view name) {
    if (name == "ted" || name == "tem" || name == "pe") evaporatingField_ = name;
    if (name == "tcd" || name == "tcm" || name == "pc") condensingField_ = name;
    // Kept: a condensing pressure leaves the temperature that leads as it was, for what changes later is
    // worked out from that.
    if (name == "tcd" || name == "tcm") midLeadsCondensation_ = name == "tcm";
}

}  // namespace marvello

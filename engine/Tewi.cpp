#include "engine/Tewi.h"

namespace marvello {

std::string_view nameOf(GwpBasis basis) {
    switch (basis) {
        case GwpBasis::ar5:
            return "AR5";
        case GwpBasis::ar6:
            return "AR6";
        case GwpBasis::ar4:
            break;
    }
    return "AR4";
}

std::optional<double> gwpOf(const RefrigerantFacts& facts, GwpBasis basis) {
    switch (basis) {
        case GwpBasis::ar5:
            return facts.gwpAr5;
        case GwpBasis::ar6:
            return facts.gwpAr6;
        case GwpBasis::ar4:
            break;
    }
    return facts.gwpAr4;
}

Tewi tewiOf(double energy, const EmissionInputs& inputs) {
    Tewi tewi;
    if (inputs.charge && inputs.gwp) {
        const double leaked = *inputs.charge * inputs.leakage / 100 * inputs.years;
        const double lost = *inputs.charge * (1 - inputs.recovery / 100);
        tewi.direct = *inputs.gwp * (leaked + lost);
    }
    if (inputs.grid) tewi.indirect = inputs.years * energy * *inputs.grid;
    if (tewi.direct && tewi.indirect) tewi.total = *tewi.direct + *tewi.indirect;
    return tewi;
}

}  // namespace marvello

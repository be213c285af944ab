#include "data/RefrigerantFluids.h"

#include "data/Texts.h"

namespace marvello {

std::vector<FluidShare> fluidsOf(clsDatabase& db, const std::string& refrigerant) {
    std::vector<FluidShare> fluids;
    for (RecordSet row =
             db.Execute("SELECT tRefrigeranti.fRefrigeranteId, tFluidi.fFluido, tFluidi.fPFluido FROM "
                        "tRefrigeranti LEFT "
                        "JOIN tFluidi ON tRefrigeranti.fRefrigeranteId = tFluidi.fRefrigeranteId WHERE "
                        "tFluidi.fRefrigeranteId='" +
                        refrigerant + "'");
         !row.eof(); row.moveNext())
        fluids.push_back({trimmed(row.text("fFluido")), row.number("fPFluido")});
    return fluids;
}

}  // namespace marvello

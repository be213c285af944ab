#include "catalogue/RefrigerantFacts.h"

#include "catalogue/PreparedCatalogue.h"
#include "data/Session.h"

namespace marvello {

RefrigerantFacts factsOf(const std::string& refrigerant) {
    try {
        return preparedCatalogue(gDatabase())->factsOf(refrigerant);
    } catch (const DatabaseError&) {
        return {};  // who calculates from the catalogue says what is wrong with it
    }
}

}  // namespace marvello

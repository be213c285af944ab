#include "bench/Catalogue.h"

#include "data/Session.h"

namespace marvello::bench {

std::vector<Series> seriesOfCatalogue() {
    std::vector<Series> series;
    for (RecordSet row = gDatabase().Execute("Select distinct fRefrigerantID, fSerieID from tCompressors "
                                             "order by fRefrigerantID, fSerieID");
         !row.eof(); row.moveNext()) {
        series.push_back({row.text("fRefrigerantID"), row.text("fSerieID")});
    }
    return series;
}

}  // namespace marvello::bench

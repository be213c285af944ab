#include "bench/Catalogue.h"

#include "data/ApplicationFolder.h"
#include "data/Globals.h"

namespace marvello::bench {

void openShippedCatalogue() {
    setApplicationFolder(MARVELLO_APP_FOLDER);
    gDatabase().CloseConnection();
    gDatabase().Connect("Data Source=" MARVELLO_APP_FOLDER "/db.mdb");
}

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

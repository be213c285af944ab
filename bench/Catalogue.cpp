#include "bench/Catalogue.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <exception>

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

int runOnCatalogue(int argc, char** argv, const std::function<void()>& open) {
    try {
        const Session session(MARVELLO_APP_FOLDER);
        open();
        benchmark::Initialize(&argc, argv);
        benchmark::RunSpecifiedBenchmarks();
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "%s\n", fault.what());
        return 2;
    }
    return 0;
}

}  // namespace marvello::bench

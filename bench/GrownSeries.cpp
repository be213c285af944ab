#include "bench/GrownSeries.h"

#include <SQLiteCpp/Database.h>

#include <filesystem>

#include "tools/catalogue/Content.h"

namespace marvello::bench {

void growSeries(const std::string& file, int copies) {
    std::filesystem::copy_file(MARVELLO_APP_FOLDER "/db.mdb", file);
    {
        SQLite::Database grown(file, SQLite::OPEN_READWRITE);
        grown.exec(
            "CREATE TEMP TABLE more AS SELECT * FROM tCompressors WHERE fRefrigerantID='R134A' AND "
            "fSerieID='TK-A'; CREATE TEMP TABLE shipped AS SELECT rowid AS id, fModelID FROM more");
        for (int copy = 1; copy < copies; ++copy)
            grown.exec("UPDATE more SET fModelID=(SELECT fModelID FROM shipped WHERE id=more.rowid)||'/" +
                       std::to_string(copy) + "'; INSERT INTO tCompressors SELECT * FROM more");
    }
    sealCatalogue(file);
}

}  // namespace marvello::bench

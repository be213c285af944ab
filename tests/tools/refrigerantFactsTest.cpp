// The facts of the refrigerants from the text tables to the program.

#include <gmock/gmock.h>

#include <SQLiteCpp/Database.h>

#include <array>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include "catalogue/PreparedCatalogue.h"
#include "data/RefrigerantFluids.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/tools/SmallContent.h"
#include "tools/catalogue/Check.h"
#include "tools/catalogue/Dump.h"

using namespace marvello;
using ::testing::IsEmpty;

namespace {

namespace fs = std::filesystem;

/// A catalogue file made of a folder of text tables.
class BuiltCatalogue {
  public:
    explicit BuiltCatalogue(const fs::path& tables) {
        Faults faults;
        writeCatalogue(readContent(tables, faults), file());
        EXPECT_THAT(faults.lines(), IsEmpty());
        database.Connect("Data Source=" + file().string());
    }
    fs::path file() const { return folder_ / "db.mdb"; }

    clsDatabase database;

  private:
    test::TemporaryFolder folder_{"marvello-facts"};
};

fs::path wholeContent() { return fs::path(MARVELLO_SOURCE_FOLDER) / "content"; }

/// GWP by AR4, AR5 and AR6 as the tables of Öko-Recherche print them.
struct Published {
    const char* blend;
    std::array<double, 3> gwp;
};
constexpr std::array<Published, 13> published{{{"R404A", {3922, 3943, 4728}},
                                               {"R407A", {2107, 1923, 2262}},
                                               {"R407C", {1774, 1624, 1908}},
                                               {"R407F", {1825, 1674, 1965}},
                                               {"R410A", {2088, 1924, 2256}},
                                               {"R507", {3985, 3985, 4775}},
                                               {"R448A", {1387, 1273, 1494}},
                                               {"R449A", {1397, 1282, 1504}},
                                               {"R450A", {605, 547, 643}},
                                               {"R452A", {2140, 1945, 2292}},
                                               {"R454C", {148, 146, 166}},
                                               {"R455A", {148, 146, 166}},
                                               {"R513A", {631, 573, 673}}}};

TEST(RefrigerantFactsOfTheCatalogue, BlendsHaveThePublishedFiguresAndTheirComponentsGiveThem) {
    BuiltCatalogue catalogue(wholeContent());
    const PreparedCatalogue prepared(catalogue.database);
    // The pure refrigerants by the file of their fluid.
    std::map<std::string, std::string> pure;
    for (RecordSet row = catalogue.database.Execute("Select * from tFluidi where fPFluido=1"); !row.eof();
         row.moveNext())
        pure[row.text("fFluido")] = row.text("fRefrigeranteId");
    for (const auto& [blend, gwp] : published) {
        const RefrigerantFacts& facts = prepared.factsOf(blend);
        EXPECT_THAT((std::array{facts.gwpAr4, facts.gwpAr5, facts.gwpAr6}), ::testing::ElementsAreArray(gwp))
            << blend;
        std::array<double, 3> weighted{};
        for (const FluidShare& share : fluidsOf(catalogue.database, blend)) {
            const RefrigerantFacts& component = prepared.factsOf(pure.at(share.file));
            weighted[0] += share.massFraction * component.gwpAr4.value();
            weighted[1] += share.massFraction * component.gwpAr5.value();
            weighted[2] += share.massFraction * component.gwpAr6.value();
        }
        for (std::size_t i = 0; i < gwp.size(); ++i) EXPECT_NEAR(weighted.at(i), gwp.at(i), 0.5001) << blend;
    }
}

TEST(RefrigerantFactsOfTheCatalogue, LeaveOutWhatIsNotConfirmed) {
    BuiltCatalogue catalogue(wholeContent());
    const PreparedCatalogue prepared(catalogue.database);
    EXPECT_EQ(prepared.factsOf("R513A").safetyClass, "A1");
    EXPECT_EQ(prepared.factsOf("R717").safetyClass, "B2L");
    EXPECT_EQ(prepared.factsOf("R22").odp, 0.055);
    EXPECT_EQ(prepared.factsOf("R407A").safetyClass, "");
    EXPECT_EQ(prepared.factsOf("R152A").safetyClass, "");
    EXPECT_EQ(prepared.factsOf("R600A").gwpAr6, std::nullopt);
    EXPECT_EQ(prepared.factsOf("R1270").gwpAr6, std::nullopt);
    // Carbon dioxide sublimes at 1 atm and has a critical point all the same: 31.0 degC.
    EXPECT_EQ(prepared.factsOf("R744").boilingPoint, std::nullopt);
    EXPECT_NEAR(prepared.factsOf("R744").criticalTemperature.value(), 30.98, 0.02);
    // Ammonia: -33.3 and 132.4 degC.
    EXPECT_NEAR(prepared.factsOf("R717").boilingPoint.value(), -33.3, 0.1);
    EXPECT_NEAR(prepared.factsOf("R717").criticalTemperature.value(), 132.4, 0.1);
}

TEST(RefrigerantFactsOfTheCatalogue, ContentAndCataloguesFromBeforeThereWereFactsServe) {
    const test::TemporaryFolder tables("marvello-before");
    test::writeSmallContent(tables);
    fs::remove(tables / "tRefrigerantFacts.csv");
    fs::remove(tables / "tSources.csv");
    BuiltCatalogue catalogue(tables);
    const PreparedCatalogue prepared(catalogue.database);
    EXPECT_EQ(prepared.compressors().size(), 5U);
    EXPECT_EQ(prepared.factsOf("R134A"), RefrigerantFacts());
    Faults faults;
    checkRefrigerantFacts(readContent(tables, faults), faults);
    EXPECT_THAT(faults.lines(), IsEmpty());
    EXPECT_THAT(faults.warnings(), IsEmpty());

    const test::TemporaryFolder place("marvello-older");
    fs::copy_file(catalogue.file(), place / "db.mdb");
    SQLite::Database(place / "db.mdb", SQLite::OPEN_READWRITE)
        .exec("drop table tRefrigerantFacts; drop table tSources");
    sealCatalogue(place / "db.mdb");
    const Content dumped = readCatalogue(place / "db.mdb");
    EXPECT_THAT(dumped.table("tRefrigerantFacts").records, IsEmpty());
    EXPECT_EQ(dumped.table("tCompressors").records.size(), 5U);
}

}  // namespace

#include "catalogue/PreparedCatalogue.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "catalogue/Globals.h"
#include "data/Session.h"
#include "tests/support/SmallCatalogue.h"

namespace marvello {
namespace {

namespace fs = std::filesystem;

std::string dataSource() { return gDatabase().ConnectionString; }
fs::path file() { return dataSource().substr(std::string("Data Source=").size()); }

class PreparedCatalogueTest : public ::testing::Test {
  protected:
    PreparedCatalogueTest() {
        catalogue.compressor();
        catalogue.compressor({{"fModelID", "'200'"}, {"fRefrigerantID", "'r134a'"}});
        catalogue.completeDefault();
    }

    testing::SmallCatalogue catalogue;
};

TEST_F(PreparedCatalogueTest, FindsNamesInAnyCaseAndReadsAFileOnce) {
    const auto prepared = preparedCatalogue(gDatabase());
    EXPECT_EQ(prepared->find("R134A", "tk-a", "200")->Model, "200");
    EXPECT_EQ(prepared->find("R134A", "TK-A", "300"), nullptr);
    EXPECT_EQ(prepared->find("R134A", "TK-A", "100")->capacityRows.size(), 1U);
    const long long statements = gDatabase().executedStatements();
    EXPECT_EQ(preparedCatalogue(gDatabase()), prepared);
    EXPECT_EQ(gDatabase().executedStatements(), statements);
}

// Whether it is written to, or another file takes its name; what was read before stays with those who hold
// it.
TEST_F(PreparedCatalogueTest, AChangedFileIsReadAnew) {
    const auto before = preparedCatalogue(gDatabase());
    catalogue.exec("update tCompressors set fFla=77");
    EXPECT_EQ(preparedCatalogue(gDatabase())->find("R134A", "TK-A", "100")->Fla, 77);
    EXPECT_EQ(before->find("R134A", "TK-A", "100")->Fla, 50);

    const fs::path other = file().string() + ".new";
    fs::copy_file(file(), other);
    catalogue.exec("update tCompressors set fFla=88");
    fs::rename(other, file());
    EXPECT_EQ(preparedCatalogue(gDatabase())->find("R134A", "TK-A", "100")->Fla, 77);

    fs::remove(file());  // what is open serves on
    EXPECT_EQ(preparedCatalogue(gDatabase())->compressors().size(), 2U);
}

TEST_F(PreparedCatalogueTest, AFileThatIsNoCatalogueLeavesTheOneBefore) {
    const auto before = preparedCatalogue(gDatabase());
    const fs::path other = file().string() + ".new";
    fs::copy_file(file(), other);
    fs::resize_file(other, 100);
    fs::rename(other, file());
    EXPECT_THROW(preparedCatalogue(gDatabase()), DatabaseError);
    EXPECT_THROW(preparedCatalogue(gDatabase()), DatabaseError);  // said again, not forgotten
    EXPECT_TRUE(gDatabase().isOpen());
}

TEST_F(PreparedCatalogueTest, SessionsShareTheCompressorsOfACheckedFile) {
    gDatabase().followFile();
    gDatabase().checkUndamaged();
    const auto mine = preparedCatalogue(gDatabase());
    const std::string source = dataSource();
    const Session other(MARVELLO_APP_FOLDER);
    openCatalogue(source);
    EXPECT_NE(preparedCatalogue(gDatabase()), mine);  // not yet compared with its digest
    gDatabase().CloseConnection();
    openCatalogue(source);
    gDatabase().checkUndamaged();
    EXPECT_EQ(preparedCatalogue(gDatabase()), mine);
}

TEST_F(PreparedCatalogueTest, KnowsTheFactsOfRefrigerantsAndNothingOfOthers) {
    catalogue.exec(
        "insert into tRefrigerantFacts(fRefrigeranteId,fSafetyClass,fGwpAr4,fGlide)"
        "values('R134A','A1',1430,0),('R290','A3',9e999,0)");
    const auto prepared = preparedCatalogue(gDatabase());
    EXPECT_EQ(prepared->factsOf("r134a"),
              (RefrigerantFacts{.safetyClass = "A1", .gwpAr4 = 1430, .glide = 0}));
    EXPECT_EQ(prepared->factsOf("R290"), RefrigerantFacts());  // an infinite number is none
    EXPECT_EQ(prepared->factsOf("R32"), RefrigerantFacts());

    catalogue.exec("update tRefrigerantFacts set fSafetyClass='A2L'");
    EXPECT_EQ(factsOf("R134A").safetyClass, "A2L");
    catalogue.exec("drop table tRefrigerantFacts");
    EXPECT_EQ(factsOf("R134A"), RefrigerantFacts());
    EXPECT_EQ(preparedCatalogue(gDatabase())->compressors().size(), 2U);
}

TEST_F(PreparedCatalogueTest, AFaultyRowIsAFaultOfThoseWhoNeedIt) {
    catalogue.exec("update tPolynomials set fC1=9e999 where fType=1");
    const auto prepared = preparedCatalogue(gDatabase());
    clsCompressor compressor;
    EXPECT_NO_THROW(prepared->find("R134A", "TK-A", "100")->load(compressor, {.stepCapacity = 75}));
    EXPECT_THROW(prepared->find("R134A", "TK-A", "100")->load(compressor, {.stepCapacity = 100}),
                 DatabaseError);
}

}  // namespace
}  // namespace marvello

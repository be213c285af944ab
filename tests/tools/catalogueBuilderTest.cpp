#include <gmock/gmock.h>

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <future>
#include <iterator>
#include <optional>
#include <string>

#include "data/FileText.h"
#include "data/clsDatabase.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/tools/CallProgram.h"
#include "tests/tools/SmallContent.h"
#include "tools/catalogue/Check.h"
#include "tools/catalogue/Content.h"

using namespace marvello;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

namespace {

namespace fs = std::filesystem;

class CatalogueBuilder : public ::testing::Test {
  protected:
    CatalogueBuilder() { test::writeSmallContent(folder_); }

    void append(const char* file, const char* rows) const {
        std::ofstream(folder_ / file, std::ios::app | std::ios::binary) << rows;
    }
    std::vector<std::string> faults(const std::optional<fs::path>& fluids = std::nullopt) const {
        Faults found;
        const Content content = readContent(folder_, found);
        if (found.empty()) checkReferences(content, fluids, found);
        return found.lines();
    }

    test::TemporaryFolder folder_{"marvello-content"};
};

TEST_F(CatalogueBuilder, ReplacesOnlyACatalogueAndKeepsItsRightsAndLinks) {
    const test::TemporaryFolder place("marvello-output");
    const std::string build = "build " + folder_.string() + " ";
    const auto call = [&](const std::string& arguments) {
        return ::marvello::testing::callProgram("marvello-catalogue", arguments,
                                                ::marvello::testing::Listen::errors);
    };
    fs::create_directories(place / "db.mdb.new" / "inside");
    ASSERT_EQ(call(build + (place / "db.mdb").string()).status, 0);
    EXPECT_TRUE(fs::exists(place / "db.mdb.new" / "inside"));

    const fs::perms rights = fs::perms::owner_all | fs::perms::group_read;
    fs::permissions(place / "db.mdb", rights);
    fs::create_symlink("db.mdb", place / "link");
    EXPECT_EQ(call(build + (place / "link").string()).status, 0);
    EXPECT_TRUE(fs::is_symlink(place / "link"));
    EXPECT_EQ(fs::status(place / "db.mdb").permissions(), rights);

    const fs::path table = folder_ / "tMotors.csv";
    const auto lines = test::linesOf(table);
    const auto refused = call(build + table.string());
    EXPECT_EQ(refused.status, 2);
    EXPECT_THAT(refused.out, HasSubstr("another file than a catalogue"));
    EXPECT_EQ(test::linesOf(table), lines);
    EXPECT_EQ(call(build + "\"\"").status, 2);
    EXPECT_EQ(call(build + place.string() + " --force").status, 2);
    ASSERT_EQ(mkfifo((place / "fifo").c_str(), 0600), 0);
    EXPECT_EQ(call(build + (place / "fifo").string() + " --force").status, 2);
    EXPECT_TRUE(fs::is_fifo(place / "fifo"));
    std::ofstream(place / "other") << "text";
    EXPECT_EQ(call(build + (place / "other").string()).status, 2);
    EXPECT_EQ(call(build + (place / "other").string() + " --force").status, 0);
    std::ofstream(place / "db.mdb-journal") << "left";
    EXPECT_THAT(call(build + (place / "db.mdb").string()).out, HasSubstr("db.mdb-journal"));
    EXPECT_EQ(std::distance(fs::directory_iterator(place), {}), 6);  // nothing of the builder's is left
}

/// Every byte in turn of a page's worth, all over the file.
TEST_F(CatalogueBuilder, AFlippedByteIsNeverSilent) {
    const fs::path good = folder_ / "good.mdb";
    const fs::path bad = folder_ / "bad.mdb";
    Faults none;
    writeCatalogue(readContent(folder_, none), good);
    const std::string bytes = *fileText(good);
    const auto check = [&](const std::string& content) {
        std::ofstream(bad, std::ios::binary) << content;
        clsDatabase database;
        database.Connect("Data Source=" + bad.string());
        database.checkUndamaged();
        return database.Execute("Select count(*) as n from tCompressors").integer("n");
    };
    const int compressors = check(bytes);
    EXPECT_GT(compressors, 0);
    constexpr std::size_t stride = 1009;  // a prime, so that it meets all places of a page
    int told = 0;
    int harmless = 0;
    for (std::size_t at = 0; at < bytes.size(); at += stride) {
        std::string flipped = bytes;
        flipped[at] = static_cast<char>(flipped[at] ^ (1 << at % 8));
        try {
            EXPECT_EQ(check(flipped), compressors);
            ++harmless;
        } catch (const DatabaseError&) {
            ++told;
        }
    }
    EXPECT_GT(told, 200);
    EXPECT_LE(harmless, 4096 / stride + 1);  // what is unused of the digest's own page
    EXPECT_THROW(check(bytes + "x"), DatabaseError);
    EXPECT_THROW(check(bytes.substr(0, bytes.size() - 4096)), DatabaseError);
}

TEST_F(CatalogueBuilder, TheStatementsOfALoadFindTheirRowsByIndex) {
    Faults none;
    const fs::path file = folder_ / "db.mdb";
    writeCatalogue(readContent(folder_, none), file);
    clsDatabase database;
    database.Connect("Data Source=" + file.string());
    const auto plan = [&](const std::string& sql) {
        std::string steps;
        for (auto row = database.Execute("EXPLAIN QUERY PLAN " + sql); !row.eof(); row.moveNext())
            steps += row.text("detail") + "\n";
        return steps;
    };
    const std::string series = "where fRefrigerantID='R134A' and fSerieID='TK-A'";
    const std::string one = plan("SELECT tCompressors.* FROM tCompressors " + series +
                                 " and fModelID='120' ORDER BY tCompressors.fRefrigerantID, "
                                 "tCompressors.fSerieID, tCompressors.fModelID");
    EXPECT_THAT(one, HasSubstr("fModelID=? AND fSerieID=? AND fRefrigerantID=?"));
    EXPECT_THAT(one, Not(HasSubstr("TEMP B-TREE")));
    // The lists of the forms come in the order of the sequence, without a sort.
    const std::string list = plan("Select fModelID from tCompressors " + series + " and fHasInverter=False");
    EXPECT_THAT(list, HasSubstr("tCompressorsIndex (fRefrigerantID=? AND fSerieID=?)"));
    const std::string all = plan("Select * from tCompressors " + series +
                                 " and fHasInverter=False ORDER BY tCompressors.fRefrigerantID, "
                                 "tCompressors.fSerieID, tCompressors.fSequence, tCompressors.fModelID");
    EXPECT_THAT(all, HasSubstr("tCompressorsIndex"));
    EXPECT_THAT(all, Not(HasSubstr("TEMP B-TREE")));
}

TEST_F(CatalogueBuilder, ManyBuildsOfOneFileAtOnceAllSucceed) {
    const test::TemporaryFolder place("marvello-output");
    Faults none;
    const Content content = readContent(folder_, none);
    std::vector<std::future<void>> builds;
    for (int i = 0; i < 4; ++i)
        builds.push_back(std::async(std::launch::async, [&] { writeCatalogue(content, place / "db.mdb"); }));
    for (auto& build : builds) EXPECT_NO_THROW(build.get());
    clsDatabase database;
    EXPECT_TRUE(database.Connect("Data Source=" + (place / "db.mdb").string()));
    EXPECT_EQ(std::distance(fs::directory_iterator(place), {}), 1);
}

TEST_F(CatalogueBuilder, WritesWhatItRead) {
    auto compressors = test::linesOf(folder_ / "tCompressors.csv");
    std::swap(compressors.at(1), compressors.at(2));  // TK-A 165, of the sequence 030, before 120 of 010
    test::writeLines(folder_ / "tCompressors.csv", compressors);
    append("tMotors.csv", "900,50,0,1,0,0,0,200,300.5,3,\n");
    append("tDictionary.en-EN.csv", "a.b,\"Text, with comma\"\n");
    append("tLimits.csv", "env,0,\"(0,0);(10,0);(10,10);(0,0)\"\nenv,-1,\"0,0;9,0;9,9;0,0\"\n");
    std::ofstream(folder_ / "thelp.xx-XX.terms.rtf") << "{\\rtf1 terms}";
    append("tLanguages.csv", "xx-XX,Xx\n");
    ASSERT_THAT(faults(), IsEmpty());
    Faults none;
    const auto output = folder_ / "db.mdb";
    writeCatalogue(readContent(folder_, none), output);
    clsDatabase database;
    database.Connect("Data Source=" + output.string());
    // Keys without regard to case, models in the order of their sequence.
    auto models =
        database.Execute("Select * from tCompressors where frefrigerantid='r134a' and fSerieID=('tk-a')");
    EXPECT_EQ(models.text("fModelID"), "120");
    EXPECT_EQ(models.number("fKForo"), 1.52);
    EXPECT_EQ(models.text("fLimitEconomizedID"), "TK-A-R134A-SE");
    EXPECT_TRUE(models.boolean("fhasFullSmallMotor"));
    EXPECT_FALSE(models.boolean("fisSmallMotorStandard"));
    models.moveNext();
    EXPECT_EQ(models.text("fModelID"), "165");
    const auto motor = database.Execute("Select * from tMotors where fMotorID =900 and fhz=50");
    EXPECT_EQ(motor.number("fLra2"), 300.5);
    EXPECT_TRUE(motor.isNull("FNominalPower"));
    auto limits = database.Execute("Select * from tLimits where fLimitID='ENV'");
    EXPECT_EQ(limits.integer("fType"), 0);  // the order of the file
    limits.moveNext();
    EXPECT_EQ(limits.integer("fType"), -1);
    EXPECT_EQ(database.Execute("Select * from tDictionary where fLanguageID ='en-en' and fVariableName='A.B'")
                  .text("fText"),
              "Text, with comma");
    EXPECT_EQ(database.Execute("select *  from thelp where flanguage='xx-xx' ").text("fhelp"),
              "{\\rtf1 terms}");
}

TEST_F(CatalogueBuilder, LooksForFluidFilesOnlyWhenAsked) {
    EXPECT_THAT(faults(), IsEmpty());
    const fs::path shipped = fs::path(MARVELLO_SOURCE_FOLDER) / "fluids/files";
    EXPECT_THAT(faults(shipped), IsEmpty());
    append("tFluidi.csv", "R22,NOSUCH.FLD,0\n");
    EXPECT_THAT(faults(shipped), ::testing::Contains(HasSubstr("fFluido: there is no file NOSUCH.FLD")));
}

TEST_F(CatalogueBuilder, ReadsTablesInSeveralPartsAndNeedsEachTable) {
    append("tRefrigeranti.more.csv", "fRefrigeranteId\nR134a\n");
    EXPECT_THAT(faults(),
                ElementsAre("tRefrigeranti.more.csv:2: the key stands already at tRefrigeranti.csv:2"));
    fs::remove(folder_ / "tRefrigeranti.more.csv");
    append("tRefrigeranti.more.csv", "fRefrigeranteId\nRX\n");
    append("tFluidi.more.csv", "fRefrigeranteId,fFluido,fPFluido\nRX,PROPYLEN.FLD,1\n");
    EXPECT_THAT(faults(), IsEmpty());

    append("tPumps.csv", "fID\n");
    append("tDictionary.csv", "fVariableName,fText\n");
    fs::remove(folder_ / "tMotors.csv");
    EXPECT_THAT(faults(), ::testing::UnorderedElementsAre(::testing::EndsWith("the table tMotors is missing"),
                                                          "tPumps.csv: there is no table of this name",
                                                          StartsWith("tDictionary.csv: the name lacks")));
}

TEST_F(CatalogueBuilder, LeavesTheOldFileWhenTheContentHasFaults) {
    const std::string content = folder_.string();
    const std::string output = (folder_ / "db.mdb").string();
    const auto run = [](const std::string& arguments) {
        return ::marvello::testing::callProgram("marvello-catalogue", arguments).status;
    };
    EXPECT_EQ(run("build " + content + " " + output), 0);
    const auto size = fs::file_size(output);
    EXPECT_EQ(run("build " + content + " " + output), 0);  // over the old one

    std::ofstream(folder_ / "tRefrigeranti.csv") << "fRefrigeranteId\n" << std::string(200, '\'') << "\n";
    EXPECT_EQ(run("build " + content + " " + output), 2);
    EXPECT_EQ(fs::file_size(output), size);
    EXPECT_EQ(run("check " + content), 2);
    EXPECT_EQ(run("build " + content + "/none " + output), 2);
    EXPECT_EQ(run("build"), 2);
    EXPECT_EQ(run("--help"), 0);
}

}  // namespace

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include "data/clsDatabase.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/tools/SmallContent.h"
#include "tools/catalogue/Check.h"
#include "tools/catalogue/Content.h"

using namespace marvello;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

namespace fs = std::filesystem;

const std::string compressorColumns =
    "fRefrigerantID,fSerieID,fModelID,fSequence,fVI,fFla,fFla2,fPolynomialQ0ID,fPolynomialPassID,"
    "fPolynomialShID,"
    "fhasInverter,fInverterQ0C1,fInverterQ0C2,fInverterQ0C3,fInverterPtaC1,fInverterPtaC2,fInverterPtaC3,"
    "fInverterCaC1,fInverterCaC2,fInverterCaC3,fhasFullSmallMotor,fisSmallMotorStandard,fStartMode,fCtsca,"
    "fKForo,"
    "fKPerdita,fSez,fOilCoolingLimit,fOilCoolingLimitEco,fValue1,fMotorFullID,fMotorSmallID,fLimitID,"
    "fLimitEconomizedID,fMarket\n";

std::string compressor(const std::string& model, const std::string& sequence) {
    return "R134A,TK-A," + model + "," + sequence +
           ",2.6,100.5,80,q,p,s,False,0,0,0,0,0,0,0,0,0,True,false,1,0.5,1.2,0,3,110,100,0,1,2,env,,0\n";
}

const std::string coefficients = ",1e1,2,3,4,5,6,7,8,9,-10.25\n";

/// A small content without faults, by file.
std::map<std::string, std::string> soundFiles() {
    return {
        {"tCompressors.csv",
         compressorColumns + compressor("TK-A 90", "010") + compressor("TK-A 120", "020")},
        {"tPolynomials.csv", "fPolynomialID,fType,fField,fC1,fC2,fC3,fC4,fC5,fC6,fC7,fC8,fC9,fC10\nq,0,100" +
                                 coefficients + "p,1,100" + coefficients + "s,3,10" + coefficients},
        {"tMotors.csv",
         "fMotorID,fhz,fC1,fC2,fC3,fC4,fC5,fLra1,fLra2,fPhase,FNominalPower\n"
         "1,50,0,1,0,0,0,200,300,3,55 kW\n2,50,0,1,0,0,0,150,250,3,\n"},
        {"tLimits.csv",
         "fLimitID,fType,fPoints\nenv,0,\"(0,0);(10,0);(10,10);(0,0)\"\nenv,-1,\"0,0;9,0;9,9;0,0\"\n"},
        {"tRefrigeranti.csv", "fRefrigeranteId\nR134A\n"},
        {"tFluidi.csv", "fRefrigeranteId,fFluido,fPFluido\nR134A,R134A.FLD,1\n"},
        {"tLanguages.csv", "fLanguage,fDescription\nen-EN,English\nit-IT,Italiano\n"},
        {"tDictionary.en-EN.csv", "fVariableName,fText\na.b,\"Text, with comma\"\n"},
        {"tDictionary.it-IT.csv", "fVariableName,fText\nA.B,\n"},
        {"thelp.en-EN.rtfeula.rtf", "{\\rtf1 terms}"},
        {"tParametersHead.csv", "fType,fTypeKey,fKey,fParametersRowsID\nfrm,MDIMain,eng,1\n"},
        {"tParametersRows.csv",
         "fParametersRowsID,fObjectName,fObjectType,fObjectPropertyValue\n"
         "1,mnu_file,,Caption={a.b}:Visible=True\n"},
    };
}

class CatalogueBuilder : public testing::Test {
  protected:
    void SetUp() override { fs::create_directories(folder_); }
    void TearDown() override { fs::remove_all(folder_); }

    void write(const std::map<std::string, std::string>& files) const {
        for (const auto& entry : fs::directory_iterator(folder_)) fs::remove_all(entry);
        for (const auto& [name, text] : files) std::ofstream(folder_ / name, std::ios::binary) << text;
    }

    std::vector<std::string> faults(const std::optional<fs::path>& fluids = std::nullopt) const {
        Faults found;
        const Content content = readContent(folder_, found);
        if (found.empty()) checkReferences(content, fluids, found);
        return found.lines();
    }

    /// The faults after one text of the sound content was replaced by another.
    std::vector<std::string> faultsWith(const std::string& file, const std::string& from,
                                        const std::string& to) const {
        auto files = soundFiles();
        const auto at = files.at(file).find(from);
        if (at == std::string::npos) return {"the test's text \"" + from + "\" is not there"};
        files[file].replace(at, from.size(), to);
        write(files);
        return faults();
    }

    fs::path folder_ = marvello::test::newTemporaryFolder("marvello-content");
};

TEST_F(CatalogueBuilder, WritesWhatItRead) {
    write(soundFiles());
    ASSERT_THAT(faults(), IsEmpty());
    Faults none;
    const auto output = folder_ / "db.mdb";
    writeCatalogue(readContent(folder_, none), output);
    EXPECT_FALSE(fs::exists(output.string() + ".new"));

    clsDatabase database;
    database.Connect("Data Source=" + output.string());
    // NOCASE keys, in the order of the sequence and not of the model's letters
    auto rows = database.Execute(
        "Select * from tCompressors where fHasInverter=False and frefrigerantid='r134a' and "
        "fSerieID=('tk-a')");
    EXPECT_EQ(rows.text("fModelID"), "TK-A 90");
    EXPECT_EQ(rows.number("fFla"), 100.5);
    EXPECT_TRUE(rows.boolean("fhasFullSmallMotor"));
    EXPECT_FALSE(rows.boolean("fisSmallMotorStandard"));
    EXPECT_EQ(rows.text("fLimitEconomizedID"), "");
    rows.moveNext();
    EXPECT_EQ(rows.text("fModelID"), "TK-A 120");

    EXPECT_EQ(
        database.Execute("Select * from tPolynomials where fPolynomialID='Q' and fType=0 and fField=100")
            .number("fC10"),
        -10.25);
    EXPECT_TRUE(
        database.Execute("Select * from tMotors where fMotorID =2 and fhz=50").isNull("FNominalPower"));
    auto limits = database.Execute("Select * from tLimits where fLimitID='ENV'");
    EXPECT_EQ(limits.integer("fType"), 0);  // the order of the file
    limits.moveNext();
    EXPECT_EQ(limits.integer("fType"), -1);
    EXPECT_EQ(database.Execute("Select * from tDictionary where fLanguageID ='en-en'").text("fText"),
              "Text, with comma");
    EXPECT_EQ(database.Execute("select *  from thelp where flanguage='en-EN' ").text("fhelp"),
              "{\\rtf1 terms}");
}

TEST_F(CatalogueBuilder, ReportsFieldsByFileAndLine) {
    struct Case {
        std::string file, from, to, fault;
    };
    for (const auto& [file, from, to, fault] : std::vector<Case>{
             {"tFluidi.csv", "fPFluido", "fMass", "tFluidi.csv:1: the table has no column \"fMass\""},
             {"tFluidi.csv", "fFluido,", "", "tFluidi.csv:1: the column fFluido is missing"},
             {"tFluidi.csv", "fFluido", "fpfluido", "tFluidi.csv:1: the column fPFluido stands twice"},
             {"tFluidi.csv", "R134A.FLD,1", "R134A.FLD", "tFluidi.csv:2: the row has 2 fields and not 3"},
             {"tFluidi.csv", ",1", ",1.0x", "tFluidi.csv:2: fPFluido: \"1.0x\" is not a number"},
             {"tFluidi.csv", ",1", ",nan", "tFluidi.csv:2: fPFluido: \"nan\" is not a number"},
             {"tFluidi.csv", ",1", ",", "tFluidi.csv:2: fPFluido: the value is missing"},
             {"tRefrigeranti.csv", "R134A\n", "R134A\nr134a\n",
              "tRefrigeranti.csv:3: the key stands already at tRefrigeranti.csv:2"},
             {"tRefrigeranti.csv", "R134A", "R'134A",
              "tRefrigeranti.csv:2: fRefrigeranteId: \"R'134A\" holds"},
             {"tMotors.csv", "2,50", "2.5,50", "tMotors.csv:3: fMotorID: \"2.5\" is not a whole number"},
             {"tCompressors.csv", ",True,", ",1,",
              "tCompressors.csv:2: fhasFullSmallMotor: \"1\" is neither"},
             {"tCompressors.csv", ",0\n", ",256\n", "tCompressors.csv:2: fMarket: 256 is outside 0 to 255"},
             {"tLimits.csv", "(10,10);", "",
              "tLimits.csv:2: fPoints: a polyline needs at least four points and has 3"},
             {"tLimits.csv", "0,0\"\n", "0,0;\"\n", "tLimits.csv:3: fPoints: \"\" is not a point"},
             {"tLimits.csv", "9,9", "9.9", "tLimits.csv:3: fPoints: \"9.9\" is not a point"},
             {"tDictionary.en-EN.csv", "Text,", "T\xE8xt,",
              "tDictionary.en-EN.csv:2: the text is not valid UTF-8"}})
        EXPECT_THAT(faultsWith(file, from, to), Contains(StartsWith(fault))) << from << " -> " << to;
}

TEST_F(CatalogueBuilder, ReportsReferencesThatLeadNowhere) {
    struct Case {
        std::string file, from, to, fault;
    };
    for (const auto& [file, from, to, fault] : std::vector<Case>{
             {"tCompressors.csv", ",q,p,", ",p,p,",
              "tCompressors.csv:2: fPolynomialQ0ID: there is no polynomial of type 0"},
             {"tCompressors.csv", ",s,False", ",x,False",
              "tCompressors.csv:2: fPolynomialShID: there is no polynomial"},
             {"tCompressors.csv", ",env,,", ",env,eco,",
              "tCompressors.csv:2: fLimitEconomizedID: there is no envelope"},
             {"tMotors.csv", "2,50", "2,60",
              "tCompressors.csv:2: fMotorSmallID: there is no motor 2 for 50 Hz"},
             {"tRefrigeranti.csv", "R134A", "R290",
              "tCompressors.csv:2: fRefrigerantID: there is no refrigerant"},
             {"tRefrigeranti.csv", "R134A\n", "R134A\nR290\n",
              "tRefrigeranti.csv:3: the refrigerant has no row"},
             {"tRefrigeranti.csv", "R134A\n", "R134A\nR407C\n", "tPolynomials: the polynomial R407CTEM"},
             {"tFluidi.csv", ",1", ",0.99999", "tRefrigeranti.csv:2: the mass fractions sum to 0.99999"},
             {"tDictionary.it-IT.csv", "A.B", "a.c", "tDictionary.it-IT.csv:2: the key a.c has no text"},
             {"tLanguages.csv", "it-IT", "de-DE",
              "tDictionary.it-IT.csv:2: fLanguageID: there is no language"}})
        EXPECT_THAT(faultsWith(file, from, to), Contains(StartsWith(fault))) << from << " -> " << to;

    std::string mixture;
    for (int component = 0; component < 21; ++component)
        mixture += "R134A,F" + std::to_string(component) + ",0.05\n";
    EXPECT_THAT(faultsWith("tFluidi.csv", "R134A,R134A.FLD,1\n", mixture),
                ElementsAre(StartsWith("tFluidi.csv:22: more than 20 components"),
                            testing::HasSubstr("sum to 1.05")));
}

TEST_F(CatalogueBuilder, LooksForFluidFilesOnlyWhenAsked) {
    write(soundFiles());
    EXPECT_THAT(faults(folder_),
                ElementsAre(StartsWith("tFluidi.csv:2: fFluido: there is no file R134A.FLD")));
    std::ofstream(folder_ / "R134A.FLD") << "x";
    EXPECT_THAT(faults(folder_), IsEmpty());
}

TEST_F(CatalogueBuilder, ReadsTablesInSeveralPartsAndNeedsEachTable) {
    auto files = soundFiles();
    files["tRefrigeranti.more.csv"] = "fRefrigeranteId\nR134a\n";
    write(files);
    EXPECT_THAT(faults(),
                ElementsAre("tRefrigeranti.more.csv:2: the key stands already at tRefrigeranti.csv:2"));
    files["tRefrigeranti.more.csv"] = "fRefrigeranteId\nR290\n";
    files["tFluidi.more.csv"] = "fRefrigeranteId,fFluido,fPFluido\nR290,PROPANE.FLD,1\n";
    write(files);
    EXPECT_THAT(faults(), IsEmpty());

    files["tPumps.csv"] = "fID\n";
    files["tDictionary.csv"] = "fVariableName,fText\n";
    files.erase("tMotors.csv");
    write(files);
    EXPECT_THAT(faults(), testing::UnorderedElementsAre(testing::EndsWith("the table tMotors is missing"),
                                                        "tPumps.csv: there is no table of this name",
                                                        StartsWith("tDictionary.csv: the name lacks")));
}

/// The exit status of the program with its messages in the file "messages".
int runProgram(const fs::path& folder, const std::string& arguments) {
    const std::string command = "\"" MARVELLO_APP_FOLDER "/marvello-catalogue\" " + arguments + " > \"" +
                                (folder / "messages").string() + "\" 2>&1";
    return WEXITSTATUS(std::system(command.c_str()));
}

TEST_F(CatalogueBuilder, LeavesTheOldFileWhenTheContentHasFaults) {
    const std::string content = folder_.string();
    const std::string output = (folder_ / "db.mdb").string();
    marvello::test::writeSmallContent(folder_);
    EXPECT_EQ(runProgram(folder_, "build " + content + " " + output), 0);
    const auto size = fs::file_size(output);
    EXPECT_EQ(runProgram(folder_, "build " + content + " " + output), 0);  // over the old one

    std::ofstream(folder_ / "tRefrigeranti.csv") << "fRefrigeranteId\n" << std::string(200, '\'') << "\n";
    EXPECT_EQ(runProgram(folder_, "build " + content + " " + output), 2);
    EXPECT_EQ(fs::file_size(output), size);
    EXPECT_EQ(runProgram(folder_, "check " + content), 2);
    EXPECT_EQ(runProgram(folder_, "build " + content + "/none " + output), 2);
    EXPECT_EQ(runProgram(folder_, "build"), 2);
    EXPECT_EQ(runProgram(folder_, "--help"), 0);
}

}  // namespace

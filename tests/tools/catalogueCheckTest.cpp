// A sound content with one thing wrong at a time: the check has to say what and where.

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "data/Csv.h"
#include "data/Session.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/tools/SmallContent.h"
#include "tools/catalogue/Check.h"
#include "tools/catalogue/Program.h"

using namespace marvello;
using namespace marvello::test;
using ::testing::AllOf;
using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

namespace {

namespace fs = std::filesystem;

struct Told {
    std::vector<std::string> errors;
    std::vector<std::string> warnings;
};

Told toldOf(const fs::path& folder) {
    const Session session(MARVELLO_APP_FOLDER);  // with the property library
    Faults faults;
    const Content content = readContent(folder, faults);
    if (faults.empty()) checkContent(content, std::nullopt, folder / "pictures", faults);
    return {faults.lines(), faults.warnings()};
}

/// What is done to the first line that holds `row`: `column` takes `value`, or where the column is "remove"
/// the line goes, "replace" `value` stands instead of it, "append" `value` stands at the end of the file.
struct Fault {
    const char* file;
    const char* row;
    const char* column;
    std::string value;
    const char* words;            ///< Of the message, which begins with file and line of the change ...
    const char* place = nullptr;  ///< ... or with this.
};

/// Applies the fault to a file's lines; the number of the line, or 0 when it cannot be applied.
std::size_t apply(const Fault& fault, std::vector<std::string>& lines) {
    const std::string column = fault.column;
    if (column == "append") {
        lines.push_back(fault.value);
        return lines.size();
    }
    const auto line =
        std::ranges::find_if(lines, [&](const auto& each) { return each.find(fault.row) != each.npos; });
    if (line == lines.end()) return 0;
    const auto number = static_cast<std::size_t>(line - lines.begin()) + 1;
    if (column == "remove") {
        lines.erase(line);
    } else if (column == "replace") {
        *line = fault.value;
    } else {
        Faults none;
        auto records = readCsv(lines.front() + "\n" + *line, "", none);
        const auto& names = records.at(0).fields;
        const auto found = std::ranges::find(names, column);
        if (found == names.end()) return 0;
        records.at(1).fields.at(static_cast<std::size_t>(found - names.begin())) = fault.value;
        *line = csvLine(records[1].fields);
        line->pop_back();  // without its end
    }
    return number;
}

const char* const cps = "tCompressors.csv";
const char* const pol = "tPolynomials.csv";
const char* const lim = "tLimits.csv";
const char* const mot = "tMotors.csv";
const char* const flu = "tFluidi.csv";
const char* const fac = "tRefrigerantFacts.csv";
const char* const english = "tDictionary.en-EN.csv";
const char* const italian = "tDictionary.it-IT.csv";
const char* const head = "tParametersHead.csv";
const char* const rows = "tParametersRows.csv";
const char* const value = "fObjectPropertyValue";
const char* const model = "R134A,TK-A,120,";
const char* const variable = "R134A,TK-D,140,";

std::vector<Fault> faultsOfFields() {
    const char* const fluids = "fRefrigeranteId,";
    return {
        {flu, fluids, "replace", "fRefrigeranteId,fFluido,fMass", "the table has no column \"fMass\""},
        {flu, fluids, "replace", "fRefrigeranteId,fPFluido", "the column fFluido is missing"},
        {flu, fluids, "replace", "fFluido,fPFluido,fpfluido", "the column fpfluido stands twice"},
        {flu, "R134A,", "replace", "R134A,R134A.FLD", "the row has 2 fields and not 3"},
        {flu, "R134A,", "fPFluido", "1.0x", "fPFluido: \"1.0x\" is not a number"},
        {flu, "R134A,", "fPFluido", "nan", "fPFluido: \"nan\" is not a number"},
        {flu, "R134A,", "fPFluido", "", "fPFluido: the value is missing"},
        {mot, "82,50,", "fMotorID", "2.5", "fMotorID: \"2.5\" is not a whole number"},
        {cps, model, "fhasFullSmallMotor", "1", "fhasFullSmallMotor: \"1\" is neither"},
        {lim, "TK-A-R134A-S,0,", "fPoints", "0,0;9,0;9,9;0,0;", "fPoints: \"\" is not a point"},
        {english, "messages.message31,", "fText", "T\xE8xt", "the text is not valid UTF-8"},
    };
}

std::vector<Fault> faultsOfCompressors() {
    return {
        {cps, model, "fRefrigerantID", "R13", "there is no refrigerant \"R13\"; add it to tRefrigeranti"},
        {cps, model, "fPolynomialQ0ID", "X", "fPolynomialQ0ID: there is no polynomial of type 0 \"X\""},
        {cps, model, "fPolynomialPassID", "X", "fPolynomialPassID: there is no polynomial of type 1 \"X\""},
        {cps, model, "fPolynomialShID", "X", "fPolynomialShID: there is no polynomial of type 3 \"X\""},
        {cps, model, "fLimitID", "X", "fLimitID: there is no envelope \"X\""},
        {cps, model, "fLimitEconomizedID", "X", "fLimitEconomizedID: there is no envelope \"X\""},
        {cps, model, "fMotorFullID", "999", "fMotorFullID: there is no motor 999 for 50 Hz"},
        {cps, model, "fMotorSmallID", "999", "fMotorSmallID: there is no motor 999 for 50 Hz"},
        {cps, model, "fFla", "0", "fFla: the rated current is 0 A; it must be positive (R134A, TK-A, 120)"},
        {cps, model, "fFla2", "-4", "fFla2: the rated current of the small motor is -4 A"},
        {cps, model, "fFla", "inf", "fFla: \"inf\" is not a number"},
        {cps, model, "fKForo", "0.9", "fKForo: the pressure at the economizer port is 0.9 times"},
        {cps, model, "fSez", "0", "fSez: a loss of 0.25 through a section of 0 is none"},
        {cps, model, "fKPerdita", "9",
         "warning: fKPerdita: the pressure loss of an injected flow as great as"},
        {cps, model, "fOilCoolingLimit", "1000", "warning: fOilCoolingLimit: a discharge limit of 1000"},
        {cps, model, "fStartMode", "7", "warning: fStartMode: the program shows 1 star delta"},
        {cps, model, "fMarket", "2", "warning: fMarket: no form offers a model of market 2"},
        {cps, model, "fMarket", "300", "fMarket: 300 is outside 0 to 255"},
        {cps, model, "fModelID", "165", "the key stands already at tCompressors.csv:2",
         "tCompressors.csv:3:"},
        {cps, model, "fSerieID", "TK-A ", "\"TK-A \" begins or ends with a blank"},
        {cps, model, "fModelID", "1;2", "holds one of the characters ' ; |"},
        {cps, variable, "fInverterCaC3", "3", "fInverterCaC1 to C3: the power factor at"},
        {cps, variable, "fInverterQ0C3", "5", "fInverterQ0C1 to C3: the factor at 20 Hz"},
        {mot, "82,50,", "fC1", "-9000", "fMotorFullID: the current of motor 82 at", "tCompressors.csv:2:"},
        {mot, "82,50,", "fhz", "60", "fMotorFullID: there is no motor 82", "tCompressors.csv:2:"},
    };
}

std::vector<Fault> faultsOfSurfaces() {
    const std::string zeros = ",0,0,0,0,0,0,0,0,0";
    return {
        {pol, "TK-A-R134A-120,0,75,", "remove", "",
         "of type 0 and fField 75 is missing, which a capacity step", "tCompressors.csv:2:"},
        {pol, "TK-A-R134A-120,1,25,", "fField", "20", "of type 1 and fField 25 is missing",
         "tCompressors.csv:2:"},
        {pol, "NL-H-R134A-165,0,1450,", "remove", "",
         "fField 1450 is missing, which a speed on offer asks for", "tCompressors.csv:"},
        {pol, "TK-B-R134A-140,1,100,", "fField", "50", "of type 1 and fField 100 is missing",
         "tCompressors.csv:"},
        {pol, "TK-D-R134A-140,1,26,", "remove", "", "capacity and power need the same volume ratios",
         "tCompressors.csv:"},
        {pol, "TK-A-R134A-120,0,50,", "replace", "TK-A-R134A-120,0,50,1,-1,0,0,0,0,0,0,0,0",
         "sum to 0, so that the program takes the row for missing"},
        {pol, "TK-A-R134A-120,0,100,", "fC1", "-900", "the capacity at"},
        {pol, "TK-A-R134A-120,1,100,", "fC1", "-900", "the absorbed power at"},
        {pol, "TK-A-R134A-120,1,100,", "replace", "TK-A-R134A-120,1,100,1" + zeros, "above that of Carnot",
         "tPolynomials.csv:2:"},
        {pol, "TK-A-R134A-120,0,100,", "replace", "TK-A-R134A-120,0,100,1" + zeros, "is no more than 0."},
        {pol, "TK-D-R134A-140,1,18,", "fC1", "-900", "the absorbed power at"},
        {pol, "TK-A-R134A-120,3,10,", "fC1", "-500",
         "below the condensing one, inside the application limit"},
        {pol, "TK-A-R134A-120,3,10,", "fC1", "500", "above 200, inside the application limit"},
        {pol, "TK-A-R134A-120,3,10,", "fC10", "1", "fC10: a discharge surface has nine coefficients"},
        {pol, "TK-A-R134A-120,3,10,", "fField", "90", "fField: a reference superheat of 90 K is not usual"},
        {pol, "", "append", "TK-A-R134A-120,3,20,60" + zeros, "the program reads one row of type 3 alone"},
        {pol, "", "append", "TK-A-R134A-120,2,20,60" + zeros, "fType: 2 is none of 0 capacity"},
        {pol, "", "append", "NOBODY,0,100,60" + zeros, "warning: no compressor uses the polynomial"},
        {"tPolynomials.r407c.csv", "R407CTEM", "remove", "", "the polynomial R407CTEM of type 4 is missing",
         "tPolynomials:"},
    };
}

std::vector<Fault> faultsOfLimitsAndFluids() {
    const char* const line = "TK-A-R134A-S,0,";
    std::string components;
    for (int i = 0; i < 20; ++i) components += "R134A,F" + std::to_string(i) + ".FLD,0\n";
    return {
        {lim, line, "fPoints", "-15,25;4,25;15,36;15,65", "fPoints: the line is not closed; repeat"},
        {lim, line, "fPoints", "-15,25;4,25;-15,25", "at least four points and has 3"},
        {lim, line, "fPoints", "-15,25;4,25;15;-15,25", "\"15\" is not a point \"x,y\""},
        {lim, line, "fPoints", "25,-15;25,4;36,15;25,-15", "the condensing temperature is below"},
        {lim, line, "fPoints", "-15,25;4,25;15,360;-15,25", "the point 15,360 lies outside"},
        {lim, line, "fPoints", "-15,25;4,25;15,25;-15,25", "the line holds no area"},
        {lim, line, "fPoints", "-15,25;4,25;15,36;15,65;-15,65;-15,25",
         "warning: fPoints: the border at 15 loses its own points, such as 15,50.5"},
        {lim, line, "fType", "15", "there is no line of type 15"},
        {lim, line, "fType", "-1", "the envelope has no application limit; add", "tLimits.csv:"},
        {lim, "", "append", "TK-A-R134A-S,2,\"0,30;9,30;9,40;0,30\"\nTK-A-R134A-S,2,\"0,30;9,30;9,40;0,30\"",
         "warning: the line stands already at tLimits.csv:", "tLimits.csv:"},
        {lim, "", "append", "NOBODY,0,\"0,30;9,30;9,40;0,30\"", "warning: no compressor uses the envelope"},
        {flu, "R134A,", "fPFluido", "0.99999", "the mass fractions sum to 0.99999 and not to 1",
         "tRefrigeranti.csv:"},
        {flu, "R134A,", "fPFluido", "-1", "fPFluido: a mass fraction is above 0"},
        {flu, "R134A,", "fRefrigeranteId", "R13", "there is no refrigerant \"R13\""},
        {flu, "", "append", components, "more than 20 components", "tFluidi.csv:"},
        {"tRefrigeranti.csv", "", "append", "R999",
         "the refrigerant has no row in tFluidi; add its components"},
    };
}

std::vector<Fault> faultsOfTexts() {
    return {
        {"tLanguages.csv", "", "append", "xx-XX,Xx", "warning: the language has no texts"},
        {"tLanguages.csv", "en-EN", "remove", "", "the default language en-EN is missing", "tLanguages.csv:"},
        {"tLanguages.csv", "it-IT", "remove", "", "fLanguageID: there is no language \"it-IT\"",
         "tDictionary.it-IT.csv:2:"},
        {english, "messages.message31,", "fVariableName", "messages.message99",
         "the key messages.message31 is missing, which the program asks for", "tDictionary.en-EN.csv:"},
        {english, "general.ledred,", "remove", "", "the key general.ledred is missing",
         "tDictionary.en-EN.csv:"},
        {english, "messages.message31,", "fText", "", "the text of messages.message31 is empty"},
        {english, "", "append", "general.nobody,x", "warning: nothing asks for the key"},
        {italian, "mdimain.status.counts,", "fText", "{0} e {0}",
         "the text does not have the \"{0}\", \"{1}\""},
        {italian, "mdimain.menu.file,", "fText", "File", "the text needs as many \"&\" before access keys"},
        {italian, "messages.message31,", "remove", "",
         "warning: texts are missing, so that the program shows those of en-EN: messages.message31",
         "tDictionary.it-IT.csv:"},
        {italian, "", "append", "general.nobody,x",
         "the key general.nobody has no text in en-EN; add it there"},
        {italian, "frmselection.cmbsh.item0,", "fText", "a|b", "\"0|a|b\" is no choice",
         "tParametersRows.csv:"},
        {"thelp.en-EN.csv", "", "append", "terms,plain", "fhelp: the document is no rich text"},
    };
}

std::vector<Fault> faultsOfParameterSets() {
    return {
        {head, "", "append", "frm,frmAbout,populate,1", "warning: the program applies no set of this name"},
        {rows, "1,cmbGroupBy", value, "CaptionText={frmpg.caption}", "before there are texts"},
        {head, "populate", "fTypeKey", "frmSelected", "the set frm, frmSelection, populate is missing",
         "tParametersHead.csv:"},
        {head, "Init", "fKey", "Start", "the set frm, frmSelection, Init is missing", "tParametersHead.csv:"},
        {rows, "3,txtFrequency", "fParametersRowsID", "1", "the window has no control \"txtFrequency\""},
        {head, "MDIMain", "fParametersRowsID", "9", "tParametersRows has no such rows"},
        {rows, "2,txtSC", "fParametersRowsID", "9", "no set of tParametersHead has these rows"},
        {rows, "2,txtSC", "fObjectName", "txtSX", "the window has no control \"txtSX\""},
        {rows, "2,txtSC", value, "Captn=x", "the control has no property \"Captn\""},
        {rows, "2,txtSC", value, "CaptionText", "\"CaptionText\" is no assignment"},
        {rows, "2,txtSC", value, "TextMin=12:TextMax=low", "TextMax: \"low\" is not a number"},
        {rows, "2,txtSC", value, "Enabled=yes", "Enabled: \"yes\" is not True or False"},
        {rows, "2,txtSC", value, "TextForeColor=#12345", "TextForeColor: \"#12345\" is not a colour"},
        {rows, "2,txtSC", value, "CaptionText={no.key}", "the dictionary has no text for the key \"no.key\""},
        {rows, "2,txtSC", value, "CaptionText={no.key", "a \"{\" has no \"}\""},
        {rows, "2,cmbEco", value, "Tag1=0|None;1", "\"1\" is no choice; write \"key|caption;key|caption\""},
        {rows, "2,cmbEco", value, "Tag1=0|None;0|All", "the key \"0\" stands twice"},
        {rows, "2,cmbEco", value, "Tag1=1|One;2|Two", "does not offer the key \"0\"", "tParametersRows.csv:"},
        {rows, "2,lvCps", value, "Tag=Q0|Capacity|kW|0", "the column \"Q0|Capacity|kW|0\" has 4 pieces"},
        {rows, "2,lvCps", value, "Tag=Q0|Capacity|kW|x|7", "the column \"Q0\" is shown when \"7\""},
        {rows, "2,lvCps", value, "Tag=Q00|Capacity|kW|x|0", "the column \"Q00\" is no variable"},
        {rows, "2,lvCps", value, "Tag=Q0|Capacity|kW|x|0;q0|Again|kW|x|0", "the column \"q0\" stands twice"},
    };
}

std::vector<Fault> faultsOfRefrigerantFacts() {
    const char* const blend = "R407C,";
    return {
        {fac, "R134A,", "fRefrigeranteId", "R13", "fRefrigeranteId: there is no refrigerant \"R13\""},
        {fac, blend, "fSafetyClass", "A4", "fSafetyClass: \"A4\" is no safety class"},
        {fac, blend, "fGwpAr4", "many", "fGwpAr4: \"many\" is not a number"},
        {fac, "R134A,", "fGwpAr6", "-1", "fGwpAr6: -1 is outside 0 to 30000"},
        {fac, "R134A,", "fGwpAr4Source", "", "fGwpAr4: the value has no source"},
        {fac, "R600A,", "fGwpAr6Source", "AR6", "fGwpAr6: there is a source and no value"},
        {fac, "R134A,", "fOdpSource", "AR7", "fOdpSource: there is no source \"AR7\"; add it to tSources"},
        // 0.23 R32 + 0.25 R125 + 0.52 R134a: 1773.85 from 675, 3500 and 1430; 1624.21 from 677, 3170 and 1300
        {fac, blend, "fGwpAr4", "1775", "fGwpAr4: 1775 is not what the components give by mass, 1773.85"},
        {fac, blend, "fGwpAr5", "1625", "fGwpAr5: 1625 is not what the components give by mass, 1624.21"},
        {fac, blend, "fOdp", "0.05", "fOdp: 0.05 is not what the components give by mass, 0"},
        {fac, "R125,", "fGwpAr6", "3749", "fGwpAr6: 4728 is not what the components give by mass",
         "tRefrigerantFacts.csv:15:"},  // R404A
        {fac, "R32,", "remove", "", "warning: fGwpAr4: not compared with the components",
         "tRefrigerantFacts.csv:"},
        {fac, "R134A,", "remove", "", "warning: the refrigerant has no row in tRefrigerantFacts",
         "tRefrigeranti.csv:2:"},
        {fac, blend, "fBoilingPoint", "-43.5",
         "warning: fBoilingPoint: -43.5 is not what the property library has"},
        {fac, blend, "fGlide", "7.1", "warning: fGlide: 7.1 is not what the property library has"},
        {fac, "R744,", "fBoilingPoint", "-78.5",
         "warning: fBoilingPoint: -78.5 is not what the property library has"},
        {fac, "R134A,", "fCriticalTemperature", "101.2",
         "warning: fCriticalTemperature: 101.2 is not that of"},
    };
}

class CatalogueCheck : public ::testing::Test {
  protected:
    CatalogueCheck() {
        writeSmallContent(folder_);
        sound_ = toldOf(folder_);
        EXPECT_THAT(sound_.errors, IsEmpty());
    }

    void expectTold(const std::vector<Fault>& faults) const {
        for (const Fault& fault : faults) expectTold(fault);
    }

    void expectTold(const Fault& fault) const {
        const fs::path file = folder_ / fault.file;
        const auto before = linesOf(file);
        auto lines = before;
        const auto number = apply(fault, lines);
        SCOPED_TRACE(std::string(fault.file) + " " + fault.row + " " + fault.column + "=" + fault.value);
        ASSERT_NE(number, 0U) << "the row or the column of the test is not there";
        writeLines(file, lines);
        const Told told = toldOf(folder_);
        writeLines(file, before);

        const std::string place =
            fault.place ? fault.place : std::string(fault.file) + ":" + std::to_string(number) + ":";
        const auto message = Contains(AllOf(StartsWith(place), HasSubstr(fault.words)));
        const bool isWarning = std::string(fault.words).starts_with("warning");
        EXPECT_THAT(isWarning ? told.warnings : told.errors, message);
        EXPECT_THAT(sound_.warnings, Not(message));
        if (isWarning) {
            EXPECT_THAT(told.errors, IsEmpty());
        }
    }

    test::TemporaryFolder folder_{"marvello-faults"};
    Told sound_;
};

TEST_F(CatalogueCheck, NamesFaultsOfFields) { expectTold(faultsOfFields()); }
TEST_F(CatalogueCheck, NamesFaultsOfCompressors) { expectTold(faultsOfCompressors()); }
TEST_F(CatalogueCheck, NamesFaultsOfSurfaces) { expectTold(faultsOfSurfaces()); }
TEST_F(CatalogueCheck, NamesFaultsOfLimitsAndFluids) { expectTold(faultsOfLimitsAndFluids()); }
TEST_F(CatalogueCheck, NamesFaultsOfRefrigerantFacts) { expectTold(faultsOfRefrigerantFacts()); }
TEST_F(CatalogueCheck, NamesFaultsOfTexts) { expectTold(faultsOfTexts()); }
TEST_F(CatalogueCheck, NamesFaultsOfParameterSets) { expectTold(faultsOfParameterSets()); }

TEST_F(CatalogueCheck, NamesFaultsOfTechnicalData) {
    const char* const heads = "tParametersHead.technical.csv";
    const char* const sets = "tParametersRows.technical.csv";
    const char* const lacks = "warning: the series TK-A lacks technical data for TK-A-120; add a set";
    expectTold(std::vector<Fault>{
        {heads, "TK-A-120,", "fTypeKey", "TK-A-999",
         "warning: fTypeKey: there is no model of this series-model"},
        {heads, "TK-A-120,", "fTypeKey", "TK-A-999", lacks, "tParametersHead.csv:"},
        {heads, "TK-A-120,", "fKey", "ita",
         "warning: fKey: the program asks for technical data by the key \"eng\""},
        {heads, "TK-A-120,", "fKey", "ita", lacks, "tParametersHead.csv:"},
        {sets, "picTecnic", value, "Tag=Weight|520 kg;Oil", "\"Oil\" is no pair; write"},
        {sets, "picTecnic", value, "Tag=Weight|@cps.weight kg",
         "warning: fObjectPropertyValue: the program puts"},
        {sets, "Hz", value, "Tag=Frequency|25 \u2013 70 Hz",
         "the technical data say 25 to 70 Hz, but the program calculates from 20 to 70 Hz"},
        {sets, "@cps.VI", value, "Tag=Ratio|2.2-3.5",
         "warning: fObjectPropertyValue: the volume ratio chosen is not shown"},
        {sets, "picTecnic", value, "Tag=Ratio|1:2", "\"2\" is no assignment"}});
}

TEST_F(CatalogueCheck, LooksAtPictures) {
    const fs::path photos = folder_ / "pictures" / "photos";
    const fs::path drawings = folder_ / "pictures" / "dimensions";
    fs::create_directories(photos);
    fs::create_directories(drawings);
    const auto write = [](const fs::path& file, const std::string& bytes) {
        std::ofstream(file, std::ios::binary) << bytes;
    };
    // Start of image, an empty comment, a frame of 2 x 1.
    const std::string jpeg("\xFF\xD8\xFF\xFE\0\x02\xFF\xC0\0\x0B\x08\0\x01\0\x02\x01", 16);
    // Key, handle 0, box 0 0 1 2, 96 an inch, reserved, and the exclusive or of all: CDD7^9AC6^1^2^60 = 5772.
    const std::string metafile("\xD7\xCD\xC6\x9A\0\0\0\0\0\0\x01\0\x02\0\x60\0\0\0\0\0\x72\x57", 22);
    write(photos / "TK-A.jpg", jpeg);
    write(photos / "TK-B-140.jpg", "a photo");
    write(photos / "Kestrom.jpg", jpeg);
    write(photos / "tk-a-120.jpg", jpeg);
    write(drawings / "TK-A.wmf", metafile);
    write(drawings / "TK-D.wmf", metafile.substr(0, 21) + '\x56');
    const Told told = toldOf(folder_);
    EXPECT_THAT(told.errors,
                ::testing::UnorderedElementsAre(
                    StartsWith("pictures/photos/TK-B-140.jpg: the file is no JPEG picture"),
                    StartsWith("pictures/dimensions/TK-D.wmf: the file is no placeable metafile")));
    std::set<std::string> added(told.warnings.begin(), told.warnings.end());
    for (const auto& warning : sound_.warnings) added.erase(warning);
    EXPECT_THAT(added, ::testing::UnorderedElementsAre(
                           StartsWith("pictures/photos/tk-a-120.jpg: warning: there is no series"),
                           HasSubstr("no photo of the series NL-H, TK-B, TK-D; add SERIES.jpg"),
                           HasSubstr("no dimension drawing of the series NL-H, TK-B; add SERIES.wmf")));
}

/// Of the demonstration catalogue only what the program has no use for yet may be missing or left over.
TEST(WholeContent, HasNoFault) {
    const Told told = toldOf(fs::path(MARVELLO_SOURCE_FOLDER) / "content");
    EXPECT_THAT(told.errors, IsEmpty());
    for (const auto& warning : told.warnings)
        EXPECT_THAT(warning,
                    ::testing::AnyOf(HasSubstr("nothing asks for the key"), HasSubstr("lacks technical data"),
                                     HasSubstr("no photo of the series"),
                                     HasSubstr("no dimension drawing of the series")));
}

TEST(Content, IsCheckedAsFarAsThePropertyLibraryIsThere) {
    const TemporaryFolder empty("marvello-empty");
    const Session session(empty.string());
    Faults faults;
    const fs::path folder = fs::path(MARVELLO_SOURCE_FOLDER) / "content";
    checkContent(readContent(folder, faults), std::nullopt, folder / "pictures", faults);
    EXPECT_THAT(faults.lines(), IsEmpty());
    EXPECT_THAT(faults.warnings(), Contains(HasSubstr("the losses of the economizer ports are not checked")));
}

/// Each key that the program completes has to be known with what it is completed with.
TEST(KeysOfTheProgram, AreWholeOrKnownToBeCompleted) {
    EXPECT_THAT(keysInSources(), Contains("messages.message31"));
    EXPECT_THAT(keysInSources(), Contains("mdimain.menu.window.tileHorinzontal"));
    for (const auto pattern : completedKeysInSources())
        EXPECT_THAT(completedKeys(), Contains(::testing::Field(&CompletedKey::pattern, pattern)));
}

}  // namespace

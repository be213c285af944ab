#include <gmock/gmock.h>

#include <SQLiteCpp/Database.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include "catalogue/Globals.h"
#include "data/Csv.h"
#include "data/FileText.h"
#include "data/Session.h"
#include "data/Texts.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/tools/CallProgram.h"
#include "tests/tools/SmallContent.h"
#include "tools/catalogue/DiffReport.h"
#include "tools/catalogue/UsualPoints.h"

using namespace marvello;
using ::marvello::testing::callProgram;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::Not;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;

namespace {

namespace fs = std::filesystem;

Content contentOf(const fs::path& folder) {
    Faults faults;
    Content content = readContent(folder, faults);
    EXPECT_THAT(faults.lines(), IsEmpty());
    return content;
}

std::vector<std::string> names(const CatalogueDiff& diff) {
    std::vector<std::string> all;
    for (const RowChange& row : diff.rows) {
        std::string name = std::string(nameOf(row.kind)) + " " + row.table + ": " + row.key;
        for (const ColumnChange& column : row.columns) name += " " + column.column;
        all.push_back(name);
    }
    return all;
}

std::string nameOf(const ResultChange& change) {
    return change.serie + " " + change.model + (change.economized ? " economized" : "");
}

class CatalogueDiffTest : public ::testing::Test {
  protected:
    void SetUp() override {
        fs::create_directories(old_);
        fs::create_directories(new_);
        test::writeSmallContent(old_);
        test::writeSmallContent(new_);
    }

    /// Replaces what a line begins with. It must be there once.
    void change(const std::string& table, const std::string& from, const std::string& to) const {
        auto lines = test::linesOf(new_ / table);
        int found = 0;
        for (std::string& line : lines)
            if (line.starts_with(from)) {
                line.replace(0, from.size(), to);
                ++found;
            }
        ASSERT_EQ(found, 1) << from;
        test::writeLines(new_ / table, lines);
    }

    DiffFindings findings(bool withResults = true) {
        Faults faults;
        tablesBefore_ = readPlainTables(old_, faults);
        tablesAfter_ = readPlainTables(new_, faults);
        EXPECT_THAT(faults.lines(), IsEmpty());
        DiffFindings found{"old", "new", compareTables(tablesBefore_, tablesAfter_)};
        if (withResults) found.results = compareResults(contentOf(old_), contentOf(new_), found.rows);
        return found;
    }

    ::marvello::testing::Answer run(
        const std::string& options,
        ::marvello::testing::Listen to = ::marvello::testing::Listen::output) const {
        return callProgram("marvello-catalogue",
                           "diff " + old_.string() + " " + new_.string() + " " + options, to);
    }

    test::TemporaryFolder folder_{"marvello-diff-test"};
    const fs::path old_ = folder_ / "old";
    const fs::path new_ = folder_ / "new";
    const Session session_{MARVELLO_APP_FOLDER};
    std::vector<PlainTable> tablesBefore_, tablesAfter_;
};

/// A constant of a surface, a corner of an envelope and the constant of a motor: what follows is known.
TEST_F(CatalogueDiffTest, FindsThreePlantedChangesAndExactlyWhatFollows) {
    change("tPolynomials.csv", "TK-A-R134A-120,0,100,93.329706,", "TK-A-R134A-120,0,100,94.329706,");
    change("tLimits.csv", "NL-H-R134A,0,\"-31,16;-5,16;-2,19;-1.999999,19;-1.999999,50;-2,50;-24,43;",
           "NL-H-R134A,0,\"-31,16;-5,16;-2,19;-1.999999,19;-1.999999,50;-2,50;-24,45;");
    auto motors = test::linesOf(new_ / "tMotors.csv");
    const auto motor =
        std::ranges::find_if(motors, [](const std::string& line) { return line.starts_with("112,50,"); });
    ASSERT_NE(motor, motors.end());
    auto fields = splitText(*motor, ',');
    fields[2] = std::to_string(std::stod(fields[2]) + 2);
    *motor = csvLine(fields);
    motor->pop_back();
    test::writeLines(new_ / "tMotors.csv", motors);

    const DiffFindings found = findings();
    EXPECT_THAT(found.rows.tables, IsEmpty());
    EXPECT_THAT(names(found.rows), UnorderedElementsAre("changed tPolynomials: TK-A-R134A-120, 0, 100 fC1",
                                                        "changed tMotors: 112, 50 fC1",
                                                        "changed tLimits: NL-H-R134A, 0 fPoints"));
    std::vector<std::string> changed;
    for (const ResultChange& change : found.results->changes) {
        changed.push_back(nameOf(change));
        ASSERT_THAT(change.reasons, SizeIs(1)) << nameOf(change);
        const RowChange& reason = found.rows.rows[change.reasons.front()];
        std::vector<std::string> figures;
        for (const FigureChange& figure : change.figures) figures.push_back(figure.figure);
        EXPECT_EQ(change.stateBefore, change.stateAfter);
        EXPECT_THAT(change.gained, IsEmpty());
        EXPECT_THAT(change.lost, IsEmpty());
        if (change.model == "120") {
            EXPECT_EQ(reason.table, "tPolynomials");
            if (change.economized) {  // its port has another pressure, so that all may move
                EXPECT_EQ(std::ranges::count(figures, "capacity"), 1);
                continue;
            }
            // 10 K superheat and 5 K subcooling are those of the surface: 1 kW more, at the same power.
            EXPECT_THAT(figures, ElementsAre("capacity", "COP", "mass flow"));
            EXPECT_NEAR(*change.figures[0].after - *change.figures[0].before, 1, 1e-5);
        } else if (change.serie == "TK-A") {
            EXPECT_EQ(reason.table, "tMotors");
            EXPECT_THAT(figures, ElementsAre("current"));  // 400 V and 50 Hz are the reference
            EXPECT_NEAR(*change.figures[0].after - *change.figures[0].before, 2, 1e-6);
        } else {
            EXPECT_EQ(reason.table, "tLimits");
            // A corner between -2 and -28 that goes up by 2 K: a triangle of 26 K by 2 K.
            EXPECT_THAT(figures, ElementsAre("envelope area"));
            EXPECT_NEAR(*change.figures[0].after - *change.figures[0].before, 26, 1e-6);
        }
    }
    EXPECT_THAT(changed, UnorderedElementsAre("TK-A 120", "TK-A 120 economized", "TK-A 165",
                                              "TK-A 165 economized", "NL-H 165"));
}

/// The port of an economizer is no reason for what comes without one, though both are in one row.
TEST_F(CatalogueDiffTest, NamesTheReasonsOfEachResult) {
    auto compressors = test::linesOf(new_ / "tCompressors.csv");
    for (std::string& line : compressors)
        if (line.starts_with("R134A,TK-A,165,")) replaceAll(line, ",1.52,0.25,1270,", ",1.53,0.25,1270,");
    test::writeLines(new_ / "tCompressors.csv", compressors);
    change("tPolynomials.csv", "TK-A-R134A-165,0,75,", "TK-A-R134A-165,0,75,1");  // of a capacity step
    change("tPolynomials.csv", "TK-A-R134A-165,1,100,", "TK-A-R134A-165,1,100,1");
    const DiffFindings found = findings();
    ASSERT_THAT(names(found.rows), SizeIs(3));
    std::map<bool, std::vector<std::string>> reasons;
    for (const ResultChange& change : found.results->changes)
        for (const std::size_t row : change.reasons)
            reasons[change.economized].push_back(found.rows.rows[row].key);
    EXPECT_THAT(reasons[false], ElementsAre("TK-A-R134A-165, 1, 100"));
    EXPECT_THAT(reasons[true], UnorderedElementsAre("TK-A-R134A-165, 1, 100", "R134A, TK-A, 165"));
}

TEST_F(CatalogueDiffTest, AnotherWayOfWritingIsNoChange) {
    change("tPolynomials.csv", "TK-A-R134A-120,0,100,93.329706,", "tk-a-r134a-120,0,100.0,9.3329706e1,");
    change("tLimits.csv", "NL-H-R134A,0,\"-31,16;-5,16;", "NL-H-R134A,0,\"(-31.0,16);(-5,16.00);");
    auto lines = test::linesOf(new_ / "tMotors.csv");  // a table with a key has no order
    std::ranges::reverse(lines.begin() + 1, lines.end());
    test::writeLines(new_ / "tMotors.csv", lines);
    // The spelling of a name is one, though it finds the same row.
    EXPECT_THAT(names(findings(false).rows),
                ElementsAre("changed tPolynomials: tk-a-r134a-120, 0, 100 fPolynomialID"));
}

TEST_F(CatalogueDiffTest, TextTablesAndTheFileBuiltOfThemAreEqual) {
    const fs::path content = fs::path(MARVELLO_SOURCE_FOLDER) / "content";
    const std::string file = (folder_ / "db.mdb").string();
    writeCatalogue(contentOf(content), file);
    for (const std::string& sides : {content.string() + " " + file, file + " " + content.string()}) {
        const auto answer = callProgram("marvello-catalogue", "diff " + sides);
        EXPECT_EQ(answer.status, 0);
        EXPECT_EQ(answer.out, "The catalogues are equal.\n");
    }
}

TEST_F(CatalogueDiffTest, SaysWhichCompressorsCameAndWentAndWhichMessages) {
    auto lines = test::linesOf(new_ / "tCompressors.csv");
    std::string copy = lines[1];  // R134A, TK-A, 120
    copy.replace(copy.find(",120,010,"), 9, ",121,015,");
    lines[1] = copy;
    test::writeLines(new_ / "tCompressors.csv", lines);
    // 2/40 is outside of this square, and no other line holds it.
    auto limits = test::linesOf(new_ / "tLimits.csv");
    std::erase_if(limits, [](const std::string& line) { return line.starts_with("TK-A-R134A-F,"); });
    limits.emplace_back("TK-A-R134A-F,0,\"-15,25;0,25;0,55;-15,55;-15,25\"");
    test::writeLines(new_ / "tLimits.csv", limits);

    const DiffFindings found = findings();
    EXPECT_THAT(
        names(found.rows),
        IsSupersetOf({"removed tCompressors: R134A, TK-A, 120", "added tCompressors: R134A, TK-A, 121",
                      "changed tLimits: TK-A-R134A-F, 0 fPoints", "removed tLimits: TK-A-R134A-F, -1"}));
    const auto changeOf = [&](const std::string& model) {
        return *std::ranges::find(found.results->changes, model, &ResultChange::model);
    };
    EXPECT_EQ(changeOf("120").kind, ChangeKind::removed);
    EXPECT_EQ(changeOf("120").stateAfter, "");
    EXPECT_EQ(changeOf("121").kind, ChangeKind::added);
    EXPECT_EQ(found.rows.rows[changeOf("121").reasons.front()].key, "R134A, TK-A, 121");
    const ResultChange outside = changeOf("165");
    EXPECT_FALSE(outside.economized);
    EXPECT_EQ(outside.stateAfter, "outside");
    ASSERT_THAT(outside.gained, Not(IsEmpty()));
    EXPECT_EQ(outside.gained.front().key, "messages.message01");
    const auto area = std::ranges::find(outside.figures, std::string("envelope area"), &FigureChange::figure);
    ASSERT_NE(area, outside.figures.end());
    EXPECT_NEAR(*area->after, 15 * 30, 1e-9);
    const auto capacity = std::ranges::find(outside.figures, std::string("capacity"), &FigureChange::figure);
    ASSERT_NE(capacity, outside.figures.end());
    EXPECT_FALSE(capacity->after);
}

TEST_F(CatalogueDiffTest, SaysTablesColumnsAndAnOrderThatCounts) {
    const fs::path before = folder_ / "before.mdb";
    const fs::path after = folder_ / "after.mdb";
    writeCatalogue(contentOf(old_), before);
    auto parts = test::linesOf(new_ / "tFluidi.csv");
    const auto part =
        std::ranges::find_if(parts, [](const std::string& line) { return line.starts_with("R407C,"); });
    ASSERT_LT(part + 1, parts.end());
    std::iter_swap(part, part + 1);  // components of one blend
    test::writeLines(new_ / "tFluidi.csv", parts);
    writeCatalogue(contentOf(new_), after);
    SQLite::Database(after.string(), SQLite::OPEN_READWRITE)
        .exec(
            "ALTER TABLE tMotors ADD COLUMN fMass REAL; CREATE TABLE tPrices (fModel TEXT, fPrice REAL);"
            "INSERT INTO tPrices VALUES ('120', 1000); DROP TABLE tSources");
    const auto answer =
        callProgram("marvello-catalogue", "diff --no-results " + before.string() + " " + after.string());
    EXPECT_EQ(answer.status, 1);
    EXPECT_THAT(answer.out, HasSubstr("tMotors\n      the column fMass is new"));
    EXPECT_THAT(answer.out, HasSubstr("tPrices\n      the table is new, with 1 row\n"));
    EXPECT_THAT(answer.out, HasSubstr("tFluidi\n      the order is another one: 1 row moved"));
    // The table of sources may be missing: it is one without rows.
    EXPECT_THAT(answer.out, HasSubstr("tSources\n  removed"));
}

TEST_F(CatalogueDiffTest, WritesATableForProgramsAndAPage) {
    auto lines = test::linesOf(new_ / "tDictionary.en-EN.csv");
    for (std::string& line : lines)
        if (line.starts_with("mdimain.menu.file,")) line = R"(mdimain.menu.file,"<b>, ""&""")";
    test::writeLines(new_ / "tDictionary.en-EN.csv", lines);
    change("tPolynomials.csv", "TK-A-R134A-120,0,100,93.329706,", "TK-A-R134A-120,0,100,94.329706,");

    Faults faults;
    const auto records = readCsv(run("--format csv").out, "diff.csv", faults);
    EXPECT_THAT(faults.lines(), IsEmpty());
    ASSERT_GT(records.size(), 4U);
    for (const CsvRecord& record : records) EXPECT_THAT(record.fields, SizeIs(11));
    const auto text = std::ranges::find_if(
        records, [](const CsvRecord& record) { return record.fields[2] == "tDictionary"; });
    ASSERT_NE(text, records.end());
    EXPECT_EQ(text->fields[3], "en-EN, mdimain.menu.file");
    EXPECT_EQ(text->fields[7], "<b>, \"&\"");
    for (const CsvRecord& record : records)
        EXPECT_TRUE(record.fields[5].empty() || record.fields[6] != record.fields[7]) << record.line;
    const auto capacity =
        std::ranges::find_if(records, [](const CsvRecord& record) { return record.fields[5] == "capacity"; });
    ASSERT_NE(capacity, records.end());
    EXPECT_NEAR(std::stod(capacity->fields[7]) - std::stod(capacity->fields[6]), 1, 1e-5);
    EXPECT_NEAR(std::stod(capacity->fields[9]), 100 / std::stod(capacity->fields[6]), 1e-5);
    EXPECT_EQ(capacity->fields[10], "tPolynomials TK-A-R134A-120, 0, 100 (fC1)");

    const fs::path page = folder_ / "diff.html";
    const auto answer = run("--format html --output " + page.string());
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.out, "");
    const std::string html = fileText(page).value_or("");
    EXPECT_THAT(html, HasSubstr("<td>&lt;b&gt;, &quot;&amp;&quot;</td>"));
    EXPECT_THAT(html, Not(HasSubstr("<b>")));
    for (const char* other : {"src=", "href=", "@import", "url("}) EXPECT_THAT(html, Not(HasSubstr(other)));
}

TEST_F(CatalogueDiffTest, RefusesWhatItCannotRead) {
    const auto refused = [&](const std::string& arguments, const std::string& says) {
        const auto answer =
            callProgram("marvello-catalogue", "diff " + arguments, ::marvello::testing::Listen::errors);
        EXPECT_EQ(answer.status, 2) << arguments;
        EXPECT_THAT(answer.out, HasSubstr(says));
    };
    const std::string old = old_.string();
    fs::create_directories(folder_ / "empty");
    refused(old + " " + (folder_ / "missing").string(), "There is no ");
    refused(old + " " + (folder_ / "empty").string(), "has none of the tables of a catalogue");
    refused(old + " " + (old_ / "tMotors.csv").string(), "cannot be read");
    refused(old + " " + old + " --format xml", "--format");
    refused(old + " " + old + " --output " + old, "choose another name");
    // A value that is none can be compared as a text, but not calculated with.
    change("tPolynomials.csv", "TK-A-R134A-120,0,100,93.329706,", "TK-A-R134A-120,0,100,93.3.29706,");
    refused(old + " " + new_.string(), "compare the rows alone with --no-results");
    EXPECT_THAT(run("--no-results").out, HasSubstr("fC1  93.329706 -> 93.3.29706"));
}

/// A series for low temperatures is not judged where it may not run.
TEST(UsualPoints, AreInsideOfAnEnvelopeForEverySeries) {
    const test::TemporaryFolder folder("marvello-usual");
    writeCatalogue(contentOf(fs::path(MARVELLO_SOURCE_FOLDER) / "content"), folder / "db.mdb");
    const Session session(MARVELLO_APP_FOLDER);
    openCatalogue("Data Source=" + (folder / "db.mdb").string());
    const auto catalogue = preparedCatalogue(gDatabase());
    std::map<SeriesChoice, bool> isInside;
    const UsualPoints points = usualPoints(*catalogue);
    for (const PreparedCompressor& compressor : catalogue->compressors())
        for (const bool economized : {false, true}) {
            if (economized && !hasEconomizer(compressor)) continue;
            const SeriesChoice choice = seriesChoiceOf(compressor, economized);
            const clsPoint point = points.at(choice);
            const auto& limits = (economized ? compressor.envelopeEconomized : compressor.envelope)->limits;
            if (limits.holding(point.x, point.Y).FindLimitType(limitType::application))
                isInside[choice] = true;
        }
    EXPECT_EQ(isInside.size(), points.size());
    const clsPoint air = points.at({"r134a", "tk-a", false});
    EXPECT_EQ(air.x, 2);
    EXPECT_EQ(air.Y, 40);
    EXPECT_LT(points.at({"r404a", "gh", false}).x, -15);
}

TEST(UsualPoints, AreasAreThoseOfTheShoelaceFormula) {
    clsPoints triangle;  // 3 by 4, half of it
    for (const auto& [x, y] : {std::pair{-10.0, 20.0}, {-7.0, 20.0}, {-10.0, 24.0}, {-10.0, 20.0}})
        triangle.add(x, y);
    EXPECT_DOUBLE_EQ(areaOf(triangle), 6);
}

}  // namespace

#include "data/Csv.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "data/FileText.h"
#include "data/TextTable.h"
#include "tests/support/TemporaryFolder.h"

using namespace marvello;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Fields = std::vector<std::string>;

/// The records of a text without faults.
std::vector<Fields> fieldsOf(std::string_view text) {
    Faults faults;
    std::vector<Fields> fields;
    for (auto& record : readCsv(text, "f.csv", faults)) fields.push_back(record.fields);
    EXPECT_THAT(faults.lines(), IsEmpty());
    return fields;
}

std::vector<std::string> faultsOf(std::string_view text) {
    Faults faults;
    readCsv(text, "f.csv", faults);
    return faults.lines();
}

TEST(Csv, ReadsFieldsAndQuotes) {
    EXPECT_THAT(fieldsOf("a,b\n1,\n"), ElementsAre(Fields{"a", "b"}, Fields{"1", ""}));
    EXPECT_THAT(fieldsOf("\xEF\xBB\xBF"
                         "a\r\n\r\n\"\"\"q\"\", c\"\r\n"),
                ElementsAre(Fields{"a"}, Fields{"\"q\", c"}));
    EXPECT_THAT(fieldsOf("\"x\ny\",,z"), ElementsAre(Fields{"x\ny", "", "z"}));
    EXPECT_THAT(fieldsOf("a\rb"), ElementsAre(Fields{"a\rb"}));  // a lone CR ends no line
    EXPECT_THAT(fieldsOf(""), IsEmpty());
}

TEST(Csv, CountsLinesAcrossQuotedLineEnds) {
    Faults faults;
    const auto records = readCsv("h\n\"1\n2\"\n\nx\n", "f.csv", faults);
    ASSERT_EQ(records.size(), 3U);
    EXPECT_EQ(records[1].line, 2);
    EXPECT_EQ(records[2].line, 5);
}

TEST(Csv, ReportsMisplacedQuotes) {
    EXPECT_THAT(faultsOf("a\nb\"c\n"), ElementsAre(testing::StartsWith("f.csv:2: a quote")));
    EXPECT_THAT(faultsOf("a\n\"b\"c,d\n"), ElementsAre(testing::StartsWith("f.csv:2: text comes")));
    EXPECT_THAT(faultsOf("a\n\"b\nc"), ElementsAre("f.csv:2: a field in quotes has no end"));
}

TEST(Csv, RefusesInvalidUtf8) {
    EXPECT_THAT(faultsOf("a\nb\xFF\n"), ElementsAre("f.csv:2: the text is not valid UTF-8"));
    for (const auto* good : {"\u00E9", "\u20AC", "\uD7FF", "\U0010FFFF", "z"}) EXPECT_TRUE(isUtf8(good));
    // overlong, surrogate, beyond the last code point, cut off, lone continuation
    for (const auto* bad :
         {"\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82", "\x80"})
        EXPECT_FALSE(isUtf8(bad));
}

TEST(FileText, GivesEveryByteAndNothingOfWhatIsNoFile) {
    const marvello::test::TemporaryFolder folder("marvello-text");
    const std::string bytes("a\r\n\0\xFF\n", 6);
    std::ofstream(folder / "bytes", std::ios::binary) << bytes;
    std::ofstream(folder / "empty");
    EXPECT_EQ(fileText(folder / "bytes"), bytes);
    EXPECT_EQ(fileText(folder / "empty"), "");
    EXPECT_EQ(fileText(folder / "missing"), std::nullopt);
    EXPECT_EQ(fileText(folder), std::nullopt);
}

TEST(Csv, ALineReadsBackAsItsFields) {
    for (const Fields& fields :
         {Fields{"a", "b c", ""}, Fields{"1,5", "\"quoted\"", "two\nlines"}, Fields(1)}) {
        Faults faults;
        const auto records = readCsv(csvLine(fields), "f.csv", faults);
        ASSERT_EQ(records.size(), 1U);
        EXPECT_EQ(records[0].fields, fields);
        EXPECT_TRUE(faults.empty());
    }
}

TEST(TextTable, NamesWhatDoesNotFit) {
    const marvello::test::TemporaryFolder folder("marvello-table");
    const std::filesystem::path file = folder / "plan.csv";
    std::ofstream(file)
        << "# made for this test\nserie,displacement,drive,length\nTK-A,12o,open,\n# the end\n";
    const TextTable table(file);
    const TextTable::Row& row = table.rows().front();
    const auto reason = [](auto ask) -> std::string {
        try {
            ask();
        } catch (const std::runtime_error& fault) {
            return fault.what();
        }
        return "";
    };
    EXPECT_EQ(reason([&] { row.number("displacement"); }),
              file.string() + ":3: displacement: \"12o\" is no number");
    EXPECT_EQ(reason([&] { row.text("model"); }), file.string() + ":3: model: there is no such column");
    EXPECT_EQ(reason([&] { row.choice("drive", {"motor", "inverter"}); }),
              file.string() + ":3: drive: \"open\" is none of its words");
    EXPECT_EQ(row.choice("drive", {"motor", "open"}), 1U);
    EXPECT_FALSE(row.numberIfAny("length"));
    EXPECT_EQ(row.number("length", 7), 7);
    EXPECT_EQ(table.rows().size(), 1U);
}

}  // namespace

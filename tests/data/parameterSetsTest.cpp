#include "data/ParameterSets.h"

#include <gmock/gmock.h>

#include <map>

#include "data/Session.h"
#include "tests/data/TestCatalogue.h"

using namespace marvello;

namespace marvello {
bool operator==(const ParameterAssignment& a, const ParameterAssignment& b) {
    return a.object == b.object && a.property == b.property && a.value == b.value;
}
void PrintTo(const ParameterAssignment& a, std::ostream* stream) {
    *stream << a.object << '.' << a.property << '=' << a.value;
}
}  // namespace marvello

namespace {

class ParameterSets : public testing::Test {
  protected:
    void SetUp() override { gDatabase().ConnectionString = catalogue_.connectionString(); }

    /// The assignments that one stored property text gives.
    std::vector<ParameterAssignment> assignments(const std::string& propertyText) {
        catalogue_.exec("DELETE FROM tParametersRows; INSERT INTO tParametersRows VALUES (7, 'c', '', " +
                        sqlText(propertyText) + ")");
        return readParameterSet("FRM", "form", "populate", dictionaryText);
    }

    static std::string dictionaryText(const std::string& key) {
        static const std::map<std::string, std::string> texts{
            {"a.b", "width"}, {"c.d", "height"}, {"outer", "<{a.b}>"}, {"self", "x{self}"}, {"empty", ""}};
        return texts.at(key);
    }

    Session session_;
    TestCatalogue catalogue_{
        "CREATE TABLE tParametersHead (fType TEXT COLLATE NOCASE, fTypeKey TEXT COLLATE NOCASE,"
        " fKey TEXT COLLATE NOCASE, fParametersRowsID INTEGER);"
        "CREATE TABLE tParametersRows (fParametersRowsID INTEGER, fObjectName TEXT, fObjectType TEXT,"
        " fObjectPropertyValue TEXT);"
        "INSERT INTO tParametersHead VALUES ('frm', 'Form', 'populate', 7), ('frm', 'Form', 'none', 8);"};
};

using Assignments = std::vector<ParameterAssignment>;

TEST_F(ParameterSets, SplitIntoAssignments) {
    EXPECT_EQ(assignments(" Caption = {a.b} x {c.d} :Visible=True"),
              (Assignments{{"c", "Caption", "width x height"}, {"c", "Visible", "True"}}));
    EXPECT_EQ(assignments("piece:A=1=2::B="), (Assignments{{"c", "A", "1"}, {"c", "B", ""}}));
    EXPECT_EQ(assignments(""), Assignments{});
    EXPECT_EQ(readParameterSet("frm", "Form", "none", dictionaryText), Assignments{});
    EXPECT_EQ(readParameterSet("frm", "o'ther", "none", dictionaryText), Assignments{});
}

TEST_F(ParameterSets, ExpandPlaceholdersUntilNoneIsLeft) {
    EXPECT_EQ(assignments("A={outer}:B={empty}"), (Assignments{{"c", "A", "<width>"}, {"c", "B", ""}}));
    EXPECT_EQ(assignments("A=}x{:B={a.b"), (Assignments{{"c", "A", "}x{"}, {"c", "B", "{a.b"}}));
}

TEST_F(ParameterSets, LeaveOutValuesThatCannotBeResolved) {
    EXPECT_EQ(assignments("A={unknown}:B={self}:C=kept"), (Assignments{{"c", "C", "kept"}}));
}

}  // namespace

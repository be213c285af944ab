#include "results/ResultTable.h"

#include <gtest/gtest.h>

#include "data/Session.h"
#include "data/Texts.h"
#include "results/ExportRecords.h"
#include "results/Messages.h"
#include "results/ReportLines.h"

using namespace marvello;

namespace {

struct Model {
    const char* refrigerant;
    const char* name;
    double capacity;
};

/// Models of TK-A in the order of their sequence.
clsSelections selectionOf(std::initializer_list<Model> models) {
    clsSelections selection;
    int sequence = 100;
    for (const auto& [refrigerant, name, capacity] : models) {
        auto compressor = std::make_shared<clsCompressor>();
        compressor->Refrigerant = refrigerant;
        compressor->Serie = "TK-A";
        compressor->Model = name;
        compressor->Sequence = std::to_string(++sequence);
        compressor->Variables.add("Q0", capacity);
        if (capacity < 0) compressor->Messages.Error.add("e", "e");
        selection.add(compressor);
    }
    return selection;
}

const clsOutputs columns = readOutputs("Q0|Capacity|kW|Cooling capacity|0;Q0Btu|Capacity|Btu|In Btu|3");

std::string shown(const ResultTable& table) {
    std::string text;
    for (const ResultGroup& group : table.groups) {
        text += group.name + ":";
        for (const ResultRow& row : group.rows)
            text += ' ' + row.label + '=' + trimmed(row.values.front().text);
        text += '\n';
    }
    return text;
}

}  // namespace

TEST(ResultTable, GroupsByRefrigerantOrByCompressor) {
    const clsSelections selection =
        selectionOf({{"R507", "90", 50}, {"R134A", "140", 82}, {"R134A", "90", 60}, {"R507", "140", 70}});
    EXPECT_EQ(shown(listResults(selection, columns, {})),
              "R134A: TK-A-140=82.0 TK-A-90=60.0\nR507: TK-A-90=50.0 TK-A-140=70.0\n");
    EXPECT_EQ(shown(listResults(selection, columns, {.grouping = Grouping::byCompressor})),
              "TK-A-140: R134A=82.0 R507=70.0\nTK-A-90: R134A=60.0 R507=50.0\n");
}

TEST(ResultTable, SortsByAColumnAndByTheNumbersInNames) {
    const clsSelections selection = selectionOf({{"R134A", "140", 82},
                                                 {"R134A", "90", 9.5},
                                                 {"R134A", "100", -1},
                                                 {"R134A", "1000", 0},
                                                 {"R134A", "95", 9.51}});
    ListOptions options;
    options.order.clicked("Q0");
    EXPECT_EQ(shown(listResults(selection, columns, options)),
              "R134A: TK-A-90=9.5 TK-A-95=9.5 TK-A-140=82.0 TK-A-100= TK-A-1000=-\n")
        << "equal as they are shown, and without a number last";
    options.order.clicked("Q0");
    EXPECT_EQ(shown(listResults(selection, columns, options)),
              "R134A: TK-A-140=82.0 TK-A-90=9.5 TK-A-95=9.5 TK-A-100= TK-A-1000=-\n");
    options.order.clicked("Q0");
    EXPECT_EQ(options.order.column(), "");
    options.order.clicked(nameColumn);
    EXPECT_EQ(shown(listResults(selection, columns, options)),
              "R134A: TK-A-90=9.5 TK-A-95=9.5 TK-A-100= TK-A-140=82.0 TK-A-1000=-\n");
}

TEST(ResultTable, FilesHoldTheNumbersThatTheListShows) {
    const Session session;
    const clsSelections selection =
        selectionOf({{"R134A", "90", 68.149}, {"R134A", "100", -1}, {"R134A", "140", 0}});
    const ResultTable table = listResults(selection, columns, {.units = UnitSystem::imperial});
    // 68.149 / 3.517 = 19.4 tons; 19.4 * 12000 = 232800 Btu/h
    EXPECT_EQ(resultsRecords(table).toCsv(),
              "Refrigerant;Serie;Model;Q0;Q0Btu\n\"R134A\";\"TK-A\";\"90\";19.4;232800\n\"R134A\";\"TK-A\";"
              "\"140\";;\n");
    EXPECT_EQ(polynomialsRecords(table).rowCount(), 6) << "also of the model that is not possible";
    const auto lines = resultLines(table, table.groups.front().rows.front());
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[1].name, "Cooling capacity");
    EXPECT_EQ(lines[1].value, "19.4 Tons / 232,800 Btu/h");
}

TEST(Messages, ShowErrorsAloneAndEachTextOnce) {
    clsCompressor compressor;
    compressor.Messages.Attention.add("w", "w");
    compressor.Messages.Attention.add("w", "w");
    compressor.Messages.Information.add("w", "w");
    const auto keysOf = [&compressor] {
        std::string keys;
        for (const ShownMessage& message : messagesOf(compressor)) keys += message.key + ' ';
        return keys;
    };
    EXPECT_EQ(keysOf(), "w w ");
    compressor.Messages.Error.add("e", "error");
    EXPECT_EQ(keysOf(), "e ");
}

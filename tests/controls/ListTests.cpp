#include <gtest/gtest.h>

#include <QHeaderView>
#include <QListWidget>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include "controls/Look.h"
#include "controls/Marks.h"
#include "controls/ResultsView.h"
#include "controls/TwoLineHeader.h"
#include "controls/TypedChoice.h"
#include "controls/ctlBtn.h"
#include "controls/ctlCombo.h"

using namespace marvello;

namespace {

class ComboTest : public testing::Test {
  protected:
    QListWidget* list() { return combo.findChild<QListWidget*>(); }
    void open(const QString& pairs, const QString& keys, bool checkBoxes) {
        combo.Populate(pairs, keys, false, checkBoxes);
        combo.openUnder(QRect(10, 10, 200, 28));
    }
    void click(int row) {
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, {},
                          list()->visualItemRect(list()->item(row)).center());
    }

    ctlCombo combo;
    QSignalSpy choices{&combo, &ctlCombo::Choice};
    QSignalSpy closings{&combo, &ctlCombo::Closed};
    const QString models = "*|ALL;120|TK-A-120;140|TK-A-140";
};

}  // namespace

TEST_F(ComboTest, AClickChoosesAndCloses) {
    open("NL-H|NL-H;TK-A|Series TK-A", "NL-H", false);
    EXPECT_EQ(list()->currentRow(), 0);
    click(1);
    ASSERT_EQ(choices.count(), 1);
    EXPECT_EQ(choices[0], (QVariantList{"TK-A", "Series TK-A"}));
    EXPECT_EQ(closings.count(), 1);
}

TEST_F(ComboTest, ADetailIsShownAndReadAndChangesNoName) {
    combo.Populate("R22|R22;R290|R290", "R22", false, false);
    const auto picture = [this] {
        combo.openUnder(QRect(10, 10, 200, 28));
        return combo.grab().toImage();
    };
    const QImage plain = picture();
    combo.setDetails([](const QString& key) { return RowDetail{"class of " + key, "tip of " + key}; });
    EXPECT_NE(picture(), plain);
    EXPECT_EQ(list()->item(1)->text(), "R290");
    EXPECT_EQ(list()->item(1)->data(Qt::AccessibleTextRole), "R290, class of R290");
    EXPECT_EQ(list()->item(1)->toolTip(), "tip of R290");
    QTest::keyClicks(list(), "R29");
    QTest::keyClick(list(), Qt::Key_Return);
    ASSERT_EQ(choices.count(), 1);
    EXPECT_EQ(choices[0], (QVariantList{"R290", "R290"}));
    EXPECT_EQ(picture().size(), plain.size());
}

TEST_F(ComboTest, KeysChooseAndEscapeOnlyCloses) {
    open("1|one;2|two", "1", false);
    QTest::keyClick(list(), Qt::Key_Down);
    QTest::keyClick(list(), Qt::Key_Return);
    ASSERT_EQ(choices.count(), 1);
    EXPECT_EQ(choices[0][0], "2");
    open("1|one;2|two", "2", false);
    QTest::keyClick(list(), Qt::Key_Escape);
    EXPECT_EQ(choices.count(), 1);
    EXPECT_EQ(closings.count(), 2);
}

TEST_F(ComboTest, TheRowForAllExcludesTheOthersBothWays) {
    open(models, "*", true);
    click(1);
    click(2);
    QTest::keyClick(list(), Qt::Key_Return);
    ASSERT_EQ(choices.count(), 1);
    EXPECT_EQ(choices[0], (QVariantList{"120;140", "TK-A-120;TK-A-140"}));
    open(models, "120;140", true);
    click(0);
    QTest::keyClick(list(), Qt::Key_Return);
    EXPECT_EQ(choices[1], (QVariantList{"*", "ALL"}));
}

TEST_F(ComboTest, NothingCheckedMeansAll) {
    open(models, "120", true);
    EXPECT_EQ(list()->currentRow(), 1);
    QTest::keyClick(list(), Qt::Key_Space);
    QTest::keyClick(list(), Qt::Key_Tab);
    ASSERT_EQ(choices.count(), 1);
    EXPECT_EQ(choices[0], (QVariantList{"*", "All"}));
}

TEST_F(ComboTest, TheHeightFollowsTheRows) {
    combo.Populate("", "", false, true);
    EXPECT_EQ(combo.preferredHeight(), 100);
    combo.Populate("1|a;2|b", "", false, false);
    EXPECT_EQ(combo.preferredHeight(), 3 * combo.RowHeight());
    QStringList many;
    for (int i = 0; i < 30; ++i) many += QString::number(i) + "|" + QString::number(i);
    combo.Populate(many.join(';'), "", false, false);
    EXPECT_EQ(combo.ListCount(), 30);
    EXPECT_EQ(combo.preferredHeight(), 21 * combo.RowHeight());
}

TEST(ResultsView, KeepsRowsByKeyAndMovesTheSelection) {
    ResultsView view;
    view.setColumns({{"compressor", "Compressor", ""}, {"Q0", "A rather long heading(kW)", ""}});
    view.addGroup("@R134A", "R134A");
    view.addRow({"k1", "TK-A-120", mark::possible, "no remarks", {"68.1"}});
    view.fitColumns();
    view.show();
    EXPECT_TRUE(view.isGroup(0));
    EXPECT_FALSE(view.isGroup(1));
    EXPECT_EQ(view.text(1, 1), "68.1");
    EXPECT_GE(view.columnWidth(1), TwoLineHeader::widthOf("A rather long heading(kW)"));
    QSignalSpy selections(&view, &ResultsView::rowSelected);
    EXPECT_TRUE(view.selectKey("k1"));
    EXPECT_EQ(view.selectedRow(), 1);
    QTest::keyClick(&view, Qt::Key_Up);
    EXPECT_EQ(view.selectedRow(), 0);
    EXPECT_EQ(selections.count(), 2);
    view.clear();
    EXPECT_EQ(view.rowCount(), 0);
    EXPECT_EQ(view.selectedRow(), -1);
    EXPECT_EQ(selections.count(), 3) << "the selection went with its rows";
}

TEST(ResultsView, AColumnHoldsItsWidestText) {
    const QString narrow(12, u'i');
    for (const QString& widest : {QStringLiteral("WWWWWWWWWWWW"), QStringLiteral("1.234.567,89 kW/h"),
                                  QStringLiteral("\u5236\u51b7\u5242\u5236\u51b7\u5242\u5236\u51b7"),
                                  QStringLiteral("A\u0308V\u0301AVAVAVAVAV")}) {
        ResultsView view;
        view.setColumns({{"model", "Model", {}}, {"text", "Text", {}}});
        for (const QString& value : {narrow, widest, narrow, QString()})
            view.addRow({value, value, {}, {}, {value}});
        view.fitColumns();
        const int text = QFontMetrics(lookFont()).horizontalAdvance(widest);
        for (const int column : {0, 1})
            EXPECT_GE(view.columnWidth(column), text + 14) << widest.toStdString();
    }
}

TEST(ResultsView, TheFirstColumnStaysInPlaceWhenTheOthersScroll) {
    ResultsView view;
    view.setColumns({{"model", "Model", {}},
                     {"q0", "Capacity(kW)", {}},
                     {"pta", "Power(kW)", {}},
                     {"ca", "Current(A)", {}}});
    view.addGroup("g", "R134A");
    view.addRow({"1", "TK-A-120", mark::possible, {}, {"69.9", "16.8", "31.0"}});
    view.addRow({"2", "TK-A-140", mark::notPossible, {}, {"81.8", "19.6", "37.0"}});
    view.addGroup("h", "R407C");
    view.resize(260, 200);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    view.selectRow(2);
    QCursor::setPos(view.viewport()->mapToGlobal(QPoint(200, 150)));
    QCursor::setPos(view.viewport()->mapToGlobal(QPoint(30, 40)));  // over the row that is not selected
    ASSERT_TRUE(QTest::qWaitFor([&view] { return view.viewport()->underMouse(); }));
    const auto seen = [&](QWidget* part) {
        // Without its last line of pixels, which parts it from what scrolls below.
        return part->grab(QRect(0, 0, view.header()->sectionSize(0) - 1, part->height())).toImage();
    };
    const QImage labels = seen(view.viewport());
    const QImage heading = seen(view.header()->viewport());
    view.horizontalScrollBar()->setValue(60);
    ASSERT_EQ(view.header()->offset(), 60);
    EXPECT_EQ(seen(view.viewport()), labels);
    EXPECT_EQ(seen(view.header()->viewport()), heading);

    // Its edge is taken where it is seen.
    const int width = view.header()->sectionSize(0);
    QWidget* header = view.header()->viewport();
    QTest::mousePress(header, Qt::LeftButton, {}, {width - 1, 20});
    QTest::mouseMove(header, {width + 29, 20});
    QTest::mouseRelease(header, Qt::LeftButton, {}, {width + 29, 20});
    EXPECT_EQ(view.header()->sectionSize(0), width + 30);
}

TEST(ctlBtn, IsClickedByMouseEnterAndSpaceUnlessDisabled) {
    ctlBtn button("Abort", false);
    button.show();
    QSignalSpy clicks(&button, &ctlBtn::clicked);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Return);
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(clicks.count(), 3);
    button.setProperty("Enabled", false);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(clicks.count(), 3);
}

TEST(TypedChoice, TakesTheRowThatBeginsWithWhatWasTyped) {
    const QStringList rows{"MV-A", "TK-A", "TK-E", "T"};
    EXPECT_EQ(typedChoice(rows, "tk", 0), 1);
    EXPECT_EQ(typedChoice(rows, "tk", 2), 2) << "the row that is chosen still fits";
    EXPECT_EQ(typedChoice(rows, "tk-e", 0), 2);
    EXPECT_EQ(typedChoice(rows, "mm", 1), 0) << "a letter again goes on to the next";
    EXPECT_EQ(typedChoice(rows, "tx", 1), -1);
}

// The pin is in front of the label, in the 24 pixels that a row below a group begins with.
TEST(ResultsView, APinIsClickedAndSaidByItsRowAlone) {
    ResultsView list;
    list.setColumns({{"model", "Model", ""}, {"q0", "Capacity(kW)", ""}});
    list.addGroup("g", "Group");
    for (const char* key : {"a", "b", "c"}) list.addRow({key, key, mark::possible, "", {"1"}});
    list.setPins({.isPinned = [](int row) -> std::optional<bool> {
                      if (row == 3) return std::nullopt;
                      return row == 2;
                  },
                  .addText = "add",
                  .takeText = "take",
                  .pinnedText = "in use"});
    list.resize(400, 200);
    list.show();
    QSignalSpy clicks(&list, &ResultsView::pinClicked);
    const auto place = [&list](int row, int x) {
        return QPoint(x, list.visualRect(list.model()->index(row, 0)).center().y());
    };
    for (const int row : {0, 1, 2, 3}) QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place(row, 12));
    ASSERT_EQ(clicks.count(), 2) << "neither the group nor a row without a pin";
    EXPECT_EQ(clicks[0].front().toInt(), 1);
    EXPECT_EQ(clicks[1].front().toInt(), 2);
    EXPECT_EQ(list.selectedRow(), 3) << "a click where there is no pin selects";
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place(1, 12));
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, place(1, 12));
    EXPECT_EQ(clicks.count(), 3);
    QTest::mouseClick(list.viewport(), Qt::RightButton, {}, place(1, 12));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place(1, 40));
    EXPECT_EQ(clicks.count(), 3);
    EXPECT_EQ(list.selectedRow(), 1);
    const auto spoken = [&list](int row) {
        return list.model()->index(row, 0).data(Qt::AccessibleTextRole).toString();
    };
    EXPECT_EQ(spoken(1), "a");
    EXPECT_EQ(spoken(2), "b, in use");
}

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QLabel>
#include <QListWidget>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>

#include "controls/Accessibility.h"
#include "controls/FilterChip.h"
#include "controls/Look.h"
#include "controls/PageBar.h"
#include "controls/SegmentedSelector.h"
#include "controls/TagBox.h"
#include "controls/WrapBar.h"

using namespace marvello;

namespace {

class TagBoxTest : public testing::Test {
  protected:
    TagBoxTest() {
        installAccessibility();
        box.setCaption("Refrigerants", 112);
        box.setChoices({"R134A", "R290", "R513A", "R1234YF"},
                       [](const QString& key) { return RowDetail{key == u"R1234YF" ? "A2L" : "A1", {}}; });
        box.resize(374, 34);
        box.show();
    }
    QListWidget* list() { return box.findChild<QListWidget*>(); }

    TagBox box;
    QSignalSpy changes{&box, &TagBox::chosenByUser};
};

/// The cross of the first tag, by the measures of the box: 112 of caption, 3 of halo, 4 inside.
QPoint firstCross(const QString& tag) {
    const int text = QFontMetrics(lookFont(12)).horizontalAdvance(tag);
    return {3 + 112 + 4 + 7 + text + 10, 3 + 14};
}

}  // namespace

TEST(FilterChip, SpaceAndAClickSwitchIt) {
    FilterChip chip;
    chip.setFilter("Without warnings", 241);
    chip.show();
    QSignalSpy switched(&chip, &FilterChip::toggled);
    const int width = chip.sizeHint().width();
    QTest::keyClick(&chip, Qt::Key_Space);
    EXPECT_TRUE(chip.isChecked());
    EXPECT_GT(chip.sizeHint().width(), width) << "the tick has no room";
    QTest::mouseClick(&chip, Qt::LeftButton);
    EXPECT_FALSE(chip.isChecked());
    EXPECT_EQ(switched.count(), 2);
}

TEST(FilterChip, IsACheckBoxWithItsCountForAScreenReader) {
    FilterChip chip;
    chip.setFilter("Without warnings", 241);
    chip.setChecked(true);
    QAccessibleInterface* known = QAccessible::queryAccessibleInterface(&chip);
    ASSERT_TRUE(known);
    EXPECT_EQ(known->role(), QAccessible::CheckBox);
    EXPECT_EQ(known->text(QAccessible::Name), "Without warnings, 241");
    EXPECT_TRUE(known->state().checked);
}

TEST(WrapBar, GrowsByLinesAndHoldsEveryControl) {
    WrapBar bar;
    QList<FilterChip*> chips;
    for (const char* name :
         {"Best of each refrigerant", "All", "Without warnings", "One machine", "Inverter"}) {
        chips += new FilterChip;
        chips.back()->setFilter(name, 100);
        bar.add(chips.back(), FilterChip::ring);
        if (chips.size() == 2) bar.addSeparator();
    }
    bar.resize(2000, WrapBar::lineHeight);
    bar.show();
    bar.layOut();
    EXPECT_EQ(bar.height(), WrapBar::lineHeight);
    for (const int width : {500, 300, 230}) {
        bar.resize(width, bar.height());
        bar.layOut();
        EXPECT_GT(bar.height(), WrapBar::lineHeight);
        for (const FilterChip* chip : chips) {
            EXPECT_TRUE(bar.rect().contains(chip->geometry())) << width << chip->text().toStdString();
            EXPECT_TRUE(std::ranges::none_of(chips, [chip](const FilterChip* other) {
                const int ring = FilterChip::ring;
                return other != chip &&
                       other->geometry().intersects(chip->geometry().adjusted(ring, ring, -ring, -ring));
            }));
        }
    }
}

namespace {

class SelectorTest : public testing::Test {
  protected:
    SelectorTest() {
        selector.setChoices({{"limits", "Limits only"}, {"cop", "COP"}, {"capacity", "Capacity"}});
        selector.resize(selector.sizeHint());
        selector.show();
    }
    QAbstractButton* segment(const char* key) {
        return selector.findChild<QAbstractButton*>(QStringLiteral("segment_") + key);
    }
    /// Whether all of a segment is in view.
    bool isSeen(const char* key) {
        return segment(key)->visibleRegion().boundingRect() == segment(key)->rect();
    }

    SegmentedSelector selector;
    QSignalSpy choices{&selector, &SegmentedSelector::chosenByUser};
};

}  // namespace

TEST_F(SelectorTest, ArrowsAndAClickChooseAndTheProgramDoesSoQuietly) {
    EXPECT_EQ(selector.chosen(), "limits") << "the first";
    EXPECT_TRUE(selector.setChosen("cop"));
    EXPECT_FALSE(selector.setChosen("weight"));
    EXPECT_EQ(choices.count(), 0);
    segment("cop")->setFocus();
    QTest::keyClick(segment("cop"), Qt::Key_Right);
    EXPECT_EQ(selector.chosen(), "capacity");
    QTest::keyClick(segment("capacity"), Qt::Key_Right);
    EXPECT_EQ(selector.chosen(), "capacity") << "the last one";
    QTest::mouseClick(segment("limits"), Qt::LeftButton);
    EXPECT_EQ(selector.chosen(), "limits");
    QTest::mouseClick(segment("limits"), Qt::LeftButton);
    EXPECT_EQ(choices, (QList<QVariantList>{{"capacity"}, {"limits"}}));
}

TEST_F(SelectorTest, TabStopsAtTheChosenSegmentAlone) {
    selector.setChosen("cop");
    EXPECT_TRUE(segment("cop")->focusPolicy() & Qt::TabFocus);
    EXPECT_FALSE(segment("limits")->focusPolicy() & Qt::TabFocus);
    EXPECT_FALSE(segment("capacity")->focusPolicy() & Qt::TabFocus);
}

TEST_F(SelectorTest, IsARowOfRadioButtonsForAScreenReader) {
    selector.setChosen("cop");
    QAccessibleInterface* known = QAccessible::queryAccessibleInterface(segment("cop"));
    ASSERT_TRUE(known);
    EXPECT_EQ(known->role(), QAccessible::RadioButton);
    EXPECT_EQ(known->text(QAccessible::Name), "COP");
    EXPECT_TRUE(known->state().checked);
    EXPECT_FALSE(QAccessible::queryAccessibleInterface(segment("limits"))->state().checked);
}

TEST_F(SelectorTest, ScrollsWithoutRoomAndKeepsTheChoiceInView) {
    selector.resize(selector.minimumSizeHint());
    EXPECT_TRUE(isSeen("limits"));
    EXPECT_FALSE(isSeen("capacity"));
    selector.setChosen("capacity");
    EXPECT_TRUE(isSeen("capacity"));
    selector.setChoices({{"capacity", "Kälteleistung"}, {"cop", "COP"}});
    selector.resize(selector.minimumSizeHint());
    EXPECT_EQ(selector.chosen(), "capacity") << "stays chosen in another language";
    EXPECT_TRUE(isSeen("capacity"));
}

TEST(PageBar, CutsItsSentenceBeforeItsControls) {
    PageBar bar;
    auto* selector = new SegmentedSelector(&bar);
    selector->setChoices({{"limits", "Limits only"}, {"cop", "COP"}, {"capacity", "Capacity"}});
    bar.add(selector, SegmentedSelector::ring);
    bar.setCaption("Show");
    const QString text = "TK-A-220, superheat 10 K, subcooling 5 K, and all that there is to say";
    bar.setSentence(text);
    auto* shown = bar.findChild<QLabel*>("sentence");
    bar.show();
    bar.resize(1200, bar.height());
    EXPECT_EQ(shown->text(), text);
    bar.resize(500, bar.height());
    EXPECT_EQ(bar.height(), WrapBar::lineHeight);
    EXPECT_EQ(selector->width(), selector->sizeHint().width());
    EXPECT_FALSE(shown->isHidden());
    EXPECT_NE(shown->text(), text);
    EXPECT_EQ(shown->toolTip(), text);
    EXPECT_FALSE(shown->geometry().intersects(selector->geometry()));
    bar.resize(200, bar.height());
    EXPECT_TRUE(shown->isHidden());
    EXPECT_LE(selector->geometry().right(), bar.width());
}

TEST_F(TagBoxTest, BackspaceTakesTheLastTagOffUntilTheBoxIsInvalid) {
    box.setChosen({"R513A", "R134A", "R22"});
    EXPECT_EQ(box.chosen(), (QStringList{"R134A", "R513A"}))
        << "in the order of the choices, those that there are";
    QTest::keyClick(&box, Qt::Key_Backspace);
    EXPECT_EQ(box.chosen(), QStringList{"R134A"});
    EXPECT_FALSE(box.isInvalid());
    QTest::keyClick(&box, Qt::Key_Backspace);
    QTest::keyClick(&box, Qt::Key_Backspace);
    EXPECT_TRUE(box.isInvalid());
    EXPECT_EQ(changes.count(), 2) << "without a tag there is nothing to take off";
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(&box)->state().invalid);
}

TEST_F(TagBoxTest, TheCrossOfATagTakesItOff) {
    box.setChosen({"R290", "R513A"});
    QTest::mouseClick(&box, Qt::LeftButton, {}, firstCross("R290"));
    EXPECT_EQ(box.chosen(), QStringList{"R513A"});
    EXPECT_EQ(changes.count(), 1);
    EXPECT_FALSE(box.isOpen());
}

TEST_F(TagBoxTest, TheListChecksWhatHasATagAndGivesBackWhatIsChecked) {
    box.setChosen({"R290"});
    QTest::keyClick(&box, Qt::Key_Down);
    ASSERT_TRUE(box.isOpen());
    EXPECT_EQ(list()->item(2)->checkState(), Qt::Checked);
    EXPECT_TRUE(list()->item(4)->data(Qt::AccessibleTextRole).toString().contains("A2L"));
    list()->setCurrentRow(4);
    QTest::keyClick(list(), Qt::Key_Space);
    QTest::keyClick(list(), Qt::Key_Return);
    EXPECT_EQ(box.chosen(), (QStringList{"R290", "R1234YF"}));
    box.open();
    for (const int row : {2, 4}) {
        list()->setCurrentRow(row);
        QTest::keyClick(list(), Qt::Key_Space);
    }
    QTest::keyClick(list(), Qt::Key_Return);
    EXPECT_TRUE(box.isInvalid()) << "nothing checked is nothing chosen here";
    box.open();
    list()->setCurrentRow(0);
    QTest::keyClick(list(), Qt::Key_Space);
    QTest::keyClick(list(), Qt::Key_Return);
    EXPECT_EQ(box.chosen().size(), 4) << "the row for all";
    box.open();
    list()->setCurrentRow(1);
    QTest::keyClick(list(), Qt::Key_Space);
    QTest::keyClick(list(), Qt::Key_Return);
    EXPECT_EQ(box.chosen(), QStringList{"R134A"}) << "of all, one click leaves one";
}

TEST_F(TagBoxTest, MoreTagsThanItHasLinesForAreCounted) {
    QStringList all;
    for (int i = 100; i < 126; ++i) all += QStringLiteral("R1234-%1").arg(i);
    box.setChoices(all);
    EXPECT_EQ(box.heightForWidth(374), 34);
    box.setChosen(all);
    EXPECT_EQ(box.heightForWidth(374), 34 + 2 * 26);
    EXPECT_EQ(box.chosen().size(), 26);
    EXPECT_EQ(box.heightForWidth(5000), 34) << "in a wide box all are on one line";
}

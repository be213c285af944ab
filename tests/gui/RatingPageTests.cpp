// The page Rating table of a selection, on the catalogue that is shipped.

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <nlohmann/json.hpp>

#include "controls/FilterChip.h"
#include "controls/Look.h"
#include "controls/NumberText.h"
#include "controls/PageBar.h"
#include "controls/RatingGrid.h"
#include "controls/SegmentedSelector.h"
#include "controls/ctlBtn.h"
#include "tests/gui/RealForm.h"
#include "tests/tools/CallProgram.h"
#include "workspace/ResultsPane.h"

using namespace marvello;

namespace {

using marvello::testing::control;

/// R134A, TK-A at 2/40 degrees Celsius with the page of the model 220.
class RatingPageTest : public ::testing::Test, public marvello::testing::RealForm {
  protected:
    RatingPageTest() : RealForm("en-EN") {
        choose("lstRefrigerants", "R134A");
        choose("lstSeries", "TK-A");
        calculate();
        EXPECT_TRUE(list()->selectKey(QStringLiteral("R134A-TK-A-010-220")) || selectModel("TK-A-220"));
        form->results().selectPage(QStringLiteral("rating"));
        wait();
    }

    bool selectModel(const QString& label) {
        for (int row = 0; row < list()->rowCount(); ++row)
            if (list()->text(row, 0) == label) {
                list()->selectRow(row);
                return true;
            }
        return false;
    }
    RatingGrid* grid() { return control<RatingGrid>(*form, "ratingGrid"); }
    const QAbstractItemModel& cells() { return *grid()->model(); }
    bool wait() {
        return QTest::qWaitFor([this] { return cells().rowCount() > 0; });
    }
    QStringList heads(Qt::Orientation orientation) {
        QStringList heads;
        const int count = orientation == Qt::Horizontal ? cells().columnCount() : cells().rowCount();
        for (int i = 0; i < count; ++i) heads += cells().headerData(i, orientation).toString();
        return heads;
    }
    QString cell(const QString& ted, const QString& tcd) { return at(ted, tcd).data().toString(); }
    QModelIndex at(const QString& ted, const QString& tcd) {
        return cells().index(static_cast<int>(heads(Qt::Vertical).indexOf(tcd)),
                             static_cast<int>(heads(Qt::Horizontal).indexOf(ted)));
    }
    void pick(const char* chip, const QString& text) {
        QTimer::singleShot(0, [&] {
            auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_TRUE(menu);
            for (QAction* entry : menu->actions())
                if (entry->text() == text) entry->trigger();
            menu->close();
        });
        control<FilterChip>(*form, chip)->click();
        QTest::qWait(1);
    }
    static QString clipboard() { return QApplication::clipboard()->text(); }
};

TEST_F(RatingPageTest, TheCornerHasRoomForItsTextInEveryLanguage) {
    for (const char* language : {"de-DE", "fr-FR", "it-IT", "es-ES", "cn-CN", "en-EN"}) {
        window->chooseLanguage(language);
        ASSERT_TRUE(wait());
        const auto* corner = control<QLabel>(*grid(), "corner");
        EXPECT_GE(corner->width(), corner->sizeHint().width()) << language;
    }
}

TEST_F(RatingPageTest, ACellIsWhatTheListShowsAtItsPoint) {
    EXPECT_EQ(heads(Qt::Horizontal),
              QStringList({"-15.0", "-10.0", "-5.0", "0.0", "2.0", "5.0", "10.0", "15.0"}));
    EXPECT_EQ(heads(Qt::Vertical).first(), "25.0");
    const QStringList figures{"capacity", "power", "cop", "current", "massFlow", "dischargeTemperature"};
    const QStringList columns{"Q0", "Pta", "COP", "CA", "mBase", "Tsca"};
    for (int i = 0; i < figures.size(); ++i) {
        auto* const selector = control<SegmentedSelector>(*form, "ratingFigure");
        ASSERT_TRUE(selector->setChosen(figures[i]));
        emit selector->chosenByUser(figures[i]);
        const auto column = list()->columnKeys().indexOf(columns[i]);
        ASSERT_GE(column, 0) << columns[i].toStdString();
        EXPECT_EQ(cell("2.0", "40.0"), list()->text(list()->selectedRow(), static_cast<int>(column)));
    }
    EXPECT_EQ(cell("15.0", "25.0"), "");
    EXPECT_EQ(at("15.0", "25.0").data(Qt::AccessibleTextRole), "outside the limits");
}

TEST_F(RatingPageTest, EnterTakesThePointAndKeepsWhereTheUserWas) {
    grid()->setFocus();
    grid()->setCurrentIndex(at("-5.0", "35.0"));
    QTest::keyClick(grid(), Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([this] { return field("txtTED")->number() == -5; }));
    ASSERT_TRUE(QTest::qWaitFor(
        [this] { return heads(Qt::Vertical).contains("35.0") && !heads(Qt::Horizontal).contains("2.0"); }));
    EXPECT_EQ(field("txtTCD")->number(), 35);
    EXPECT_EQ(list()->text(list()->selectedRow(), 0), "TK-A-220");
    EXPECT_TRUE(grid()->isVisible());
    EXPECT_TRUE(grid()->hasFocus()) << "so that the keys go on";
    EXPECT_EQ(grid()->currentIndex(), at("-5.0", "35.0"));
}

TEST_F(RatingPageTest, StepsFollowTheSystemOfUnits) {
    pick("ratingAcross", "T. E. Dew: 10 K");
    ASSERT_TRUE(QTest::qWaitFor([this] { return cells().columnCount() == 4; }));
    EXPECT_EQ(heads(Qt::Horizontal), QStringList({"-10.0", "0.0", "2.0", "10.0"}));
    const QString capacity = cell("0.0", "40.0");
    marvello::testing::field(*window, "cmbmeasureunits")->SetKey("1");
    ASSERT_TRUE(QTest::qWaitFor([this] { return heads(Qt::Vertical).contains("100.0"); }));
    EXPECT_EQ(heads(Qt::Horizontal), QStringList({"10.0", "20.0", "30.0", "35.6", "40.0", "50.0"}));
    EXPECT_EQ(heads(Qt::Vertical),
              QStringList({"80.0", "90.0", "100.0", "104.0", "110.0", "120.0", "130.0", "140.0"}));
    const auto column = list()->columnKeys().indexOf("Q0");
    EXPECT_EQ(cell("35.6", "104.0"), list()->text(list()->selectedRow(), static_cast<int>(column)));
    EXPECT_NE(cell("35.6", "104.0"), capacity);
}

TEST_F(RatingPageTest, CopyTakesTheTableOrTheSelectedCells) {
    control<ctlBtn>(*form, "ratingCopy")->click();
    QStringList lines = clipboard().split("\r\n", Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), cells().rowCount() + 1);
    EXPECT_EQ(lines[0], "T. C. Dew \u00B0C\t-15.0\t-10.0\t-5.0\t0.0\t2.0\t5.0\t10.0\t15.0");
    EXPECT_EQ(lines[1].split('\t').size(), 9);
    grid()->clearSelection();
    for (const char* ted : {"0.0", "2.0"})
        for (const char* tcd : {"35.0", "40.0"})
            grid()->selectionModel()->select(at(ted, tcd), QItemSelectionModel::Select);
    QTest::keyClick(grid(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), cell("0.0", "35.0") + '\t' + cell("2.0", "35.0") + "\r\n" + cell("0.0", "40.0") +
                               '\t' + cell("2.0", "40.0") + "\r\n");
}

TEST_F(RatingPageTest, AnErrorHasNoTable) {
    type("txtTCD", "75");
    calculate();
    ASSERT_TRUE(selectModel("TK-A-220"));
    form->results().selectPage(QStringLiteral("rating"));
    EXPECT_EQ(cells().rowCount(), 0);
    EXPECT_EQ(grid()->accessibleDescription(), "No values: see Messages");
    // Nothing of the headings is left, as the button in their corner.
    const QImage left = grid()->grab().toImage();
    for (int x = 0; x < left.width(); x += 3)
        for (int y = 0; y < grid()->horizontalHeader()->height(); y += 3)
            ASSERT_EQ(left.pixelColor(x, y), Look::current().surface) << x << ", " << y;
    EXPECT_FALSE(control<ctlBtn>(*form, "ratingCopy")->isVisible());
}

}  // namespace

// The page Part load of a selection, on the catalogue that is shipped.

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QTest>
#include <QTimer>

#include "controls/FilterChip.h"
#include "controls/PageBar.h"
#include "controls/SegmentedSelector.h"
#include "controls/ctlBtn.h"
#include "tests/gui/RealForm.h"
#include "workspace/PartLoadPage.h"
#include "workspace/ResultsPane.h"

using namespace marvello;

namespace {

using marvello::testing::control;

/// R134A, TK-A at 2/40 degrees Celsius with the page of the first model.
class PartLoadPageTest : public ::testing::Test, public marvello::testing::RealForm {
  protected:
    PartLoadPageTest() : RealForm("en-EN") {
        choose("lstRefrigerants", "R134A");
        choose("lstSeries", "TK-A");
        recalculate();
        EXPECT_TRUE(wait());
    }

    void recalculate() {
        calculate();
        list()->selectRow(list()->isGroup(0) ? 1 : 0);
        form->MnuPopUp("partload");
    }
    ResultsView* table() { return control<ResultsView>(*form, "lvPartLoad"); }
    bool wait() {
        return QTest::qWaitFor([this] { return table()->rowCount() > 0 && table()->isVisible(); });
    }
    int rowOf(const QString& label) {
        for (int row = 0; row < table()->rowCount(); ++row)
            if (table()->text(row, 0) == label) return row;
        return -1;
    }
    QString cell(const QString& label, const char* column) {
        const auto index = table()->columnKeys().indexOf(QLatin1String(column));
        const int row = rowOf(label);
        return row < 0 ? QString() : table()->text(row, static_cast<int>(index));
    }
    bool waitFor(const QString& label, const char* column, const QString& value) {
        return QTest::qWaitFor([&] { return cell(label, column) == value; });
    }
    QString listed(const char* column) {
        return list()->text(list()->selectedRow(),
                            static_cast<int>(list()->columnKeys().indexOf(QLatin1String(column))));
    }
    void chooseMode(const char* key) {
        auto* const modes = control<SegmentedSelector>(*form, "partLoadCondensing");
        ASSERT_TRUE(modes->setChosen(QLatin1String(key)));
        emit modes->chosenByUser(QLatin1String(key));
    }
    QString sentence() { return form->findChild<PartLoadPage*>()->findChild<PageBar*>()->sentence(); }
};

TEST_F(PartLoadPageTest, AStepIsWhatTheListShowsWithIt) {
    for (const char* step : {"75", "50"}) {
        choose("cmbStepCapacity", QLatin1String(step));
        recalculate();
        ASSERT_TRUE(wait());
        const QString label = QStringLiteral("Step %1 %").arg(QLatin1String(step));
        EXPECT_EQ(cell(label, "capacity"), listed("Q0"));
        EXPECT_EQ(cell(label, "power"), listed("Pta"));
        EXPECT_EQ(cell(label, "cop"), listed("COP"));
        EXPECT_EQ(cell(label, "current"), listed("CA"));
    }
    EXPECT_EQ(cell("Step 100 %", "load"), "100.0") << "whatever the step of the form";
    EXPECT_TRUE(sentence().startsWith("100 % is " + cell("Step 100 %", "capacity") + " kW"))
        << qPrintable(sentence());
    EXPECT_TRUE(cell("50 %", "sentence").startsWith("By turns: Step 75 % ("))
        << qPrintable(cell("50 %", "sentence"));
    EXPECT_EQ(cell("50 %", "current"), "-") << "a mean has none";
}

TEST_F(PartLoadPageTest, TheCondensingTemperatureFallsByTheFieldsOfTheRule) {
    EXPECT_EQ(cell("50 %", "tcd"), "40.0");
    EXPECT_FALSE(field("partLoadDifference")->isVisible());
    chooseMode("falling");
    ASSERT_TRUE(waitFor("50 %", "tcd", "34.0")) << "28 outdoors and half of 12 K";
    EXPECT_EQ(cell("100 %", "tcd"), "40.0");
    type("partLoadDifference", "20");
    ASSERT_TRUE(waitFor("50 %", "tcd", "30.0"));
    type("partLoadMinimum", "33");
    ASSERT_TRUE(waitFor("50 %", "tcd", "33.0"));
    type("partLoadMinimum", "200");
    QTest::qWait(300);
    EXPECT_TRUE(field("partLoadMinimum")->isInvalid());
    EXPECT_EQ(cell("50 %", "tcd"), "33.0") << "no rule of a value that the field does not take";
    type("partLoadMinimum", "25");
    ASSERT_TRUE(waitFor("50 %", "tcd", "30.0"));
    chooseMode("fixed");
    ASSERT_TRUE(waitFor("50 %", "tcd", "40.0"));
}

TEST_F(PartLoadPageTest, TheTabKeyGoesThroughTheBarToTheTable) {
    chooseMode("falling");
    for (auto* segment :
         control<SegmentedSelector>(*form, "partLoadCondensing")->findChildren<QAbstractButton*>())
        if (segment->isChecked()) segment->setFocus();
    QStringList way;
    for (int i = 0; i < 6; ++i) {
        QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
        const QWidget* at = form->focusWidget();
        while (at->objectName().isEmpty() || at->objectName().startsWith("qt_")) at = at->parentWidget();
        way += at->objectName();
    }
    EXPECT_EQ(way, QStringList({"partLoadDifference", "partLoadMinimum", "partLoadLosses", "partLoadCopy",
                                "partLoadExport", "lvPartLoad"}))
        << way.join(' ').toStdString();
}

TEST_F(PartLoadPageTest, ALossRaisesThePowerOfIntermittentRunning) {
    // At -10/40 the lowest step that is permitted has more than a quarter of the capacity.
    type("txtTED", "-10");
    recalculate();
    ASSERT_TRUE(wait());
    ASSERT_TRUE(cell("25 %", "sentence").startsWith("Intermittently: "))
        << qPrintable(cell("25 %", "sentence"));
    const double before = cell("25 %", "power").toDouble();
    QTimer::singleShot(0, [] {
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu);
        for (QAction* entry : menu->actions())
            if (entry->objectName() == "partLoadLoss_chiller") entry->trigger();
        menu->close();
    });
    control<FilterChip>(*form, "partLoadLosses")->click();
    ASSERT_TRUE(QTest::qWaitFor([&] { return cell("25 %", "power").toDouble() > before; }));
}

TEST_F(PartLoadPageTest, ACompressorWithoutCapacitySaysWhereToLook) {
    type("txtTCD", "80");
    recalculate();
    ASSERT_TRUE(
        QTest::qWaitFor([this] { return table()->accessibleDescription() == "No values: see Messages"; }));
    EXPECT_EQ(table()->rowCount(), 0);
    EXPECT_FALSE(control<QWidget>(*form, "picPartLoad")->isVisible());
    EXPECT_FALSE(control<ctlBtn>(*form, "partLoadCopy")->isEnabled());
}

TEST_F(PartLoadPageTest, TheTableOfTheFormerCompressorGoesAtOnce) {
    const QString former = cell("Step 100 %", "capacity");
    list()->selectRow(list()->selectedRow() + 1);
    EXPECT_EQ(table()->rowCount(), 0) << "before the new one is calculated";
    EXPECT_FALSE(control<ctlBtn>(*form, "partLoadCopy")->isEnabled());
    ASSERT_TRUE(wait());
    EXPECT_NE(cell("Step 100 %", "capacity"), former);
}

TEST_F(PartLoadPageTest, IsCopiedAndFollowsUnitsAndLanguages) {
    control<ctlBtn>(*form, "partLoadCopy")->click();
    const QStringList lines = QApplication::clipboard()->text().split("\r\n", Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 9) << "heading, four steps and four shares";
    EXPECT_EQ(lines[1].section('\t', 0, 1), "Step 100 %\t100.0");
    EXPECT_TRUE(lines[0].contains("T. C. Dew(°C)"));
    form->MeasureUnits(1, true);
    ASSERT_TRUE(waitFor("50 %", "tcd", "104.0"));
    window->chooseLanguage("de-DE");
    ASSERT_TRUE(wait());
    EXPECT_GE(rowOf("Stufe 75 %"), 0);
    EXPECT_TRUE(cell("50 %", "sentence").startsWith("Im Wechsel: "));
}

}  // namespace

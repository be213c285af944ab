// The page with the cycle of a compressor: mouse, keys, units and what is copied.

#include <QClipboard>
#include <QLabel>
#include <QMimeData>
#include <QWheelEvent>

#include "controls/CoreText.h"
#include "data/Session.h"
#include "tests/workspace/WorkspaceFixture.h"
#include "thermo/clsRefprop.h"
#include "workspace/CycleDiagram.h"
#include "workspace/frmSelection.h"

using namespace marvello;
using namespace marvello::testing;

namespace {

/// The cycle of the compressor TK-A-100 at 2/40 degrees Celsius, in row 1; 120 in row 2 has an error.
class CyclePageTest : public FormFixture<frmSelection> {
  protected:
    CyclePageTest() {
        open(1500);
        choose(*form, "lstSeries", "TK-A");
        form->lnkCalculate_Click();
        form->MnuPopUp("cycle");
        list()->selectRow(1);
        QApplication::processEvents();
    }

    ResultsView* states() { return control<ResultsView>(*form, "lvStates"); }
    CycleDiagram* diagram() { return control<CycleDiagram>(*form, "picCycle"); }
    /// Where a state is drawn as long as all is shown.
    QPoint placeOf(int row) {
        const PhPlane plane(phRangeOf(GetRefprop("R134A")), diagram()->width(), diagram()->height());
        const DrawnPoint place =
            plane.placeOf({states()->text(row, 3).toDouble(), states()->text(row, 2).toDouble()});
        return QPointF(place.x, place.y).toPoint();
    }
    void turnWheel(const QPoint& at, int turns) {
        QWheelEvent event(at, diagram()->mapToGlobal(at), {}, {0, 120 * turns}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(diagram(), &event);
    }
    /// The numbers at the axes of what is shown.
    QStringList ticks() {
        QStringList texts;
        for (const auto& shape : diagram()->onPaper().shapes)
            if (const auto* text = std::get_if<DrawnText>(&shape)) texts += fromCore(text->text);
        return texts;
    }
};

}  // namespace

TEST_F(CyclePageTest, ARowAndItsPointChooseOneAnother) {
    ASSERT_EQ(states()->rowCount(), 6);
    EXPECT_EQ(states()->text(0, 1), "12.0");
    for (const int row : {3, 0, 5}) {
        QTest::mouseClick(diagram(), Qt::LeftButton, {}, placeOf(row));
        EXPECT_EQ(states()->selectedRow(), row);
        EXPECT_TRUE(diagram()->accessibleDescription().startsWith(QString::number(row + 1)));
    }
    // The keys go round, in the table and in the diagram.
    states()->setFocus();
    QTest::keyClick(states(), Qt::Key_Down);
    EXPECT_EQ(states()->selectedRow(), 0);
    QTest::keyClick(states(), Qt::Key_Up);
    EXPECT_EQ(states()->selectedRow(), 5);
    QTest::keyClick(diagram(), Qt::Key_Right);
    EXPECT_EQ(states()->selectedRow(), 0);
    QTest::keyClick(diagram(), Qt::Key_Left);
    EXPECT_EQ(states()->selectedRow(), 5);
}

TEST_F(CyclePageTest, TheWheelShowsAPartAndADoubleClickAllOfIt) {
    const QStringList whole = ticks();
    const QPoint bubble = placeOf(3);
    turnWheel(bubble, 6);
    EXPECT_NE(ticks(), whole);
    QTest::mouseClick(diagram(), Qt::LeftButton, {}, bubble);
    EXPECT_EQ(states()->selectedRow(), 3) << "what is under the mouse stays there";
    turnWheel(bubble, -20);
    EXPECT_EQ(ticks(), whole) << "no smaller than all of it";
    turnWheel(bubble, 3);
    QTest::mouseDClick(diagram(), Qt::LeftButton, {}, bubble);
    EXPECT_EQ(ticks(), whole);
}

TEST_F(CyclePageTest, TheMouseReadsAnyPlace) {
    const auto* reading = control<QLabel>(*form, "lblState");
    QTest::mouseMove(diagram(), placeOf(0));
    EXPECT_TRUE(reading->isVisible());
    EXPECT_TRUE(reading->text().startsWith("1 Suction\np 3.15 bar abs")) << reading->text().toStdString();
    QTest::mouseMove(diagram(), (placeOf(2) + placeOf(3)) / 2);
    EXPECT_TRUE(reading->text().contains("x 0.5")) << reading->text().toStdString();
    QTest::mouseMove(diagram(), QPoint(5, 5));
    EXPECT_FALSE(reading->isVisible()) << "outside of the axes";
}

TEST_F(CyclePageTest, FollowsUnitsAndCopies) {
    states()->setFocus();
    QTest::keyClick(states(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QApplication::clipboard()->text().contains("kJ/kg"));
    EXPECT_EQ(QApplication::clipboard()->text().count("\n"), 1 + 6 + 1 + 10);
    form->MeasureUnits(1, true);
    list()->selectRow(1);
    QApplication::processEvents();
    EXPECT_EQ(states()->columnTexts().at(3), "h(Btu/lb)");
    EXPECT_EQ(states()->text(0, 1), "53.6");
    EXPECT_TRUE(ticks().contains("Specific enthalpy Btu/lb"));
}

TEST_F(CyclePageTest, ACompressorWithoutValuesHasASentence) {
    list()->selectRow(2);
    QApplication::processEvents();
    EXPECT_FALSE(diagram()->isVisible());
    bool isSaid = false;
    for (const auto* label : form->findChildren<QLabel*>())
        isSaid = isSaid || (label->isVisible() && label->text() == "No values: see Messages");
    EXPECT_TRUE(isSaid);
    list()->selectRow(1);
    EXPECT_TRUE(diagram()->isVisible());
}

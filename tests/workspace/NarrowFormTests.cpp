// A form with less room than inputs and results need next to each other.

#include "controls/Splitter.h"
#include "controls/ctlBtn.h"
#include "tests/workspace/WorkspaceFixture.h"
#include "workspace/InputSummary.h"
#include "workspace/frmSelection.h"

using namespace marvello;
using namespace marvello::testing;

namespace {

class NarrowFormTest : public FormFixture<frmSelection> {
  protected:
    NarrowFormTest() { open(500); }
    QWidget* inputs() { return control<QWidget>(*form, "Frame1"); }
    InputSummary* summary() { return control<InputSummary>(*form, "inputSummary"); }
    void press(const char* button) {
        QTest::mouseClick(control<ctlBtn>(*form, button), Qt::LeftButton);
        QApplication::processEvents();
    }
    void resize(int width, int height) {
        form->resize(width, height);
        QApplication::processEvents();
    }
    /// True if the whole widget can be seen in the form.
    bool isInSight(const QWidget& widget) {
        return widget.isVisible() &&
               widget.visibleRegion().boundingRect().contains(widget.rect().adjusted(4, 4, -4, -4));
    }
};

}  // namespace

TEST_F(NarrowFormTest, TheInputsFoldBelowTheListAndOpenOverIt) {
    choose(*form, "lstSeries", "TK-A");
    EXPECT_TRUE(inputs()->isVisible());  // there is nothing else to do yet
    calculate();
    ASSERT_TRUE(form->hasResults());
    EXPECT_FALSE(inputs()->isVisible());
    EXPECT_EQ(list()->width(), 500);
    for (const char* const part : {"R134A", "TK-A", "2.00 / 40.00 °C", "SH 10.00 K", "400 V / 50 Hz"})
        EXPECT_TRUE(summary()->accessibleDescription().contains(part)) << part;
    form->MeasureUnits(1, true);
    EXPECT_TRUE(summary()->accessibleDescription().contains("35.60 / 104.00 °F"));
    form->MeasureUnits(0, true);

    press("btnEditInputs");
    EXPECT_TRUE(inputs()->isVisible());
    EXPECT_TRUE(inputs()->isAncestorOf(form->focusWidget()));
    EXPECT_TRUE(form->hasResults());
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, {450, 100});
    EXPECT_FALSE(inputs()->isVisible());

    press("btnEditInputs");
    QTest::keyClick(form->focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(inputs()->isVisible());

    form->CloseFrame(false);
    type(*form, "txtTED", "5");
    EXPECT_FALSE(form->hasResults());  // as ever when an input changes
    EXPECT_TRUE(inputs()->isVisible());
    press("btnCalculate");
    EXPECT_TRUE(form->hasResults());
    EXPECT_FALSE(inputs()->isVisible());
}

TEST_F(NarrowFormTest, InputsAndTheirFocusComeBackWithTheRoom) {
    form->setSizes({450, form->sizes().listHeights});
    field(*form, "txtTCD")->setFocus();
    for (const int width : {1200, 500, 879, 880}) {
        resize(width, 700);
        EXPECT_EQ(inputs()->parentWidget() == form.get(), width < 880) << width;
        EXPECT_TRUE(isInSight(*field(*form, "txtTCD"))) << width;
        EXPECT_TRUE(form->focusWidget() && field(*form, "txtTCD")->isAncestorOf(form->focusWidget()))
            << width;
        EXPECT_EQ(form->sizes().panelWidth, 450) << width;
    }
    EXPECT_EQ(inputs()->width(), 450);
    form->CloseFrame(true);
    EXPECT_EQ(inputs()->width(), 0);
    resize(500, 700);
    resize(1200, 700);
    EXPECT_TRUE(form->isCollapsed());
    form->CloseFrame(false);
    EXPECT_EQ(inputs()->width(), 450);
}

TEST_F(NarrowFormTest, CalculateStaysInSightInALowForm) {
    for (const int width : {400, 1200}) {
        resize(width, 300);
        EXPECT_TRUE(isInSight(*control<ctlBtn>(*form, "lnkCalculate"))) << width;
    }
}

// The selection form, driven by keys as a user drives it.

#include <QAbstractButton>
#include <QLabel>
#include <QTimer>

#include "controls/FieldNote.h"
#include "controls/Marks.h"
#include "controls/MessagesView.h"
#include "controls/ctlBtn.h"
#include "data/Session.h"
#include "tests/workspace/WorkspaceFixture.h"
#include "thermo/clsRefprop.h"
#include "workspace/ResultsPane.h"
#include "workspace/frmSelection.h"

using namespace marvello;
using namespace marvello::testing;

namespace {

class SelectionFormTest : public FormFixture<frmSelection> {
  protected:
    SelectionFormTest() { open(); }
    double value(const char* name) { return field(*form, name)->number(); }
    QString text(const char* name) { return field(*form, name)->TextText(); }
    void leave() {
        QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
        QApplication::processEvents();
    }
};

}  // namespace

TEST_F(SelectionFormTest, OpensWithTheToldDefaultsAndTheTabKeyWalksThePairInUse) {
    EXPECT_EQ(text("lstRefrigerants"), "R134A");
    EXPECT_EQ(field(*form, "lstSeries")->Key(), "DZ1");  // the first row's series, in the order of its key
    EXPECT_EQ(text("lstModels"), "ALL");
    EXPECT_EQ(text("txtTED"), "2.00");
    EXPECT_EQ(text("txtTCD"), "40.00");
    EXPECT_EQ(text("txtSH"), "10.00");
    EXPECT_EQ(text("txtSC"), "5.00");
    EXPECT_EQ(text("cmbSh"), "Superheat");
    EXPECT_EQ(text("cmbMotorVoltage"), "400 V / 50 Hz");
    EXPECT_NEAR(value("txtPE"), 3.146, 0.003);  // R134a at 2 degrees Celsius
    EXPECT_NEAR(value("txtPC"), 10.166, 0.005);
    EXPECT_TRUE(field(*form, "txtTEM")->isHidden());
    EXPECT_TRUE(field(*form, "txtEco")->isHidden());
    EXPECT_TRUE(boxes.isEmpty()) << boxes.join("|").toStdString();
    EXPECT_FALSE(form->hasResults());
    field(*form, "txtTED")->setFocus();
    QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(field(*form, "txtTCD")->hasFocus());
    field(*form, "txtPE")->setFocus();
    QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(field(*form, "txtPC")->hasFocus());
}

TEST_F(SelectionFormTest, TypingAPressureSetsTheTemperatureAndSwapsTheRoles) {
    EXPECT_TRUE(field(*form, "txtPE")->Derived());
    type(*form, "txtPE", "2,006");
    EXPECT_NEAR(value("txtTED"), -10, 0.02);
    EXPECT_FALSE(field(*form, "txtPE")->Derived());
    EXPECT_TRUE(field(*form, "txtTED")->Derived());
    type(*form, "txtTED", "-");
    EXPECT_NEAR(value("txtPE"), 2.006, 1e-9) << "half a number leads nothing";
    QTest::keyClicks(form->focusWidget(), "5");
    EXPECT_NEAR(value("txtPE"), 2.434, 0.003);  // R134a at -5 degrees Celsius
    type(*form, "txtPC", "11.6");
    EXPECT_NEAR(value("txtTCD"), 45, 0.02);
}

TEST_F(SelectionFormTest, AValueBeyondTheFluidIsRefusedInItsFieldAndSaidOnce) {
    type(*form, "txtTCD", "150");  // R134a has its critical point at 101 degrees Celsius
    EXPECT_TRUE(boxes.isEmpty()) << "typing opens no box";
    EXPECT_TRUE(field(*form, "txtTCD")->isInvalid());
    EXPECT_FALSE(field(*form, "txtTCD")->complaint().isEmpty());
    EXPECT_TRUE(field(*form, "txtPC")->isUnknown());
    calculate();
    EXPECT_EQ(boxes.size(), 1);
    EXPECT_FALSE(form->hasResults());
    field(*form, "txtPC")->setFocus();
    field(*form, "txtSC")->setFocus();
    EXPECT_EQ(boxes.size(), 1) << "the unknown pressure is no fault of its own";
    type(*form, "txtTCD", "40");
    EXPECT_FALSE(field(*form, "txtTCD")->isInvalid());
    EXPECT_NEAR(value("txtPC"), 10.166, 0.005);
    type(*form, "txtPE", "60");
    EXPECT_TRUE(field(*form, "txtTED")->isUnknown());
    type(*form, "txtPE", "2.006");
    EXPECT_NEAR(value("txtTED"), -10, 0.02);
    calculate();
    EXPECT_TRUE(form->hasResults());
}

TEST_F(SelectionFormTest, OffersEachMarketOfASeriesAndItsModels) {
    EXPECT_TRUE(
        field(*form, "lstSeries")->Tag1().startsWith("DZ1|DZ European market;DZ2|DZ Far East market"));
    EXPECT_EQ(field(*form, "lstModels")->Tag1(), "*|ALL;0|0;1|1");
    choose(*form, "lstSeries", "DZ2");
    EXPECT_EQ(field(*form, "lstModels")->Tag1(), "*|ALL;0|0;2|2");
    choose(*form, "lstSeries", "TK-A");
    EXPECT_EQ(field(*form, "lstModels")->Tag1(), "*|ALL;100|100;120|120;140|140");
}

TEST_F(SelectionFormTest, AChangeOfRefrigerantKeepsASeriesThatIsStillThere) {
    choose(*form, "lstSeries", "TK-A");
    choose(*form, "lstRefrigerants", "R290");
    EXPECT_EQ(field(*form, "lstSeries")->Key(), "TK-A");
    EXPECT_NEAR(value("txtPE"), 5.05, 0.03);  // propane at 2 degrees Celsius
    choose(*form, "lstSeries", "NL-H");
    choose(*form, "lstRefrigerants", "R134A");
    EXPECT_EQ(field(*form, "lstSeries")->Key(), "DZ1");
}

TEST_F(SelectionFormTest, TheListOfRefrigerantsHasTheirFactsAndTheFieldTheNameAlone) {
    catalogue.exec(
        "insert into tRefrigerantFacts(fRefrigeranteId,fSafetyClass,fGwpAr4,fGwpAr6,fBoilingPoint) "
        "values('R290','A3',3,0.02,-42.11)");
    auto* refrigerant = field(*form, "lstRefrigerants");
    QTest::keyClick(refrigerant->findChild<QLineEdit*>(), Qt::Key_Down);
    auto* rows = QApplication::activePopupWidget()->findChild<QListWidget*>();
    EXPECT_EQ(rows->item(0)->data(Qt::AccessibleTextRole).toString(), "R134A, -");
    EXPECT_EQ(rows->item(0)->toolTip(), "");
    EXPECT_EQ(rows->item(1)->data(Qt::AccessibleTextRole).toString(), "R290, A3 · GWP 3");
    EXPECT_TRUE(rows->item(1)->toolTip().contains("3 / - / 0.02"));
    EXPECT_TRUE(rows->item(1)->toolTip().contains("-42.1 °C"));
    QTest::keyClicks(rows, "R29");
    QTest::keyClick(rows, Qt::Key_Return);
    EXPECT_EQ(text("lstRefrigerants"), "R290");
    // The one list serves the other fields as well.
    QTest::keyClick(field(*form, "lstSeries")->findChild<QLineEdit*>(), Qt::Key_Down);
    EXPECT_TRUE(rows->item(0)->toolTip().isEmpty());
    QTest::keyClick(rows, Qt::Key_Escape);
}

TEST_F(SelectionFormTest, SwitchesSelectorsOffAtTheirNeutralKeys) {
    choose(*form, "lstSeries", "TK-A");
    EXPECT_TRUE(field(*form, "cmbMotorSize")->isEnabled());
    EXPECT_FALSE(field(*form, "cmbMotorRPM")->isEnabled());
    choose(*form, "cmbStepCapacity", "75");
    choose(*form, "cmbOilCooling", "2");
    EXPECT_FALSE(field(*form, "txtOilCooling")->isHidden());
    choose(*form, "lstSeries", "MV-H");
    EXPECT_EQ(field(*form, "cmbStepCapacity")->Key(), "100");
    EXPECT_EQ(text("cmbStepCapacity"), "100%");
    EXPECT_FALSE(field(*form, "cmbStepCapacity")->isEnabled());
    EXPECT_TRUE(field(*form, "txtOilCooling")->isHidden());
    EXPECT_TRUE(field(*form, "cmbMotorVoltage")->isEnabled());
}

TEST_F(SelectionFormTest, ValuesOutOfRangeAreReplacedOnLeaving) {
    type(*form, "txtSH", "25");
    leave();
    EXPECT_EQ(value("txtSH"), 10);
    EXPECT_EQ(boxes, QStringList("SuperHeat value out of range. The default value has been set instead."));
    choose(*form, "cmbSh", "1");
    EXPECT_EQ(boxes.size(), 1) << "a change of mode corrects in silence";
    EXPECT_EQ(value("txtSH"), 10);  // between 2 and 22
    EXPECT_EQ(field(*form, "txtSH")->UnitCaptiontext().trimmed(), QString::fromUtf8("°C"));
    type(*form, "txtSC", "-3");
    leave();
    EXPECT_EQ(text("txtSC"), "3.00");
}

TEST_F(SelectionFormTest, AValueOutOfItsRangeIsSaidBesideItsField) {
    type(*form, "txtSH", "25");
    const auto* note = form->findChild<FieldNote*>();
    ASSERT_NE(note, nullptr);
    EXPECT_TRUE(note->isVisible());
    EXPECT_EQ(note->text(), "Permitted: 0 to 20 K");
    const AdvanceText* superheat = field(*form, "txtSH");
    EXPECT_TRUE(superheat->isInvalid());
    const QRect box(superheat->mapTo(form.get(), QPoint()), superheat->size());
    EXPECT_GT(note->x(), box.right()) << "no other input is hidden";
    EXPECT_TRUE(box.contains(QPoint(box.center().x(), note->geometry().center().y())));
    type(*form, "txtSH", "20");
    EXPECT_FALSE(note->isVisible());
    EXPECT_FALSE(superheat->isInvalid());

    // A suction temperature has its range above the evaporating temperature of 2.
    choose(*form, "cmbSh", "1");
    type(*form, "txtSH", "1.5");
    EXPECT_EQ(superheat->complaint(), QString::fromUtf8("Permitted: 2 to 22 °C"));
    type(*form, "txtTED", "-20");
    EXPECT_TRUE(superheat->isInvalid()) << "replaced on leaving by 12, which is above the new range";
    type(*form, "txtTED", "-5");
    EXPECT_FALSE(superheat->isInvalid());
}

TEST_F(SelectionFormTest, F5ListsEveryModelWithItsMark) {
    choose(*form, "lstSeries", "TK-A");
    calculate();
    ASSERT_TRUE(boxes.isEmpty()) << boxes.join("|").toStdString();
    ASSERT_TRUE(form->hasResults());
    ASSERT_EQ(list()->rowCount(), 4);
    EXPECT_TRUE(list()->isGroup(0));
    EXPECT_EQ(list()->text(0, 0), "R134A");
    EXPECT_EQ(list()->text(1, 0), "TK-A-100");
    EXPECT_EQ(list()->mark(2), mark::notPossible);
    EXPECT_EQ(list()->text(2, 1).trimmed(), "") << "a model in error has no values";
    // The reference surface gives 100 + 3*2 - 1.2*40 + 0.03*4 - 0.02*80 + 0.002*1600 + 0.0002*8 - 0.0001*160
    //   + 0.00005*3200 - 0.00001*64000 = 59.2 kW at 10 K superheat and 5 K subcooling, the point of the form.
    EXPECT_EQ(list()->columnKeys()[1], "Q0");
    EXPECT_NEAR(list()->text(1, 1).toDouble(), 59.2, 0.051);
    EXPECT_NE(list()->text(3, 2), "-");
    EXPECT_EQ(list()->selectedRow(), 1);
    EXPECT_EQ(form->results().countOf(Verdict::notPossible), 1);

    // The messages follow the selected row.
    auto* messages = control<MessagesView>(*form, "lvMessages");
    QTest::keyClick(list(), Qt::Key_Down);
    ASSERT_EQ(list()->selectedRow(), 2);
    ASSERT_GE(messages->count(), 1);
    EXPECT_EQ(messages->tag(0), "messages.message01");
    EXPECT_EQ(messages->mark(0), mark::error);
    list()->selectRow(0);
    EXPECT_EQ(messages->count(), 0);

    form->populateLVCPS(1);  // grouped by compressor
    ASSERT_EQ(list()->rowCount(), 6);
    EXPECT_EQ(list()->text(0, 0), "TK-A-100");
    EXPECT_EQ(list()->text(1, 0), "R134A");
}

TEST_F(SelectionFormTest, AChangedInputDiscardsTheResults) {
    choose(*form, "lstSeries", "TK-A");
    calculate();
    ASSERT_TRUE(form->hasResults());
    type(*form, "txtTED", "0");
    EXPECT_FALSE(form->hasResults());
    EXPECT_EQ(list()->rowCount(), 0);
    const auto why = [this] { return control<QWidget>(*form, "frame2")->accessibleName(); };
    EXPECT_TRUE(why().contains("when T. E. Dew was edited")) << why().toStdString();
    calculate();
    ASSERT_TRUE(form->hasResults());
    choose(*form, "cmbOilCooling", "0");
    EXPECT_FALSE(form->hasResults());
    EXPECT_TRUE(why().contains("when Oil Cooling was edited")) << why().toStdString();
    field(*form, "lstModels")->SetKey("100;140");  // chosen models alone
    calculate();
    EXPECT_EQ(list()->rowCount(), 3);
}

TEST_F(SelectionFormTest, NoRunStartsWithATextThatIsNoNumber) {
    type(*form, "txtTCD", "4o");
    calculate();
    EXPECT_FALSE(form->hasResults());
    EXPECT_EQ(boxes, QStringList("Error. Only Numeric value"));
    EXPECT_TRUE(field(*form, "txtTCD")->hasFocus());
}

TEST_F(SelectionFormTest, AnAbortedRunKeepsTheFormUsable) {
    choose(*form, "lstSeries", "TK-A");
    QTimer::singleShot(0, form.get(), [] {
        auto* dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        auto* abort = dialog->findChild<ctlBtn*>("btnAbort");
        QTest::mouseClick(abort, Qt::LeftButton);
        EXPECT_FALSE(abort->isEnabled());
    });
    calculate();
    EXPECT_TRUE(boxes.isEmpty()) << boxes.join("|").toStdString();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    calculate();
    EXPECT_EQ(list()->rowCount(), 4);
}

TEST_F(SelectionFormTest, FieldsTakeOtherUnitsAndSums) {
    const double pressure = value("txtPC");
    type(*form, "txtTCD", "104 F");
    EXPECT_EQ(form->findChild<FieldNote*>()->text(), QString::fromUtf8("104 F = 40.00 °C"));
    EXPECT_FALSE(field(*form, "txtTCD")->isInvalid());
    QTest::keyClick(form->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(text("txtTCD"), "40.00");
    EXPECT_NEAR(value("txtPC"), pressure, 1e-9);

    type(*form, "txtPE", "1.00 bar g");  // 2.01325 bar: R134a at -9.93 degrees Celsius
    EXPECT_NEAR(value("txtTED"), -26.4, 0.1) << "waits since \"1.00\", which is R134a at 1 bar";
    leave();
    EXPECT_EQ(text("txtPE"), "2.01");
    EXPECT_NEAR(value("txtTED"), -9.93, 0.05);
    EXPECT_TRUE(field(*form, "txtTED")->Derived());

    type(*form, "txtSC", "9 F");
    choose(*form, "lstSeries", "TK-A");
    EXPECT_EQ(text("txtSC"), "5.00");
    type(*form, "txtSH", "36 F+1");  // a sum stands in front of its unit
    EXPECT_TRUE(field(*form, "txtSH")->isInvalid());
    type(*form, "txtSH", "2+6");
    calculate();
    EXPECT_EQ(text("txtSH"), "8.00");
    EXPECT_TRUE(form->hasResults());

    choose(*form, "cmbEco", "2");
    type(*form, "txtEco", "12 TR");
    EXPECT_TRUE(field(*form, "txtEco")->isInvalid());
    leave();
    EXPECT_EQ(boxes, QStringList("Error. Only Numeric value"));
    type(*form, "txtEco", "12");
    leave();
}

TEST_F(SelectionFormTest, TheCheckOfAFieldSwallowsNoClick) {
    type(*form, "txtSH", "25");
    QWidget* calculate = control<QWidget>(*form, "lnkCalculate");
    const QPoint place = calculate->mapTo(form.get(), calculate->rect().center());
    QTest::mousePress(form->windowHandle(), Qt::LeftButton, {}, place);
    QTest::qWait(50);
    EXPECT_TRUE(boxes.isEmpty()) << "the button is still down";
    EXPECT_TRUE(qobject_cast<QAbstractButton*>(calculate)->isDown());
    QTest::mouseRelease(form->windowHandle(), Qt::LeftButton, {}, place);
    QTest::qWait(50);
    EXPECT_EQ(boxes.size(), 1);
    EXPECT_EQ(value("txtSH"), 10);
    EXPECT_TRUE(form->hasResults());
}

TEST_F(SelectionFormTest, AChangeOfTheUnitsTakesFirstWhatWasTyped) {
    type(*form, "txtTED", "1+1");
    form->MeasureUnits(1, true);
    EXPECT_EQ(text("txtTED"), "35.60");
    type(*form, "txtTED", "5 C");
    calculate();
    EXPECT_EQ(text("txtTED"), "41.00");
    type(*form, "txtPC", "145 psig");
    leave();
    EXPECT_EQ(text("txtPC"), "159.70");  // 145 + 14.696
}

TEST_F(SelectionFormTest, TheFirstPossibleCompressorIsSelected) {
    choose(*form, "lstSeries", "TK-A");
    field(*form, "lstModels")->SetKey("120;140");
    calculate();
    ASSERT_EQ(list()->mark(1), mark::notPossible);
    ASSERT_NE(list()->mark(2), mark::notPossible);
    EXPECT_EQ(list()->selectedRow(), 2);
    field(*form, "lstModels")->SetKey("120");
    calculate();
    EXPECT_EQ(list()->selectedRow(), 1) << "its messages say why";
}

TEST_F(SelectionFormTest, SaysWhenNothingMatches) {
    field(*form, "lstModels")->SetKey("no such model");
    calculate();
    EXPECT_FALSE(form->hasResults());
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_FALSE(boxes[0].startsWith("messages."));
}

TEST_F(SelectionFormTest, AMissingFluidFolderIsOneSentenceAndNoCrash) {
    QTemporaryDir empty;
    catalogue.session.applicationFolder = empty.path().toStdString();
    calculate();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_FALSE(boxes[0].isEmpty());
    EXPECT_FALSE(form->hasResults());
    type(*form, "txtTED", "3");
    EXPECT_EQ(boxes.size(), 1) << "typing reports nothing";
    EXPECT_TRUE(field(*form, "txtPE")->isUnknown()) << "no pressure of another fluid stays";
    catalogue.session.applicationFolder = MARVELLO_APP_FOLDER;
    calculate();
    EXPECT_EQ(boxes.size(), 1) << "the mended folder is seen without typing again";
    EXPECT_TRUE(form->hasResults());
}

TEST_F(SelectionFormTest, FollowsTheLanguageWithItsResults) {
    choose(*form, "lstSeries", "TK-A");
    calculate();
    list()->selectRow(2);
    gApplication().populateDictionary("en-EN", "it-IT");
    form->Traduci();
    EXPECT_TRUE(form->hasResults());
    EXPECT_EQ(list()->selectedRow(), 2);
    EXPECT_EQ(field(*form, "lstRefrigerants")->CaptionText(), "Refrigerante");
    EXPECT_NE(text("cmbSh"), "Superheat");
    EXPECT_EQ(control<MessagesView>(*form, "lvMessages")->item(0)->text().left(8), "Il punto");
}

TEST_F(SelectionFormTest, ShowsTheSamePointInTheImperialSystem) {
    choose(*form, "lstSeries", "TK-A");
    calculate();
    const double metric = list()->text(1, 1).toDouble();
    form->MeasureUnits(1, true);
    EXPECT_EQ(text("txtTED"), "35.60");  // 2 * 1.8 + 32
    EXPECT_EQ(text("txtTCD"), "104.00");
    EXPECT_EQ(text("txtSH"), "18.00");
    EXPECT_EQ(text("txtSC"), "9.00");
    EXPECT_EQ(text("txtOilCooling"), "230.00");
    EXPECT_NEAR(value("txtPE"), 45.63, 0.05);  // 3.146 bar / 0.0689476
    EXPECT_EQ(field(*form, "txtPE")->UnitCaptiontext().trimmed(), "psia");
    EXPECT_TRUE(form->hasResults());
    EXPECT_EQ(list()->columnKeys()[2], "Q0Btu");
    EXPECT_NEAR(list()->text(1, 1).toDouble(), metric / 3.517, 0.051 + 0.05 / 3.517);
    EXPECT_TRUE(list()->columnTexts()[1].endsWith("(Tons)"));
    type(*form, "txtSH", "36.5");  // beyond 36, replaced by 18
    leave();
    EXPECT_EQ(value("txtSH"), 18);
    boxes.clear();
    calculate();
    form->MeasureUnits(0, true);
    EXPECT_NEAR(list()->text(1, 1).toDouble(), metric, 1e-9) << "the run in imperial values is the same run";
    EXPECT_EQ(text("txtTED"), "2.00");
    EXPECT_EQ(text("txtSH"), "10.00");
}

TEST_F(SelectionFormTest, TheWholeHelpOfTheFieldInUseComesWithItsKey) {
    field(*form, "cmbEco")->setFocus();
    QTest::keyClick(form->focusWidget(), Qt::Key_F1);
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_TRUE(boxes[0].startsWith("Economiser\nEconomiser: none"));
    // The models have no help.
    field(*form, "lstModels")->setFocus();
    QTest::keyClick(form->focusWidget(), Qt::Key_F1);
    EXPECT_EQ(boxes.size(), 1);
}

// What a person does with one form or two, on the catalogue that is shipped.

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMap>
#include <QSet>
#include <QTest>

#include "controls/AdvanceText.h"
#include "controls/Link.h"
#include "controls/MessagesView.h"
#include "controls/ResultsView.h"
#include "tests/gui/RealWindow.h"
#include "workspace/SelectionForm.h"

using namespace marvello;

namespace {

class FormTest : public ::testing::Test, public marvello::testing::RealWindow {
  protected:
    FormTest() : RealWindow("en-EN"), form(window->newSelection()) {
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    AdvanceText* field(const char* name) { return form->findChild<AdvanceText*>(QLatin1String(name)); }
    ResultsView* list() { return form->findChild<ResultsView*>(QStringLiteral("lvCps")); }

    void choose(const char* name, const QString& key) {
        QTest::keyClick(field(name)->findChild<QLineEdit*>(), Qt::Key_Down);
        QWidget* popup = QApplication::activePopupWidget();
        ASSERT_NE(popup, nullptr) << name;
        auto* rows = popup->findChild<QListWidget*>();
        for (int row = 0; row < rows->count(); ++row)
            if (rows->item(row)->data(Qt::UserRole).toString() == u'@' + key) rows->setCurrentRow(row);
        QTest::keyClick(rows, Qt::Key_Return);
        EXPECT_EQ(field(name)->Key(), key);
    }
    void type(const char* name, const QString& text) {
        auto* edit = field(name)->findChild<QLineEdit*>();
        edit->setFocus();
        edit->selectAll();
        QTest::keyClicks(edit, text);
    }
    QMap<QString, double> numbers() {
        QMap<QString, double> result;
        for (const auto* input : form->findChildren<AdvanceText*>())
            if (input->TextType() == 1) result[input->objectName()] = input->number();
        return result;
    }
    void switchUnits(const char* name) {
        window->findChild<AdvanceText*>(QStringLiteral("cmbmeasureunits"))
            ->SetKey(QLatin1String(name) == QLatin1String("imperial") ? QStringLiteral("1")
                                                                      : QStringLiteral("0"));
    }

    SelectionForm* form;
};

}  // namespace

TEST_F(FormTest, ARefrigerantStartsWithItsDewTemperatures) {
    choose("lstRefrigerants", "R407C");
    EXPECT_FALSE(field("txtTEM")->isHidden());
    type("txtTCM", "42");
    type("txtTEM", "-3");
    EXPECT_TRUE(field("txtTCD")->Derived());
    const double dew = field("txtTCD")->number();
    choose("lstRefrigerants", "R134A");
    EXPECT_TRUE(field("txtTEM")->isHidden()) << "there is no way back from a mid temperature of R134A";
    EXPECT_TRUE(field("txtTCM")->isHidden());
    EXPECT_FALSE(field("txtTCD")->Derived());
    EXPECT_EQ(field("txtTCD")->number(), dew);
    field("txtTED")->setFocus();
    QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(field("txtTCD")->hasFocus());

    // A pressure led; the new refrigerant has another one at the same dew temperature.
    type("txtPE", "3");
    const double evaporating = field("txtTED")->number();
    choose("lstRefrigerants", "R404A");
    EXPECT_EQ(field("txtTED")->number(), evaporating);
    EXPECT_FALSE(field("txtTED")->Derived());
    EXPECT_TRUE(field("txtPE")->Derived());
}

TEST_F(FormTest, EachEconomizerModeKeepsItsOwnValue) {
    choose("lstSeries", "TK-A");
    choose("cmbEco", "1");
    EXPECT_EQ(field("txtEco")->TextText(), "10.00");
    type("txtEco", "7.5");
    choose("cmbEco", "2");
    EXPECT_EQ(field("txtEco")->TextText(), "0.00") << "an approach of 7.5 K is no capacity";
    type("txtEco", "120");
    choose("cmbEco", "0");
    choose("cmbEco", "1");
    EXPECT_EQ(field("txtEco")->number(), 7.5);
    switchUnits("imperial");
    EXPECT_EQ(field("txtEco")->number(), 13.5);
    choose("cmbEco", "2");
    EXPECT_EQ(field("txtEco")->number(), 216) << "as the field itself is converted";
    switchUnits("metric");
    choose("cmbEco", "1");
    EXPECT_EQ(field("txtEco")->number(), 7.5);

    // The next form has both, and the defaults have neither.
    form = window->newSelection();
    choose("cmbEco", "2");
    EXPECT_EQ(field("txtEco")->number(), 120);
    form->findChild<Link*>(QStringLiteral("lnkDefaults"))->click();
    choose("cmbEco", "2");
    EXPECT_EQ(field("txtEco")->number(), 0);
    choose("cmbEco", "1");
    EXPECT_EQ(field("txtEco")->number(), 10);
}

TEST_F(FormTest, AMessageThatACompressorHasTwiceIsShownOnce) {
    choose("lstSeries", "TK-A");
    choose("cmbEco", "2");
    type("txtEco", "100000");
    window->activateWindow();
    QTest::keyClick(form->focusWidget(), Qt::Key_F5);
    ASSERT_TRUE(form->hasResults());
    const auto* messages = form->findChild<MessagesView*>(QStringLiteral("lvMessages"));
    for (int row = 1; row < list()->rowCount(); ++row) {
        list()->selectRow(row);
        QSet<QString> texts;
        for (int i = 0; i < messages->count(); ++i) texts += messages->item(i)->text();
        EXPECT_EQ(texts.size(), messages->count()) << list()->key(row).toStdString();
    }
}

TEST_F(FormTest, ANewFormStartsWithTheInputsOfTheActiveOneAsFarAsTheyFit) {
    choose("lstRefrigerants", "R407C");
    type("txtTED", "-7.25");
    type("txtTCM", "44.4");
    type("txtPC", "17.123");
    type("txtSC", "3.5");
    switchUnits("imperial");
    type("txtSH", "12.3");
    const auto fixedSpeed = numbers();

    form = window->newSelection();
    EXPECT_EQ(field("lstRefrigerants")->Key(), "R407C");
    EXPECT_EQ(numbers(), fixedSpeed);
    EXPECT_FALSE(field("txtPC")->Derived());
    EXPECT_TRUE(field("txtTCD")->Derived());

    // R407C has no compressors on an inverter.
    form = window->newInverterSelection();
    EXPECT_EQ(field("lstRefrigerants")->Key(), "R134A");
    for (const char* name : {"txtTED", "txtTCD", "txtSC", "txtSH"})
        EXPECT_EQ(field(name)->number(), fixedSpeed[name]) << name;
    EXPECT_TRUE(field("txtPC")->Derived());
    EXPECT_FALSE(field("txtTCD")->Derived());
    type("txtFrequency", "35");
    type("txtTED", "30");
    choose("cmbEco", "1");

    form = window->newInverterSelection();
    EXPECT_EQ(field("txtFrequency")->number(), 35);
    EXPECT_EQ(field("cmbEco")->Key(), "1");
    form = window->newSelection();
    EXPECT_EQ(field("txtTED")->number(), 30) << "from the active form, not from the last of its kind";
    EXPECT_EQ(field("lstRefrigerants")->Key(), "R134A");
}

TEST_F(FormTest, SwitchingTheSystemOfUnitsThereAndBackChangesNoField) {
    for (const bool isGiven : {false, true}) {
        choose("lstRefrigerants", "R407C");
        type("txtTCM", "42.37");
        type("txtTEM", "-3.333");
        if (isGiven) {
            type("txtPC", "17.123");  // the mid temperature goes on leading
            type("txtPE", "4.777");
            choose("cmbSh", "1");
        }
        const auto before = numbers();
        for (int turn = 0; turn < 3; ++turn) {
            switchUnits("imperial");
            EXPECT_NEAR(field("txtTCD")->number(), before["txtTCD"] * 1.8 + 32, 1e-6);
            EXPECT_NEAR(field("txtPC")->number(), before["txtPC"] / 0.0689475729, 1e-3);
            switchUnits("metric");
            EXPECT_EQ(numbers(), before);
        }
        // What is typed in between is what was entered.
        switchUnits("imperial");
        type("txtSC", "7.77");
        const auto imperial = numbers();
        switchUnits("metric");
        switchUnits("imperial");
        EXPECT_EQ(numbers(), imperial);
        switchUnits("metric");
        form->findChild<Link*>(QStringLiteral("lnkDefaults"))->click();
        EXPECT_EQ(field("txtTCD")->number(), 40);
        EXPECT_TRUE(field("txtTCM")->isHidden());
    }
}

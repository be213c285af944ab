// What a person does with one form or two, on the catalogue that is shipped.

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMap>
#include <QTest>

#include "controls/AdvanceText.h"
#include "controls/Link.h"
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

// The guide, followed as a reader follows it: what it says of the program and its numbers is so.

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QTextBrowser>

#include "controls/AdvanceText.h"
#include "controls/ResultsView.h"
#include "tests/gui/RealWindow.h"
#include "workspace/SelectionForm.h"

using namespace marvello;

namespace {

class GuideTest : public ::testing::Test, public marvello::testing::RealWindow {
  protected:
    GuideTest() : RealWindow("en-EN") {
        QFile file(QStringLiteral(MARVELLO_APP_FOLDER "/guide/guide.md"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        // One line, without the marks of the names.
        guide_ = QString::fromUtf8(file.readAll()).remove(u'`').simplified();
    }

    void open(SelectionForm* opened) {
        form = opened;
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }
    AdvanceText* field(const char* name) { return form->findChild<AdvanceText*>(QLatin1String(name)); }
    ResultsView* list() { return form->findChild<ResultsView*>(QStringLiteral("lvCps")); }
    /// Opens a list with Down and takes the entry of a name.
    void choose(const char* name, const QString& entry) {
        QTest::keyClick(field(name)->findChild<QLineEdit*>(), Qt::Key_Down);
        QWidget* popup = QApplication::activePopupWidget();
        ASSERT_NE(popup, nullptr) << name;
        auto* rows = popup->findChild<QListWidget*>();
        for (int row = 0; row < rows->count(); ++row)
            if (rows->item(row)->text() == entry) rows->setCurrentRow(row);
        QTest::keyClick(rows, Qt::Key_Return);
        EXPECT_EQ(field(name)->TextText(), entry);
    }
    void type(const char* name, const QString& text) {
        auto* edit = field(name)->findChild<QLineEdit*>();
        edit->setFocus();
        edit->selectAll();
        QTest::keyClicks(edit, text);
    }
    void pressF5() {
        window->activateWindow();  // a list that was open leaves it to the window system
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        QTest::keyClick(form->focusWidget(), Qt::Key_F5);
        ASSERT_TRUE(form->hasResults());
    }
    /// What the list shows of a compressor under the heading that begins so.
    QString shown(const QString& compressor, const QString& heading) {
        const QStringList headings = list()->columnTexts();
        for (int row = 0; row < list()->rowCount(); ++row)
            for (int column = 1; column < headings.size(); ++column)
                if (list()->text(row, 0) == compressor && headings[column].section(u'(', 0, 0) == heading)
                    return list()->text(row, column);
        return QStringLiteral("nothing");
    }
    void expectSaid(const QString& sentence) {
        EXPECT_TRUE(guide_.contains(sentence)) << sentence.toStdString();
    }

    SelectionForm* form = nullptr;

  private:
    QString guide_;
};

}  // namespace

TEST_F(GuideTest, TheFirstSelection) {
    open(window->newSelection());
    choose("lstRefrigerants", "R134A");
    choose("lstSeries", "TK-A");
    EXPECT_EQ(field("lstModels")->TextText(), "ALL");
    type("txtTED", "2");
    type("txtTCD", "40");
    EXPECT_TRUE(field("txtPE")->Derived());
    EXPECT_EQ(field("txtSH")->number(), 10);
    EXPECT_EQ(field("txtSC")->number(), 5);
    pressF5();
    const QString name = "TK-A-255";
    expectSaid(QString("TK-A-255 gives %1 kW with %2 kW of power, a COP of %3.")
                   .arg(shown(name, "Capacity"), shown(name, "Power"), shown(name, "COP")));

    // The headings, by mouse.
    const auto firstModel = [this] { return list()->text(1, 0); };
    const auto clickCapacity = [this] {
        QHeaderView* headings = list()->header();
        QTest::mouseClick(headings->viewport(), Qt::LeftButton, {},
                          {headings->sectionViewportPosition(1) + 30, 20});
    };
    EXPECT_EQ(firstModel(), "TK-A-120");
    clickCapacity();
    clickCapacity();
    EXPECT_EQ(firstModel(), "TK-A-480");
    clickCapacity();
    EXPECT_EQ(firstModel(), "TK-A-120");

    list()->selectKey("R134A-TK-A-060-TK-A-255");
    const QString selected = list()->key(list()->selectedRow());
    type("txtTCD", "58");
    EXPECT_FALSE(form->hasResults());
    pressF5();
    EXPECT_EQ(list()->key(list()->selectedRow()), selected);
    expectSaid(QString("with %1 kW, and the envelope").arg(shown(name, "Capacity")));
}

TEST_F(GuideTest, ValuesInOtherUnits) {
    open(window->newSelection());
    const auto becomes = [this](const char* name, const char* typed, const char* value) {
        expectSaid(typed);
        type(name, typed);
        QTest::keyClick(form->focusWidget(), Qt::Key_Return);
        EXPECT_EQ(field(name)->TextText(), value) << typed;
    };
    becomes("txtTED", "45 F", "7.22");
    becomes("txtPE", "3.2 bar g", "4.21");
    becomes("txtTCD", "35+8", "43.00");
}

TEST_F(GuideTest, AnEconomizer) {
    open(window->newSelection());
    choose("lstSeries", "TK-A");
    type("txtTED", "-10");
    type("txtTCD", "45");
    pressF5();
    const QString name = "TK-A-255";
    expectSaid(
        QString("TK-A-255 gives %1 kW with a COP of %2.").arg(shown(name, "Capacity"), shown(name, "COP")));
    choose("cmbEco", field("cmbEco")->Tag1().section(u';', 1, 1).section(u'|', 1));
    type("txtEco", "5");
    pressF5();
    expectSaid(QString("%1 kW of capacity (Cap. + eco), %2 kW of power, a COP of %3, and the %4 kg/h")
                   .arg(shown(name, "Cap. + eco"), shown(name, "Power eco"), shown(name, "COP eco"),
                        QString::number(shown(name, "Flow eco").toDouble(), 'f', 0)));
}

TEST_F(GuideTest, ACompressorOnAnInverter) {
    open(window->newInverterSelection());
    choose("lstSeries", "TK-B");
    const auto capacity = [this](const char* frequency) {
        type("txtFrequency", frequency);
        pressF5();
        return shown("TK-B-255", "Capacity");
    };
    const QString at40 = capacity("40");
    const QString at50 = capacity("50");
    expectSaid(QString("TK-B-255 gives %1 kW at 40 Hz, %2 kW at 50 Hz and %3 kW at 60 Hz")
                   .arg(at40, at50, capacity("60")));
}

TEST_F(GuideTest, F1ReachesItWhereNoFieldHasHelp) {
    open(window->newSelection());
    field("txtTED")->setFocus();
    QTest::keyClick(form->focusWidget(), Qt::Key_F1);
    EXPECT_EQ(boxes.size(), 1);
    EXPECT_EQ(window->findChild<QWidget*>("formGuide"), nullptr);
    field("lstModels")->setFocus();  // a list of names needs no help
    QTest::keyClick(form->focusWidget(), Qt::Key_F1);
    auto* page = window->findChild<QTextBrowser*>("guide");
    ASSERT_NE(page, nullptr);
    EXPECT_TRUE(page->isVisible());
    EXPECT_TRUE(page->toPlainText().contains("A selection in five minutes"));
}

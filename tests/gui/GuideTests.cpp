// The guide, followed as a reader follows it: what it says of the program and its numbers is so.

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QHeaderView>
#include <QTest>
#include <QTextBrowser>

#include "tests/gui/RealForm.h"

using namespace marvello;

namespace {

class GuideTest : public ::testing::Test, public marvello::testing::RealForm {
  protected:
    GuideTest() : RealForm("en-EN") {
        QFile file(QStringLiteral(MARVELLO_APP_FOLDER "/guide/guide.md"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        // One line, without the marks of the names.
        guide_ = QString::fromUtf8(file.readAll()).remove(u'`').simplified();
    }

    void calculate() {
        RealForm::calculate();
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

  private:
    QString guide_;
};

}  // namespace

TEST_F(GuideTest, TheFirstSelection) {
    choose("lstRefrigerants", "R134A");
    choose("lstSeries", "TK-A");
    EXPECT_EQ(field("lstModels")->TextText(), "ALL");
    type("txtTED", "2");
    type("txtTCD", "40");
    EXPECT_TRUE(field("txtPE")->Derived());
    EXPECT_EQ(field("txtSH")->number(), 10);
    EXPECT_EQ(field("txtSC")->number(), 5);
    calculate();
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
    calculate();
    EXPECT_EQ(list()->key(list()->selectedRow()), selected);
    expectSaid(QString("with %1 kW, and the envelope").arg(shown(name, "Capacity")));
}

TEST_F(GuideTest, ValuesInOtherUnits) {
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
    choose("lstSeries", "TK-A");
    type("txtTED", "-10");
    type("txtTCD", "45");
    calculate();
    const QString name = "TK-A-255";
    expectSaid(
        QString("TK-A-255 gives %1 kW with a COP of %2.").arg(shown(name, "Capacity"), shown(name, "COP")));
    choose("cmbEco", "1");
    type("txtEco", "5");
    calculate();
    expectSaid(QString("%1 kW of capacity (Cap. + eco), %2 kW of power, a COP of %3, and the %4 kg/h")
                   .arg(shown(name, "Cap. + eco"), shown(name, "Power eco"), shown(name, "COP eco"),
                        QString::number(shown(name, "Flow eco").toDouble(), 'f', 0)));
}

TEST_F(GuideTest, ACompressorOnAnInverter) {
    form = window->newInverterSelection();
    choose("lstSeries", "TK-B");
    const auto capacity = [this](const char* frequency) {
        type("txtFrequency", frequency);
        calculate();
        return shown("TK-B-255", "Capacity");
    };
    const QString at40 = capacity("40");
    const QString at50 = capacity("50");
    expectSaid(QString("TK-B-255 gives %1 kW at 40 Hz, %2 kW at 50 Hz and %3 kW at 60 Hz")
                   .arg(at40, at50, capacity("60")));
}

TEST_F(GuideTest, F1ReachesItWhereNoFieldHasHelp) {
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

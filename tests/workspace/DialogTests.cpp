#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <fstream>

#include "controls/Link.h"
#include "controls/TabStrip.h"
#include "data/Session.h"
#include "tests/workspace/WorkspaceFixture.h"
#include "workspace/MDIMain.h"
#include "workspace/Settings.h"
#include "workspace/WindowTexts.h"
#include "workspace/formBuilds.h"
#include "workspace/formHide.h"
#include "workspace/frmAbout.h"
#include "workspace/frmRefrigerant.h"

using namespace marvello;
using namespace marvello::testing;

namespace {

class DialogTest : public WorkspaceFixture {
  protected:
    DialogTest() {
        catalogue.exec("insert into thelp values('en-EN','rtfeula','{\\rtf1 Terms\\par of use}')");
        gApplication().populateDictionary("en-EN", "");
    }
    /// Lets a person act on the dialog that the next call opens.
    template <class Act>
    static void onceOpen(QDialog& dialog, Act act) {
        QTimer::singleShot(0, &dialog, act);
    }
};

}  // namespace

TEST_F(DialogTest, AboutTellsVersionAddressAndTerms) {
    frmAbout about("1.2.3", nullptr);
    about.show();
    QStringList lines;
    for (const QLabel* label : about.findChildren<QLabel*>()) lines += label->text();
    EXPECT_TRUE(lines.contains("Compressor selection, version 1.2.3"));
    EXPECT_TRUE(lines.contains("Northgate"));
    EXPECT_EQ(control<Link>(about, "Link1")->text(), "www.kestrom.example");
    auto* terms = control<QTextBrowser>(about, "rtfeula");
    EXPECT_FALSE(terms->isVisible());
    control<TabStrip>(about, "TabStrip")->setCurrentIndex(1);
    EXPECT_TRUE(terms->isVisible());
    EXPECT_EQ(terms->toPlainText(), "Terms\nof use");
    QTest::keyClick(&about, Qt::Key_Escape);
    EXPECT_FALSE(about.isVisible());
}

TEST_F(DialogTest, BuildsAreOfferedWhenThereIsAList) {
    const QTemporaryDir folder;
    catalogue.session.applicationFolder = folder.path().toStdString();
    const auto isOffered = [] {
        const MDIMain window("1.0.0");
        return control<QAction>(window, "mnu_help_Builds")->isVisible();
    };
    EXPECT_FALSE(isOffered());
    const std::string file = folder.path().toStdString() + "/builds.rtf";
    std::ofstream{file};
    EXPECT_FALSE(isOffered());
    std::ofstream(file) << "{\\rtf1 First {\\b build";
    EXPECT_TRUE(isOffered());
    formBuilds builds(fromCore(file), nullptr);
    builds.show();
    auto* text = control<QTextBrowser>(builds, "rtf");
    EXPECT_EQ(text->toPlainText(), "First build");
    // The text fills what the frame leaves at any size.
    builds.resize(900, 700);
    EXPECT_EQ(text->width(), 898);
}

TEST_F(DialogTest, AListOfBuildsThatGrewIsNews) {
    const QTemporaryDir folder;
    const QString file = folder.filePath("builds.rtf");
    const auto write = [&](int length) {
        QFile list(file);
        ASSERT_TRUE(list.open(QIODevice::WriteOnly));
        list.write(QByteArray(length, 'x'));
    };
    write(100);
    EXPECT_FALSE(formBuilds::hasNews(file)) << "a first start";
    write(150);
    EXPECT_TRUE(formBuilds::hasNews(file));
    formBuilds::markSeen(file);
    EXPECT_FALSE(formBuilds::hasNews(file));
    write(120);
    EXPECT_FALSE(formBuilds::hasNews(file));
    userSettings().remove(settings::buildsLength.key);
    settings::frame.keep("kept by an earlier version");
    EXPECT_TRUE(formBuilds::hasNews(file));
}

TEST_F(DialogTest, RefrigerantsAreCheckedAndGivenBack) {
    catalogue.exec(
        "insert into tRefrigerantFacts(fRefrigeranteId,fSafetyClass,fGwpAr4) values('R134A','A1',1430)");
    frmRefrigerant dialog(nullptr);
    auto* list = control<QListWidget>(dialog, "lv");
    onceOpen(dialog, [&] {
        ASSERT_EQ(list->count(), 2);
        EXPECT_EQ(list->item(0)->checkState(), Qt::Unchecked);  // R134A
        EXPECT_EQ(list->item(1)->checkState(), Qt::Checked);    // R290
        EXPECT_EQ(list->item(0)->data(Qt::AccessibleTextRole).toString(), "R134A, A1 · GWP 1430");
        EXPECT_EQ(list->item(1)->data(Qt::AccessibleTextRole).toString(), "R290, -");
        QTest::keyClick(list, Qt::Key_Space);
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    const auto chosen = dialog.OpenForm({"k", ";r290;R1;", {}, {}, {}});
    ASSERT_TRUE(chosen);
    EXPECT_EQ(chosen->Key, "k");
    EXPECT_EQ(chosen->Parameter, "R134A;R290");
    onceOpen(dialog, [&] { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_FALSE(dialog.OpenForm(*chosen));
}

TEST_F(DialogTest, TheHiddenFormNeverShows) {
    formHide hidden;
    hidden.show();
    EXPECT_FALSE(hidden.isVisible());
}

#include "app/ReadAhead.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <QTest>
#include <QWidget>
#include <filesystem>
#include <fstream>

#include "app/InstallHooks.h"
#include "catalogue/Globals.h"
#include "controls/MessageBox.h"
#include "data/Session.h"

using namespace marvello;

namespace {

namespace fs = std::filesystem;

constexpr int pause = 300;  // milliseconds

struct ReadAheadTest : testing::Test {
    ReadAheadTest() {
        installHooks(session.hooks);
        MessageBox::setHandler([this](MessageBox::Mark, const QString&) { ++boxes; });
        fs::copy_file(MARVELLO_APP_FOLDER "/db.mdb", file);
        fs::permissions(file, fs::perms::owner_all);
    }
    ~ReadAheadTest() override { MessageBox::setHandler({}); }

    QTemporaryDir folder;
    std::string file = folder.filePath(QStringLiteral("db.mdb")).toStdString();
    Session session{MARVELLO_APP_FOLDER};
    int boxes = 0;
};

TEST_F(ReadAheadTest, ReadsTheCatalogueWhenTheUserPauses) {
    openCatalogue("Data Source=" + file);
    ReadAhead ahead;
    QWidget window;
    for (int key = 0; key < 4; ++key) {
        QTest::qWait(pause / 2);
        QTest::keyClick(&window, Qt::Key_A);
    }
    EXPECT_EQ(gDatabase().kept(), nullptr);
    EXPECT_TRUE(QTest::qWaitFor([] { return gDatabase().kept() != nullptr; }));
}

TEST_F(ReadAheadTest, LeavesADamagedOrClosedCatalogueToTheCalculation) {
    openCatalogue("Data Source=" + file);
    std::fstream(file).seekp(-1, std::ios::end).put('!');
    ReadAhead damaged;
    QTest::qWait(2 * pause);
    EXPECT_EQ(gDatabase().kept(), nullptr);
    gDatabase().CloseConnection();
    ReadAhead closed;
    QTest::qWait(2 * pause);
    EXPECT_FALSE(gDatabase().isOpen());
    EXPECT_EQ(boxes, 0);
}

}  // namespace

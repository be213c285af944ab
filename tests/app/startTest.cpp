#include <gmock/gmock.h>

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <vector>

#include "app/FirstInstance.h"
#include "app/InstallHooks.h"
#include "app/Start.h"
#include "controls/MessageBox.h"
#include "data/Session.h"
#include "workspace/Frmsplash.h"
#include "workspace/MDIMain.h"

using namespace marvello;
using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

namespace fs = std::filesystem;

template <class Window>
Window* shown() {
    for (auto* const widget : QApplication::topLevelWidgets())
        if (auto* const window = dynamic_cast<Window*>(widget); window && window->isVisible()) return window;
    return nullptr;
}

class Start : public testing::Test {
  protected:
    void SetUp() override {
        MessageBox::setHandler([this](MessageBox::Mark, const QString& text) {
            boxes_.push_back(text.toStdString());
            sawMainWindow_ = sawMainWindow_ || shown<MDIMain>() != nullptr;
            sawSplash_ = sawSplash_ || shown<Frmsplash>() != nullptr;
        });
        fs::current_path(folder());  // away from the Fluids folder of the built program
        installHooks(session_.hooks);
    }
    void TearDown() override {
        MessageBox::setHandler({});
        fs::current_path(fs::temp_directory_path());
    }

    std::string folder() const { return folder_.path().toStdString(); }

    QTemporaryDir folder_;
    Session session_{folder()};
    std::vector<std::string> boxes_;
    bool sawMainWindow_ = false;
    bool sawSplash_ = false;
};

TEST_F(Start, FailsWithOneSentenceWithoutFluidsOrCatalogue) {
    EXPECT_EQ(Main(), failedStart);
    EXPECT_THAT(boxes_, ElementsAre(AllOf(HasSubstr("cannot start"), HasSubstr(folder() + "/Fluids"))));

    boxes_.clear();
    fs::create_directory(folder() + "/Fluids");
    EXPECT_EQ(Main(), failedStart);
    EXPECT_THAT(boxes_, ElementsAre(HasSubstr("There is no catalogue file " + folder() + "/db.mdb")));

    boxes_.clear();
    std::ofstream(folder() + "/db.mdb") << "not a catalogue at all, but a text of some length";
    EXPECT_EQ(Main(), failedStart);
    EXPECT_THAT(boxes_, ElementsAre(HasSubstr("is not a catalogue")));
    EXPECT_FALSE(sawMainWindow_);
    EXPECT_EQ(shown<Frmsplash>(), nullptr);
}

TEST_F(Start, CallsTheFirstInstanceAndLeavesItAlone) {
    FirstInstance first;
    ASSERT_TRUE(first.isThis());
    int calls = 0;
    first.whenCalled([&calls] { ++calls; });
    for (int starts = 1; starts <= 2; ++starts) {
        EXPECT_EQ(Main(), ended);
        EXPECT_TRUE(QTest::qWaitFor([&] { return calls >= starts; }));
    }
    EXPECT_THAT(boxes_, Each("Another copy of Marvello is already running."));
    EXPECT_THAT(boxes_, SizeIs(2));
    EXPECT_FALSE(sawMainWindow_);
    EXPECT_FALSE(sawSplash_);
    EXPECT_EQ(gDatabase().ConnectionString, "");  // the catalogue was not touched
}

TEST_F(Start, AKeyOrAClickEndsTheSplashEarly) {
    using std::chrono::steady_clock;
    for (const bool byKey : {true, false}) {
        Frmsplash splash;
        splash.show();
        QTimer::singleShot(20, &splash, [&] {
            if (byKey)
                QTest::keyClick(&splash, Qt::Key_Space);
            else
                QTest::mouseClick(&splash, Qt::LeftButton);
        });
        const auto start = steady_clock::now();
        splash.hold(std::chrono::minutes(1));
        EXPECT_LT(steady_clock::now() - start, std::chrono::seconds(30));
    }
}

// As a sudden end leaves it while it is being written, or a machine that was renamed since.
TEST_F(Start, PassesOverALockThatNoProcessHolds) {
    for (const char* const content : {"", "damaged", "4711\nmarvello\na-machine-of-another-name\n\n\n"}) {
        SCOPED_TRACE(content);
        boxes_.clear();
        std::ofstream(instanceLockFile().toStdString()) << content;
        EXPECT_EQ(Main(), failedStart);  // for want of the fluid files, which come later
        EXPECT_THAT(boxes_, ElementsAre(HasSubstr("/Fluids")));
        EXPECT_FALSE(fs::exists(instanceLockFile().toStdString()));
    }
}

TEST_F(Start, ShowsTheMainWindowAndUnloadsTheSplash) {
    session_.applicationFolder = MARVELLO_APP_FOLDER;
    AbortRequested() = true;
    bool splashGone = false;
    QTimer closing;
    closing.setInterval(50);
    int looks = 0;
    QObject::connect(&closing, &QTimer::timeout, [&] {
        auto* const window = shown<MDIMain>();
        if (!window) return;
        sawMainWindow_ = true;
        splashGone = shown<Frmsplash>() == nullptr;
        // The start menu, on a slow machine; it would keep the program running.
        if (QWidget* const dialog = QApplication::activeModalWidget()) dialog->close();
        if (splashGone || ++looks == 200) window->close();  // the window becomes active when it may
    });
    closing.start();
    EXPECT_EQ(Main(), ended);
    EXPECT_TRUE(sawMainWindow_);
    EXPECT_TRUE(splashGone);
    EXPECT_FALSE(AbortRequested());
    EXPECT_THAT(boxes_, IsEmpty());
}

}  // namespace

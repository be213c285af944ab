#include "data/SessionThread.h"

#include <gtest/gtest.h>

#include <chrono>
#include <mutex>
#include <semaphore>
#include <string>
#include <thread>

#include "data/Hooks.h"
#include "data/Session.h"

namespace marvello {
namespace {

using IsWanted = SessionThread::IsWanted;

class SessionThreadTest : public ::testing::Test {
  protected:
    /// A task that is at work until it is given up.
    SessionThread::Task endless() {
        return [this](const IsWanted& isWanted) {
            begun_.release();
            while (isWanted()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
            note("given up");
        };
    }
    SessionThread::Task noting(const std::string& name) {
        return [this, name](const IsWanted&) {
            note(name);
            done_.release();
        };
    }
    void note(const std::string& name) {
        const std::lock_guard held(lock_);
        notes_ += name + ' ';
    }

    Session session_{"/somewhere"};
    std::mutex lock_;
    std::string notes_;
    std::counting_semaphore<> begun_{0};
    std::counting_semaphore<> done_{0};
};

TEST_F(SessionThreadTest, CarriesOutTheNewestAlone) {
    std::binary_semaphore goOn{0};
    SessionThread thread;
    ASSERT_TRUE(thread.start([&](const IsWanted& isWanted) {
        EXPECT_TRUE(isWanted());
        begun_.release();
        goOn.acquire();
        EXPECT_FALSE(isWanted());
        note("first");
    }));
    begun_.acquire();
    thread.start(noting("second"));
    thread.start(noting("third"));
    goOn.release();
    done_.acquire();
    const std::lock_guard held(lock_);
    EXPECT_EQ(notes_, "first third ");
}

TEST_F(SessionThreadTest, HasASessionOfItsOwnOnTheSameFolderAndCatalogue) {
    gDatabase().ConnectionString = "Data Source=/somewhere/else.mdb";
    SessionThread thread;
    std::string seen;
    bool isAborted = true;
    AbortRequested() = true;
    thread.start([&](const IsWanted&) {
        seen = Session::current().applicationFolder + ' ' + gDatabase().ConnectionString;
        giveTurn();
        isAborted = AbortRequested();
        done_.release();
    });
    done_.acquire();
    EXPECT_EQ(seen, "/somewhere Data Source=/somewhere/else.mdb");
    EXPECT_FALSE(isAborted);
}

TEST_F(SessionThreadTest, ATaskThatIsGivenUpIsAbortedAtItsNextTurn) {
    SessionThread thread;
    bool isAborted = false;
    thread.start([&](const IsWanted& isWanted) {
        begun_.release();
        while (isWanted()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
        giveTurn();
        isAborted = AbortRequested();
        done_.release();
    });
    begun_.acquire();
    thread.stop();
    done_.acquire();
    EXPECT_TRUE(isAborted);
}

TEST_F(SessionThreadTest, GoesAtOnceWithATaskAtWork) {
    {
        SessionThread thread;
        thread.start(endless());
        begun_.acquire();
    }
    EXPECT_EQ(notes_, "given up ");
    const SessionThread unused;
}

}  // namespace
}  // namespace marvello

#include "data/Session.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>

#include "tests/data/TestCatalogue.h"

using namespace marvello;

namespace {

TestCatalogue catalogueOf(const std::string& name) {
    return TestCatalogue(
        "CREATE TABLE thelp (flanguage TEXT, ffield TEXT, fhelp TEXT);"
        "CREATE TABLE tDictionary (fLanguageID TEXT, fVariableName TEXT, fText TEXT);"
        "INSERT INTO tDictionary VALUES ('en-EN', 'name', '" +
        name + "')");
}

class Sessions : public testing::Test {
  protected:
    /// Opens a catalogue unless one is open, and returns its name.
    static std::string nameOf(const TestCatalogue& catalogue) {
        gDatabase().Connect(catalogue.connectionString());
        gApplication().populateDictionary("en-EN", "");
        return gApplication().DictionaryRead("name");
    }

    const TestCatalogue first = catalogueOf("first");
    const TestCatalogue second = catalogueOf("second");
};

TEST_F(Sessions, LeaveNothingToTheNext) {
    {
        Session session("/somewhere");
        session.hooks.giveTurn = [] { ADD_FAILURE(); };
        AbortRequested() = true;
        EXPECT_EQ(nameOf(first), "first");
    }
    EXPECT_THROW(gDatabase(), std::logic_error);
    const Session session;
    giveTurn();
    EXPECT_NE(session.applicationFolder, "/somewhere");
    EXPECT_FALSE(AbortRequested());
    EXPECT_EQ(nameOf(second), "second");
}

TEST_F(Sessions, HoldTurnsBackAsLongAsSomethingMustStay) {
    Session session;
    int turns = 0;
    session.hooks.giveTurn = [&turns] { ++turns; };
    try {
        const NoTurns outer;
        {
            const NoTurns inner;
        }
        giveTurn();
        EXPECT_EQ(turns, 0);
        throw std::runtime_error("a calculation failed");
    } catch (const std::runtime_error&) {
    }
    giveTurn();
    EXPECT_EQ(turns, 1);
}

TEST_F(Sessions, GiveTheOneBeforeBack) {
    const Session outer;
    EXPECT_EQ(nameOf(first), "first");
    EXPECT_EQ((Session(), nameOf(second)), "second");
    EXPECT_EQ(gApplication().DictionaryRead("name"), "first");
}

TEST_F(Sessions, BelongToTheirThread) {
    const auto work = [](const TestCatalogue& catalogue, const std::string& name) {
        EXPECT_THROW(gDatabase(), std::logic_error);
        for (int i = 0; i < 50; ++i) EXPECT_EQ((Session(), nameOf(catalogue)), name);
    };
    std::thread other(work, std::cref(second), "second");
    work(first, "first");
    other.join();
}

}  // namespace

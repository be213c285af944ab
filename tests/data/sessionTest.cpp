#include "data/Session.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>

#include "tests/data/TestCatalogue.h"

using namespace marvello;

namespace {

/// A catalogue with one text, which is its name.
class Named : public TestCatalogue {
  public:
    explicit Named(const std::string& name)
        : TestCatalogue(
              "CREATE TABLE tDictionary (fLanguageID TEXT, fVariableName TEXT, fText TEXT);"
              "CREATE TABLE thelp (flanguage TEXT, ffield TEXT, fhelp TEXT);"
              "INSERT INTO tDictionary VALUES ('en-EN', 'a.name', '" +
              name + "')") {}

    void open() const {
        gDatabase().Connect(connectionString());
        gApplication().populateDictionary("en-EN", "");
    }
};

std::string name() { return gApplication().DictionaryRead("a.name"); }

TEST(Session, LeavesNothingToTheNext) {
    const Named first("first");
    const Named second("second");
    {
        Session session("/somewhere");
        session.hooks.giveTurn = [] { ADD_FAILURE(); };
        AbortRequested() = true;
        first.open();
        EXPECT_EQ(name(), "first");
    }
    EXPECT_THROW(gDatabase(), std::logic_error);
    const Session session;
    EXPECT_NE(session.applicationFolder, "/somewhere");
    EXPECT_FALSE(AbortRequested());
    EXPECT_FALSE(gDatabase().isOpen());
    EXPECT_THROW(name(), UnknownTextKey);
    giveTurn();
    second.open();
    EXPECT_EQ(name(), "second");
}

TEST(Session, GivesTheOneBeforeBack) {
    const Named first("first");
    const Named second("second");
    const Session outer("/outer");
    first.open();
    {
        const Session inner("/inner");
        second.open();
        EXPECT_EQ(name(), "second");
        EXPECT_EQ(&Session::current(), &inner);
    }
    EXPECT_EQ(&Session::current(), &outer);
    EXPECT_EQ(name(), "first");
}

TEST(Session, ThreadsWorkOnCataloguesOfTheirOwn) {
    const Named first("first");
    const Named second("second");
    const Session session;
    first.open();
    std::thread other([&second] {
        EXPECT_THROW(gDatabase(), std::logic_error);
        for (int i = 0; i < 50; ++i) {
            const Session own;
            second.open();
            EXPECT_EQ(name(), "second");
        }
    });
    for (int i = 0; i < 50; ++i) {
        first.open();
        EXPECT_EQ(name(), "first");
    }
    other.join();
}

}  // namespace

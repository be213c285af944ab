#include "data/clsApplication.h"

#include <gmock/gmock.h>

#include <map>
#include <vector>

#include "data/Session.h"
#include "tests/data/TestCatalogue.h"

using namespace marvello;

namespace {

constexpr auto texts =
    "CREATE TABLE tDictionary (fLanguageID TEXT COLLATE NOCASE, fVariableName TEXT COLLATE NOCASE, fText "
    "TEXT);"
    "CREATE TABLE thelp (flanguage TEXT COLLATE NOCASE, ffield TEXT, fhelp TEXT);"
    "INSERT INTO tDictionary VALUES ('en-EN', 'a.both', 'both'), ('en-EN', 'a.english', 'english'),"
    " ('en-EN', 'a.empty', 'shown'), ('it-IT', 'A.Both', 'entrambi'), ('it-IT', 'a.empty', ''),"
    " ('it-IT', 'a.italian', 'italiano');"
    "INSERT INTO thelp VALUES ('en-EN', ' RtfEula', '{\\rtf1 en}'), ('it-IT', 'rtfeula', '{\\rtf1 it}'),"
    " ('en-EN', 'other', 'other');";

class Application : public testing::Test {
  protected:
    void SetUp() override { gDatabase().ConnectionString = catalogue_.connectionString(); }

    TestCatalogue catalogue_{texts};
    Session session_;
    clsApplication application_;
};

TEST_F(Application, FallsBackTextByText) {
    application_.populateDictionary("en-EN", "it-IT");
    EXPECT_EQ(application_.DictionaryRead("a.BOTH"), "entrambi");
    EXPECT_EQ(application_.DictionaryRead("a.english"), "english");
    EXPECT_EQ(application_.DictionaryRead("a.empty"), "shown");
    EXPECT_EQ(application_.DictionaryRead("a.italian"), "italiano");
    EXPECT_EQ(application_.DictionaryEntry("a.italian")->DefaultText, "");
    EXPECT_EQ(application_.DictionaryRead("help.rtfeula.rtf"), "{\\rtf1 it}");
    EXPECT_EQ(application_.DictionaryRead("help.other.rtf"), "other");
}

TEST_F(Application, KnowsOneLanguageByItsNameInAnyCase) {
    for (const auto* language : {"EN-en", ""}) {
        application_.populateDictionary("en-EN", language);
        EXPECT_EQ(application_.DictionaryRead("a.both"), "both");
        EXPECT_EQ(application_.DictionaryEntry("a.both")->AlternativeText, "");
        EXPECT_EQ(application_.DictionaryEntry("a.italian"), nullptr);
    }
    application_.populateDictionary("en-EN", "x' or '1'='1");  // a setting is no catalogue name
    EXPECT_EQ(application_.DictionaryRead("a.both"), "both");
}

TEST_F(Application, RaisesForAnUnknownKeyButNotForABlankOne) {
    EXPECT_EQ(application_.DictionaryRead("   "), "");
    EXPECT_THROW(application_.DictionaryRead("a.both"), UnknownTextKey);  // no dictionary yet
    application_.populateDictionary("en-EN", "");
    EXPECT_THROW(application_.DictionaryRead("a.none"), UnknownTextKey);
}

TEST_F(Application, KeepsTheLanguageInTheSettingsStore) {
    EXPECT_EQ(application_.User().language, "en-EN");  // no store at all
    std::map<std::string, std::string> store;
    session_.hooks.readSetting = [&](const auto& product, const auto& section, const auto& name) {
        const auto found = store.find(product + "/" + section + "/" + name);
        return found == store.end() ? std::nullopt : std::optional(found->second);
    };
    session_.hooks.writeSetting = [&](const auto& product, const auto& section, const auto& name,
                                      const auto& value) {
        store[product + "/" + section + "/" + name] = value;
    };
    clsApplication fresh;
    EXPECT_EQ(fresh.User().language, "en-EN");
    EXPECT_TRUE(store.empty());

    fresh.SaveUserInformation({"it-IT"});
    EXPECT_EQ(store, (std::map<std::string, std::string>{{"Marvello/Parameters/Language", "it-IT"}}));
    EXPECT_EQ(clsApplication().User().language, "it-IT");
}

TEST_F(Application, ShowsAFailingSettingsStore) {
    std::vector<std::string> boxes;
    session_.hooks.showBox = [&](BoxKind, const std::string& text) { boxes.push_back(text); };
    session_.hooks.readSetting = [](const auto&, const auto&, const auto&) -> std::optional<std::string> {
        throw std::runtime_error("5 - access denied");
    };
    EXPECT_EQ(clsApplication().User().language, "");
    EXPECT_THAT(boxes, testing::ElementsAre("5 - access denied"));
}

TEST(Dictionary, KeepsOrderAndFindsByKeyOrPosition) {
    clsDictionary dictionary;
    dictionary.add("B.key").DefaultText = "two";
    dictionary.add("a.key");
    EXPECT_THROW(dictionary.add("b.KEY"), std::invalid_argument);
    EXPECT_EQ(dictionary.Count(), 2);
    EXPECT_EQ(dictionary.Item("b.key"), dictionary.Item(1));
    EXPECT_EQ(dictionary.Item(1)->Key, "B.key");
    EXPECT_EQ(dictionary.Item(2)->Index, 2);
    for (const int position : {-1, 0, 3}) EXPECT_FALSE(dictionary.Exist(position)) << position;

    dictionary.Remove(1);
    EXPECT_FALSE(dictionary.Exist("b.key"));
    EXPECT_EQ(dictionary.Item(1)->Key, "a.key");
    dictionary.Remove("none");
    EXPECT_EQ(dictionary.Count(), 1);
    dictionary.Clear();
    EXPECT_FALSE(dictionary.Exist("a.key"));
}

}  // namespace

// The dictionary and the help documents against the keys that the program asks for, and the languages against
// one another.

#include <algorithm>
#include <map>
#include <regex>
#include <set>

#include "data/clsApplication.h"
#include "tools/catalogue/Check.h"
#include "tools/catalogue/Program.h"
#include "tools/catalogue/Rows.h"

namespace marvello {

namespace {

/// The "{0}", "{1}", ... of a text, in whatever order its language needs.
std::multiset<std::string> placeholders(const std::string& text) {
    static const std::regex number(R"(\{\d+\})");
    return {std::sregex_token_iterator(text.begin(), text.end(), number), std::sregex_token_iterator()};
}

class TextCheck {
  public:
    TextCheck(const Content& content, Faults& faults) : content_(content), faults_(faults) {
        forEachRow(content, "tDictionary", faults, [this](const Row& row) {
            texts_[row.key("fLanguageID")].emplace(row.key("fVariableName"), &row.record);
        });
        forEachRow(content, "thelp", faults, [this](const Row& row) {
            if (row.key("flanguage") == lowered(defaultLanguage))
                documents_.insert("help." + lowered(trimmed(row.text("ffield"))) + ".rtf");
        });
    }

    void run() {
        checkLanguages();
        checkKeysOfProgram();
        checkUnusedKeys();
        checkTranslations();
        forEachRow(content_, "thelp", faults_, [](const Row& row) {
            if (!trimmed(row.text("fhelp")).starts_with("{\\rtf"))
                row.fault("fhelp: the document is no rich text, which begins with \"{\\rtf\"");
        });
    }

  private:
    using Texts = std::map<std::string, const Record*>;

    const Texts& texts(const std::string& language) const {
        static const Texts none;
        const auto found = texts_.find(lowered(language));
        return found == texts_.end() ? none : found->second;
    }

    static std::string fileOf(const std::string& language) { return "tDictionary." + language + ".csv"; }

    const std::string& text(const Record& record) const {
        return content_.table("tDictionary").text(record, "fText");
    }

    void checkLanguages() {
        bool hasDefault = false;
        forEachRow(content_, "tLanguages", faults_, [&](const Row& row) {
            hasDefault = hasDefault || row.key("fLanguage") == lowered(defaultLanguage);
            if (texts(row.text("fLanguage")).empty())
                row.warn("the language has no texts and shows those of " + defaultLanguage + "; add " +
                         fileOf(row.text("fLanguage")));
        });
        if (!hasDefault)
            faults_.add("tLanguages.csv",
                        "the default language " + defaultLanguage + " is missing; add its row");
    }

    void requireKey(std::string_view key) {
        asked_.insert(lowered(key));
        if (documents_.contains(lowered(key))) return;
        const Texts& known = texts(defaultLanguage);
        const auto found = known.find(lowered(key));
        if (found == known.end())
            faults_.add(fileOf(defaultLanguage), "the key " + std::string(key) +
                                                     " is missing, which the program asks for; add its text");
        else if (trimmed(text(*found->second)).empty())
            faults_.add(found->second->file, found->second->line,
                        "fText: the text of " + std::string(key) +
                            " is empty, which the program shows; write the text");
    }

    void checkKeysOfProgram() {
        for (const auto key : keysInSources()) requireKey(key);
        for (const auto& completed : completedKeys())
            for (const auto& key : completed.keys()) {
                asked_.insert(lowered(key));
                if (completed.isNeeded) requireKey(key);
            }
    }

    void checkUnusedKeys() {
        forEachRow(content_, "tParametersRows", faults_, [this](const Row& row) {
            const std::string value = row.key("fObjectPropertyValue");
            for (auto open = value.find('{'); open != std::string::npos; open = value.find('{', open + 1))
                asked_.insert(value.substr(open + 1, value.find('}', open) - open - 1));
        });
        forEachRow(content_, "tDictionary", faults_, [this](const Row& row) {
            if (row.key("fLanguageID") == lowered(defaultLanguage) &&
                !asked_.contains(row.key("fVariableName")))
                row.warn("nothing asks for the key; remove it in all languages, or correct it");
        });
    }

    void checkTranslations() {
        forEachRow(content_, "tLanguages", faults_, [this](const Row& row) {
            const std::string& language = row.text("fLanguage");
            const Texts& translated = texts(language);
            if (translated.empty() || equalIgnoringCase(language, defaultLanguage)) return;
            std::vector<std::string> missing;
            for (const auto& [key, record] : texts(defaultLanguage)) {
                const auto found = translated.find(key);
                if (found == translated.end() || (text(*found->second).empty() && !text(*record).empty()))
                    missing.push_back(key);
                else
                    compare(text(*record), *found->second);
            }
            if (!missing.empty())
                faults_.warn(fileOf(language), "texts are missing, so that the program shows those of " +
                                                   defaultLanguage + ": " + shortList(missing));
        });
    }

    void compare(const std::string& original, const Record& translation) {
        const std::string& translated = text(translation);
        const std::string key = " (" + content_.table("tDictionary").text(translation, "fVariableName") + ")";
        if (placeholders(translated) != placeholders(original))
            faults_.add(translation.file, translation.line,
                        "fText: the text does not have the \"{0}\", \"{1}\", ... of " + defaultLanguage +
                            "; write each one once" + key);
        if (std::ranges::count(translated, '&') != std::ranges::count(original, '&'))
            faults_.add(
                translation.file, translation.line,
                "fText: the text needs as many \"&\" before access keys as that of " + defaultLanguage + key);
    }

    const Content& content_;
    Faults& faults_;
    std::map<std::string, Texts> texts_;
    std::set<std::string> documents_;
    std::set<std::string> asked_;
};

}  // namespace

void checkTexts(const Content& content, Faults& faults) { TextCheck(content, faults).run(); }

}  // namespace marvello

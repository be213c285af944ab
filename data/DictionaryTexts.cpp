#include "data/DictionaryTexts.h"

#include "data/Session.h"
#include "data/Texts.h"

namespace marvello {

std::string dictionaryText(std::string_view key) {
    try {
        return gApplication().DictionaryRead(key);
    } catch (const UnknownTextKey&) {
        return std::string(key);
    }
}

std::string dictionaryText(std::string_view key, const std::vector<std::string>& arguments) {
    std::string text = dictionaryText(key);
    for (std::size_t i = 0; i < arguments.size(); ++i)
        replaceAll(text, "{" + std::to_string(i) + "}", arguments[i]);
    return text;
}

std::string dictionaryTextIfAny(std::string_view key) {
    try {
        return gApplication().DictionaryRead(key);
    } catch (const UnknownTextKey&) {
        return {};
    }
}

std::vector<Language> catalogueLanguages() {
    std::vector<Language> languages;
    for (RecordSet row = gDatabase().Execute("Select * from tLanguages order by fLanguage"); !row.eof();
         row.moveNext()) {
        const std::string key = row.text("fLanguage");
        languages.push_back({key, row.NullToDefault("fDescription", key)});
    }
    return languages;
}

}  // namespace marvello

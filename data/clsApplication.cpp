#include "data/clsApplication.h"

#include "data/Hooks.h"
#include "data/Session.h"
#include "data/Texts.h"

namespace marvello {

namespace {

constexpr auto product = "Marvello";
constexpr auto section = "Parameters";
constexpr auto languageName = "Language";

clsDictionaryEntry& itemOrNew(clsDictionary& dictionary, const std::string& key) {
    auto* const entry = dictionary.Item(key);
    return entry ? *entry : dictionary.add(key);
}

void store(clsDictionaryEntry& entry, const std::string& text, bool isDefault) {
    (isDefault ? entry.DefaultText : entry.AlternativeText) = text;
}

void readHelp(clsDictionary& dictionary, const std::string& language, bool isDefault) {
    auto rows = gDatabase().Execute("select *  from thelp where flanguage=" + sqlText(language) + " ");
    for (; !rows.eof(); rows.moveNext()) {
        const std::string key = "help." + lowered(trimmed(rows.text("ffield"))) + ".rtf";
        store(itemOrNew(dictionary, key), rows.text("fhelp"), isDefault);
    }
}

}  // namespace

clsApplication::clsApplication() { LoadUserInformation(); }

void clsApplication::LoadUserInformation() {
    user_.language = ReadRegistryValue(product, section, languageName, defaultLanguage);
}

void clsApplication::SaveUserInformation(const clsUser& user) {
    WriteRegistryValue(product, section, languageName, user.language);
    LoadUserInformation();
}

void clsApplication::WriteRegistryValue(const std::string& ofProduct, const std::string& ofSection,
                                        const std::string& name, const std::string& value) {
    const auto& write = Session::current().hooks.writeSetting;
    if (!write) return;
    try {
        write(ofProduct, ofSection, name, value);
    } catch (const std::exception& failure) {
        showBox(BoxKind::plain, failure.what());
    }
}

std::string clsApplication::ReadRegistryValue(const std::string& ofProduct, const std::string& ofSection,
                                              const std::string& name, const std::string& defaultText) {
    const auto& read = Session::current().hooks.readSetting;
    if (!read) return defaultText;
    try {
        return read(ofProduct, ofSection, name).value_or(defaultText);
    } catch (const std::exception& failure) {
        showBox(BoxKind::plain, failure.what());
        return {};
    }
}

void clsApplication::populateDictionary(const std::string& defaultLanguage, const std::string& language) {
    dictionary_.Clear();
    const bool second = !language.empty() && !equalIgnoringCase(language, defaultLanguage);

    std::string sql =
        "Select *, 1 as flanguagedefault from tDictionary where fLanguageID =" + sqlText(defaultLanguage) +
        " ";
    if (second)
        sql += " union Select *, 0 as flanguagedefault from tDictionary where fLanguageID =" +
               sqlText(language) + " ";

    if (!gDatabase().Connect("")) return;
    auto rows = gDatabase().Execute(sql);
    for (; !rows.eof(); rows.moveNext())
        store(itemOrNew(dictionary_, rows.text("fVariableName")), rows.text("fText"),
              rows.boolean("flanguagedefault"));

    readHelp(dictionary_, defaultLanguage, true);
    if (second) readHelp(dictionary_, language, false);
}

std::string clsApplication::DictionaryRead(std::string_view key) {
    if (trimmed(key).empty()) return {};
    const auto* const entry = dictionary_.Item(key);
    if (!entry) throw UnknownTextKey("The dictionary has no text for the key \"" + std::string(key) + "\".");
    return entry->Text();
}

clsDictionaryEntry* clsApplication::DictionaryEntry(std::string_view key) { return dictionary_.Item(key); }

}  // namespace marvello

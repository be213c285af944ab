#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "data/clsDictionary.h"

namespace marvello {

/// Thrown by DictionaryRead for a key that the dictionary lacks.
class UnknownTextKey : public std::out_of_range {
  public:
    using std::out_of_range::out_of_range;
};

/// The language, as a key of tLanguages, whose texts are shown for those that another one lacks.
inline const std::string defaultLanguage = "en-EN";

/// The user record.
struct clsUser {
    std::string language;  ///< A key of tLanguages, such as "en-EN".
};

/// The user's language, its per-user setting and the dictionary. The settings store is reached through Hooks.
class clsApplication {
  public:
    /// Reads the user's language; the default language when none is stored.
    clsApplication();

    clsUser& User() { return user_; }
    /// Stores the language of `user` and reads the user record anew.
    void SaveUserInformation(const clsUser& user);

    /// Builds the dictionary anew from gDatabase(): the default language and, where it differs, a second one
    /// that wins text by text. Also reads the help documents, under "help." + name + ".rtf".
    void populateDictionary(const std::string& defaultLanguage, const std::string& language);

    /// The text of a key; "" for a blank key. Throws UnknownTextKey for a key that is not there.
    std::string DictionaryRead(std::string_view key);
    clsDictionaryEntry* DictionaryEntry(std::string_view key);

  private:
    void LoadUserInformation();
    void WriteRegistryValue(const std::string& product, const std::string& section, const std::string& name,
                            const std::string& value);
    std::string ReadRegistryValue(const std::string& product, const std::string& section,
                                  const std::string& name, const std::string& defaultText);

    clsUser user_;
    clsDictionary dictionary_;
};

}  // namespace marvello

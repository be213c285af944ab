#include "data/DictionaryTexts.h"

#include "data/Globals.h"

namespace marvello {

std::string dictionaryText(std::string_view key) {
    try {
        return gApplication().DictionaryRead(key);
    } catch (const UnknownTextKey&) {
        return std::string(key);
    }
}

std::string dictionaryTextIfAny(std::string_view key) {
    try {
        return gApplication().DictionaryRead(key);
    } catch (const UnknownTextKey&) {
        return {};
    }
}

}  // namespace marvello

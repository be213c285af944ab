#include "data/clsDictionary.h"

#include <algorithm>
#include <stdexcept>

#include "data/Texts.h"

namespace marvello {

const std::string& clsDictionaryEntry::Text() const {
    return AlternativeText.empty() ? DefaultText : AlternativeText;
}

clsDictionaryEntry& clsDictionary::add(const std::string& key) {
    auto entry = std::make_unique<clsDictionaryEntry>();
    if (!byKey_.try_emplace(lowered(key), entry.get()).second)
        throw std::invalid_argument("The dictionary holds the key \"" + key + "\" already.");
    entry->Index = Count() + 1;
    entry->Key = key;
    entry->Name = key;
    return *entries_.emplace_back(std::move(entry));
}

clsDictionaryEntry* clsDictionary::Item(std::string_view key) {
    const auto found = byKey_.find(lowered(key));
    return found == byKey_.end() ? nullptr : found->second;
}

clsDictionaryEntry* clsDictionary::Item(int index) {
    return index < 1 || index > Count() ? nullptr : entries_[static_cast<std::size_t>(index) - 1].get();
}

bool clsDictionary::Exist(std::string_view key) { return Item(key) != nullptr; }

bool clsDictionary::Exist(int index) { return Item(index) != nullptr; }

int clsDictionary::Count() const { return static_cast<int>(entries_.size()); }

void clsDictionary::Remove(std::string_view key) {
    const auto found = byKey_.find(lowered(key));
    if (found == byKey_.end()) return;
    std::erase_if(entries_, [entry = found->second](const auto& held) { return held.get() == entry; });
    byKey_.erase(found);
}

void clsDictionary::Remove(int index) {
    if (const auto* entry = Item(index)) Remove(std::string(entry->Key));
}

void clsDictionary::Clear() {
    byKey_.clear();
    entries_.clear();
}

}  // namespace marvello

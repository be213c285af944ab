#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace marvello {

/// One text of the product in the default language and in the user's.
class clsDictionaryEntry {
  public:
    int Index = 0;  ///< Position at creation, from 1.
    std::string Key;
    std::string Name;
    std::string DefaultText;
    std::string AlternativeText;

    /// AlternativeText, or DefaultText when that is empty.
    const std::string& Text() const;
};

/// The texts by dotted key, without regard to case, in the order of insertion.
class clsDictionary {
  public:
    /// Adds an entry. Throws std::invalid_argument if the key exists.
    clsDictionaryEntry& add(const std::string& key);
    /// The entry of a key or a position from 1, or nothing.
    clsDictionaryEntry* Item(std::string_view key);
    clsDictionaryEntry* Item(int index);
    bool Exist(std::string_view key);
    bool Exist(int index);
    int Count() const;
    /// Takes an entry out; nothing happens when it is not there.
    void Remove(std::string_view key);
    void Remove(int index);
    void Clear();

    auto begin() { return entries_.begin(); }
    auto end() { return entries_.end(); }

  private:
    std::vector<std::unique_ptr<clsDictionaryEntry>> entries_;
    std::unordered_map<std::string, clsDictionaryEntry*> byKey_;
};

}  // namespace marvello

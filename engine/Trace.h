#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/ClsSelectionMessages.h"
#include "catalogue/Variables.h"
#include "engine/Formula.h"

namespace marvello {

/// What a calculation did, in its order: the values it wrote with their formulas, the tests it made and the
/// messages of its rules. What is repeated, as in a search, is there once, with its last numbers.
class Trace {
  public:
    struct Entry {
        enum class Kind : std::uint8_t { value, test, message };
        Kind kind{};
        int rule = 0;         ///< The number of the rule that it belongs to; 0 outside of all.
        var variable{};       ///< Of a value.
        FormulaPtr formula;   ///< Null for a text, a named fact and a message.
        std::string text{};   ///< The value that is a text, the fact that is tested, or the message's key.
        bool outcome = true;  ///< Of a test.
        Severity severity{};  ///< Of a message.
        int times = 1;        ///< How often it was done.
    };
    const std::vector<Entry>& entries() const { return entries_; }

    void write(var variable, FormulaPtr formula);
    void write(var variable, std::string_view text);
    void test(FormulaPtr comparison, bool outcome);
    void test(std::string_view fact, bool outcome);
    /// The messages that are new at the end of a rule are its own.
    void beginRule(int number, const ClsSelectionMessages& messages);
    void endRule(const ClsSelectionMessages& messages);

  private:
    void add(Entry entry);

    std::vector<Entry> entries_;
    int rule_ = 0;
    int errors_ = 0, warnings_ = 0, notes_ = 0;  ///< Of the beginning of the rule.
};

}  // namespace marvello

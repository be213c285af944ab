#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "catalogue/Variables.h"

namespace marvello {

/// A variable that does not exist, or a text read as a number.
class VariableError : public std::out_of_range {
  public:
    using std::out_of_range::out_of_range;
};

/// Nothing, a number or a text.
using VariableValue = std::variant<std::monostate, double, std::string>;

/// What is said about a variable besides its value.
struct VariableTexts {
    std::string Name;
    std::string Description;
    std::string UnitMeasuretext;  ///< The unit to show.
    std::string Tag;
};

/// One named value of a calculation.
class clsVariable {
  public:
    const std::string& Name() const { return texts_->Name; }
    const std::string& Description() const { return texts_->Description; }
    const std::string& UnitMeasuretext() const { return texts_->UnitMeasuretext; }
    const std::string& Tag() const { return texts_->Tag; }

    const VariableValue& value() const { return value_; }
    /// A text that reads as a number is stored as one. Throws ArithmeticFault for an infinity or
    /// not-a-number.
    void setValue(VariableValue value);

    bool isNumber() const { return std::holds_alternative<double>(value_); }
    /// Throws VariableError if the value is no number.
    double number() const;
    /// The value as text, a number with the locale's decimal mark.
    std::string text() const;

  private:
    friend class clsVariables;

    VariableValue value_;
    const VariableTexts* texts_ = nullptr;  ///< None while there is no such variable.
};

/// The named values that a calculation reads and writes, in the order of adding. The calculation accesses
/// them by the constants of `var`; windows, files and parameter sets by name, case ignored: "Pe", "PE" and
/// "pe" are one variable.
///
/// A variable is set if it has a number: a stage that failed or did not run leaves its variables unset, and a
/// text such as "-" is no number.
///
/// Those of the calculation are kept by their index, and their texts are those of the table of variables: to
/// write one again, or after a Clear, allocates nothing.
class clsVariables {
  public:
    clsVariables() = default;
    clsVariables(clsVariables&&) noexcept = default;
    clsVariables& operator=(clsVariables&&) noexcept = default;

    bool isSet(var variable) const;
    /// Returns the number of a variable. Throws VariableError unless it is set.
    double operator[](var variable) const;
    /// Writes a value in its place, or adds it at the end with the unit and description of its definition.
    /// Throws ArithmeticFault for an infinity or not-a-number, which changes nothing.
    void set(var variable, double value);
    void set(var variable, const char* text);

    /// Adds at the end; an entry of the name is removed first.
    void add(const std::string& Name, VariableValue value, const std::string& Description = {},
             const std::string& UnitMeasuretext = {}, const std::string& Tag = {});

    /// By name or by position from 1. Throws VariableError if there is none.
    clsVariable& Item(std::string_view name);
    const clsVariable& Item(std::string_view name) const;
    const clsVariable& Item(int position) const;
    bool Exist(std::string_view name) const;
    void Remove(std::string_view name);
    /// By position from 1. Throws VariableError if there is none.
    void Remove(int position) { Remove(Item(position).Name()); }
    void Clear();
    int Count() const { return static_cast<int>(entries_.size()); }

    /// The first variable with that tag, case ignored, or null.
    const clsVariable* getFromTag(std::string_view tag) const;

    /// The number of a name; throws VariableError.
    double operator()(std::string_view name) const { return Item(name).number(); }

    auto begin() const { return entries_.begin(); }
    auto end() const { return entries_.end(); }

  private:
    using Known = std::array<clsVariable, variableCount>;
    /// One that the table does not have, or under texts of its own.
    struct Own {
        VariableTexts texts;
        clsVariable variable;
    };

    clsVariable* find(var variable) const {
        if (!known_) return nullptr;
        clsVariable& found = (*known_)[static_cast<std::size_t>(variable)];
        return found.texts_ == nullptr ? nullptr : &found;
    }
    clsVariable* find(std::string_view name) const;
    clsVariable& made(var variable);

    std::vector<clsVariable*> entries_;  ///< In the order of adding; they point into the two below.
    std::unique_ptr<Known> known_;  ///< Those of the calculation by their index; made with the first one.
    std::vector<std::unique_ptr<Own>> own_;
};

}  // namespace marvello

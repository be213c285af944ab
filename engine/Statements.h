#pragma once

#include <exception>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "catalogue/clsCompressor.h"
#include "engine/Tracing.h"
#include "thermo/clsRefprop.h"

namespace marvello {

/// The name of an error that a statement failed with; it is no key of the dictionary.
inline constexpr std::string_view failureName = "Error...";

/// A statement whose failure is passed over.
template <class Statement>
void attemptSilently(Statement&& statement) {
    try {
        statement();
    } catch (const std::exception&) {  // the step is skipped
        return;
    }
}

/// How a calculation writes its variables, and goes on after a failure: a statement that fails adds one entry
/// to the errors, writes nothing and is followed by the next one. The entry has no text of its own; its cause
/// says what failed.
template <class Tracing>
class Statements {
  public:
    Statements(clsCompressor& compressor, const clsRefprop& refprop, const Tracing& tracing)
        : v_(tracing.variables(compressor.Variables)), messages_(compressor.Messages), refprop_(refprop) {}

    /// Writes a variable. Throws ArithmeticFault unless the value is finite.
    void set(var variable, const typename Tracing::Number& value);
    void set(var variable, const char* text);

    /// Writes what `value()` returns; a failure is an entry and leaves the variable as it was.
    template <class Value>
    void let(var variable, Value&& value) {
        attempt(definitionOf(variable).name, [&] { set(variable, value()); });
    }

    /// Runs a statement under the name that its cause bears.
    template <class Statement>
    void attempt(std::string_view name, Statement&& statement) {
        try {
            statement();
        } catch (const std::exception& failure) {
            noteFailure(name, failure.what());
        }
    }

    /// Returns which variables are states that the property library does not define, and what it says of the
    /// first; empty if there are none.
    std::string undefinedStates() const;

    /// Adds a warning if the compressor has figures that rest on such a state.
    void warnOfUndefinedStates();

  private:
    void noteFailure(std::string_view name, std::string_view sentence);

    typename Tracing::Variables v_;
    ClsSelectionMessages& messages_;
    const clsRefprop& refprop_;
    std::map<var, std::string> undefined_;  ///< What the library says of each.
};

}  // namespace marvello

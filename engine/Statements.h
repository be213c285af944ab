#pragma once

#include <exception>

#include "catalogue/ClsSelectionMessages.h"

namespace marvello {

/// How a calculation goes on after a failure: a statement that fails adds one entry to the errors, writes
/// nothing and is followed by the next one. The entry has no text of its own; it marks the compressor as
/// failed.
class Statements {
  public:
    explicit Statements(clsMessages& errors) : errors_(errors) {}

    template <class Statement>
    void attempt(Statement&& statement) {
        try {
            statement();
        } catch (const std::exception&) {
            errors_.add("Error...", "", {0.0});
        }
    }

    /// A statement whose failure is passed over.
    template <class Statement>
    static void attemptSilently(Statement&& statement) {
        try {
            statement();
        } catch (const std::exception&) {  // the step is skipped
            return;
        }
    }

  private:
    clsMessages& errors_;
};

}  // namespace marvello

#pragma once

#include <stdexcept>
#include <string>

namespace marvello::fluids {

/// What went wrong, as the numbers that the C functions report.
enum class Fault {
    notSetUp = 1,          ///< a property was asked for before a successful set-up
    badArgument = 2,       ///< an argument is not a number or not one of the permitted choices
    outOfRange = 3,        ///< the state lies outside the range of the equation
    noConvergence = 4,     ///< an iteration did not end; a sound equation never shows this
    fluidFile = 101,       ///< a fluid file is missing or ill-formed
    notSupported = 102,    ///< the file or the call asks for something this library does not offer
    internalFailure = 199  ///< anything else, such as exhausted memory
};

/// A failure of the library; the text is one sentence for a person.
class PropertyError : public std::runtime_error {
  public:
    PropertyError(Fault fault, const std::string& text) : std::runtime_error(text), fault_(fault) {}

    Fault fault() const { return fault_; }

  private:
    Fault fault_;
};

}  // namespace marvello::fluids

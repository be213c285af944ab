#pragma once

#include <array>
#include <charconv>
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

/// A number for a sentence: ten digits at most, with a point whatever the locale.
inline std::string inText(double value) {
    std::array<char, 32> buffer{};
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, 10);
    return {buffer.data(), end.ptr};
}

/// A failure of the library; the text is one sentence for a person.
class PropertyError : public std::runtime_error {
  public:
    PropertyError(Fault fault, const std::string& text) : std::runtime_error(text), fault_(fault) {}

    Fault fault() const { return fault_; }

  private:
    Fault fault_;
};

}  // namespace marvello::fluids

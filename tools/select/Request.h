#pragma once

#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/clsProjectConditions.h"
#include "thermo/SaturationRange.h"
#include "tools/select/Choices.h"

namespace marvello::select {

/// Words of a command line or a batch file that cannot be carried out; `what()` is one sentence.
class BadRequest : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// One operating point on one series.
struct Request {
    std::string refrigerant;
    std::string series;  ///< The catalogue's name.
    std::string models = "*";
    int market = 0;
    clsProjectConditions conditions;
    bool hasAdvice = false;  ///< What ends each message is looked for too.

    Request();
};

/// An option of a request under the name that the command line and the columns of a batch file use.
struct RequestOption {
    std::string_view name;
    std::string_view help;
    void (*read)(Request&, const std::string& text, const Choices& choices);
};

std::span<const RequestOption> requestOptions();

/// Reads one option. Throws BadRequest with its name, the value and what is allowed.
void readOption(Request& request, const RequestOption& option, const std::string& text,
                const Choices& choices);

/// Throws BadRequest if an operating point lacks a temperature, or a value does not go with another one.
void checkConditions(const clsProjectConditions& conditions);
/// Throws BadRequest for an evaporating temperature above the condensing one.
void checkOrder(const clsProjectConditions& conditions);

/// Throws BadRequest if a request lacks what it needs, or a value does not go with another one.
void checkRequest(const Request& request);

/// Throws BadRequest for temperatures without saturation state, or in the wrong order.
void checkTemperatures(const Request& request, const SaturationRange& range);

/// A permitted range of numbers, both ends included.
struct Range {
    double minimum, maximum;
    const char* unit;
};
/// Reads a number of a range. Throws BadRequest with the value and what is allowed.
double numberIn(const std::string& text, const Range& range);
/// Reads a whole number. Throws BadRequest in the same way.
long long wholeNumberIn(const std::string& text, long long minimum, long long maximum);

/// The sentence that refuses a value: option, value and what is allowed.
std::string notOneOf(std::string_view option, const std::string& value,
                     const std::vector<std::string>& allowed);

}  // namespace marvello::select

#pragma once

#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "catalogue/clsProjectConditions.h"

namespace marvello::select {

/// Words of a command line or a batch file that cannot be carried out; `what()` is one sentence.
class BadRequest : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// One duty point on one series.
struct Request {
    std::string refrigerant;
    std::string series;  ///< The catalogue's name.
    std::string models = "*";
    int market = 0;
    clsProjectConditions conditions;

    Request();
};

/// An option of a request under the name that the command line and the columns of a batch file use.
struct RequestOption {
    std::string_view name;
    std::string_view help;
    /// Reads the option's text into a request. Raises BadRequest.
    void (*read)(Request&, const std::string& text);
};

std::span<const RequestOption> requestOptions();

/// Reads one option by name. Raises BadRequest, also for an unknown name.
void readOption(Request& request, std::string_view name, const std::string& text);

/// Raises BadRequest when a request lacks what it needs.
void checkRequest(const Request& request);

}  // namespace marvello::select

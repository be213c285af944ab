#pragma once

#include <CLI/CLI.hpp>

#include <map>
#include <string>

#include "tools/select/Request.h"

namespace marvello::select {

/// The options of a selection on the command line of a command.
class SelectionOptions {
  public:
    SelectionOptions() = default;
    SelectionOptions(const SelectionOptions&) = delete;  // the command writes into it
    SelectionOptions& operator=(const SelectionOptions&) = delete;

    /// Adds those that `offers` says to a command, all of them without it.
    void addTo(CLI::App& command, bool (*offers)(const RequestOption&) = nullptr);
    /// Reads those that were stated. Throws BadRequest.
    void read(Request& request, const Choices& choices) const;

  private:
    const CLI::App* command_ = nullptr;
    std::map<std::string, std::string> given_;  ///< By name of the option; only those that are offered.
};

}  // namespace marvello::select

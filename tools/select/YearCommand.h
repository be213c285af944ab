#pragma once

#include <CLI/CLI.hpp>

#include <map>
#include <string>

#include "tools/select/SelectionOptions.h"

namespace marvello::select {

/// The command "year" of marvello-select: what a plant takes, costs and emits over a year.
class YearCommand {
  public:
    /// Adds the command with its options.
    explicit YearCommand(CLI::App& app);

    bool isGiven() const { return command_->parsed(); }
    /// Carries it out and returns the exit status. Throws BadRequest, NothingMatches, DatabaseError,
    /// FluidLibraryError, and std::runtime_error for a profile that cannot be read.
    int run() const;

  private:
    CLI::App* command_;
    std::map<std::string, std::string> given_;  ///< By name; besides the options of a selection.
    SelectionOptions selection_;
    std::string language_;
    std::string folder_;
};

}  // namespace marvello::select

#pragma once

#include <CLI/CLI.hpp>

#include <map>
#include <string>

#include "tools/select/SelectionOptions.h"

namespace marvello::select {

/// The command "find" of marvello-select: the compressors for a needed capacity.
class FindCommand {
  public:
    /// Adds the command with its options.
    explicit FindCommand(CLI::App& app);

    bool isGiven() const { return command_->parsed(); }
    /// Carries it out and returns the exit status. Throws BadRequest, NothingMatches, DatabaseError and
    /// FluidLibraryError.
    int run() const;

  private:
    CLI::App* command_;
    std::map<std::string, std::string> given_;  ///< By name; besides the options of a selection.
    SelectionOptions selection_;
    bool isHeating_ = false;
    bool hasSteps_ = false;
    std::string format_ = "table";
    std::string language_;
    std::string folder_;
};

}  // namespace marvello::select

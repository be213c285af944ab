#pragma once

#include <CLI/CLI.hpp>

#include <map>
#include <string>

#include "tools/select/SelectionOptions.h"

namespace marvello::select {

/// The command "partload" of marvello-select: a compressor at its capacity steps or over its frequencies, and
/// what it comes to at shares of its full capacity.
class PartLoadCommand {
  public:
    /// Adds the command with its options.
    explicit PartLoadCommand(CLI::App& app);

    bool isGiven() const { return command_->parsed(); }
    /// Carries it out and returns the exit status. Throws BadRequest, NothingMatches, DatabaseError and
    /// FluidLibraryError.
    int run() const;

  private:
    CLI::App* command_;
    std::map<std::string, std::string> given_;  ///< By name; besides the options of a selection.
    SelectionOptions selection_;
    std::string language_;
    std::string folder_;
};

}  // namespace marvello::select

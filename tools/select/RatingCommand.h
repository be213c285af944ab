#pragma once

#include <CLI/CLI.hpp>

#include <map>
#include <string>

#include "tools/select/SelectionOptions.h"

namespace marvello::select {

/// The command "rating" of marvello-select: a compressor over its operating points, as a table or as
/// coefficients for other programs.
class RatingCommand {
  public:
    /// Adds the command with its options.
    explicit RatingCommand(CLI::App& app);

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

#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

#include "tools/select/SelectionOptions.h"

namespace marvello::select {

/// The command "compare" of marvello-select: compressors next to each other.
class CompareCommand {
  public:
    /// Adds the command with its options.
    explicit CompareCommand(CLI::App& app);

    bool isGiven() const { return command_->parsed(); }
    /// Carries it out and returns the exit status. Throws BadRequest, NothingMatches, DatabaseError and
    /// FluidLibraryError.
    int run() const;

  private:
    CLI::App* command_;
    std::vector<std::string> choices_;
    SelectionOptions selection_;
    std::string reference_ = "0";
    std::string format_ = "table";
    std::string language_;
    std::string folder_;
};

}  // namespace marvello::select

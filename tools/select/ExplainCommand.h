#pragma once

#include <CLI/CLI.hpp>

#include <string>

#include "tools/select/SelectionOptions.h"

namespace marvello::select {

/// The command "explain" of marvello-select: the calculation of a compressor, laid open.
class ExplainCommand {
  public:
    /// Adds the command with its options.
    explicit ExplainCommand(CLI::App& app);

    bool isGiven() const { return command_->parsed(); }
    /// Carries it out and returns the exit status. Throws BadRequest, NothingMatches, DatabaseError and
    /// FluidLibraryError.
    int run() const;

  private:
    CLI::App* command_;
    SelectionOptions selection_;
    std::string format_ = "text";
    std::string language_;
    std::string folder_;
};

}  // namespace marvello::select

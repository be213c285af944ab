#pragma once

#include <CLI/CLI.hpp>

#include <string>

#include "tools/select/SelectionOptions.h"

namespace marvello::select {

/// The command "cycle" of marvello-select: the cycle of one compressor, as data or as a picture.
class CycleCommand {
  public:
    /// Adds the command with its options.
    explicit CycleCommand(CLI::App& app);

    bool isGiven() const { return command_->parsed(); }
    /// Carries it out and returns the exit status. Throws BadRequest, NothingMatches, DatabaseError and
    /// FluidLibraryError.
    int run() const;

  private:
    CLI::App* command_;
    SelectionOptions selection_;
    std::string format_ = "json";
    std::string units_ = "si";
    std::string language_;
    std::string folder_;
};

}  // namespace marvello::select

#pragma once

#include <CLI/CLI.hpp>

#include <string>

#include "tools/select/SelectionOptions.h"

namespace marvello::select {

/// The command "map" of marvello-select: a compressor over its application limit.
class MapCommand {
  public:
    /// Adds the command with its options.
    explicit MapCommand(CLI::App& app);

    bool isGiven() const { return command_->parsed(); }
    /// Carries it out and returns the exit status. Throws BadRequest, NothingMatches, DatabaseError and
    /// FluidLibraryError.
    int run() const;

  private:
    CLI::App* command_;
    SelectionOptions selection_;
    std::string grid_ = "41x41";
    std::string format_ = "csv";
    std::string language_;
    std::string folder_;
};

}  // namespace marvello::select

#pragma once

#include <CLI/CLI.hpp>

#include <string>

namespace marvello::select {

/// The command "project" of marvello-select: the promised results of a project, calculated again.
class ProjectCommand {
  public:
    /// Adds the command with its options.
    explicit ProjectCommand(CLI::App& app);

    bool isGiven() const { return command_->parsed(); }
    /// Carries it out and returns the exit status. Throws BadRequest, DatabaseError, FluidLibraryError and
    /// ProjectFault.
    int run() const;

  private:
    CLI::App* command_;
    std::string file_;
    std::string format_ = "table";
    std::string language_;
    std::string folder_;
    bool isCheck_ = false;
};

}  // namespace marvello::select

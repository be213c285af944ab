#pragma once

#include <CLI/App.hpp>
#include <string>

namespace marvello {

/// The command "import": the text tables of a Jet database.
class ImportCommand {
  public:
    explicit ImportCommand(CLI::App& program);

    bool isGiven() const { return command_->parsed(); }
    /// Returns the exit status: 0 if all was taken, 1 if not. Throws std::runtime_error for what cannot be
    /// read or written.
    int run() const;

  private:
    CLI::App* command_;
    std::string file_;
    std::string folder_;
    std::string charset_;
};

}  // namespace marvello

#pragma once

#include <CLI/App.hpp>
#include <string>

namespace marvello {

/// The command "diff": what two catalogues differ in.
class DiffCommand {
  public:
    explicit DiffCommand(CLI::App& program);

    bool isGiven() const { return command_->parsed(); }
    /// Returns the exit status: 0 for equal catalogues, 1 for different ones, 2 with faulty tables. Throws
    /// std::runtime_error for what cannot be read.
    int run() const;

  private:
    CLI::App* command_;
    std::string before_;
    std::string after_;
    std::string format_ = "table";
    std::string output_;
    bool isWithoutResults_ = false;
};

}  // namespace marvello

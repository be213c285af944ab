#pragma once

#include <string>

namespace marvello::testing {

/// What a program said and how it ended.
struct Answer {
    int status = -1;
    std::string out;  ///< standard output, or standard error where that was asked for
};

enum class Listen { output, errors };

/// Runs a line of the shell.
Answer callCommand(const std::string& command);

/// Runs a program of the built application folder from a folder that is not its own.
Answer callProgram(const std::string& program, const std::string& arguments, Listen to = Listen::output);

/// A call that ends with a status and one line of reason.
struct Refusal {
    std::string arguments;
    std::string says;  ///< part of the line
    int status = 2;
};
void expectRefused(const std::string& program, const Refusal& refusal);

}  // namespace marvello::testing

#pragma once

#include <map>
#include <string>
#include <vector>

namespace marvello {

/// What another program wrote and how it ended.
struct ChildOutput {
    int status = 0;        ///< Of a program that a signal ended 128 and the number of the signal.
    std::string output{};  ///< Standard output.
    std::string errors{};  ///< Standard error.
};

/// Runs a program, found as the system finds commands, with arguments as they are (no shell reads them), an
/// empty input and `environment` in addition to that of this process, and waits for its end. Throws
/// std::system_error with std::errc::no_such_file_or_directory if there is no such program, and with another
/// code if it cannot be run.
ChildOutput runProgram(const std::string& program, const std::vector<std::string>& arguments,
                       const std::map<std::string, std::string>& environment = {});

}  // namespace marvello

#pragma once

#include <string>
#include <vector>

namespace marvello {

/// What is wrong with the content of a catalogue, each fault as one line "file:line: reason", and what is
/// only odd, as "file:line: warning: reason".
class Faults {
  public:
    void add(const std::string& file, int line, const std::string& reason) {
        lines_.push_back(file + ":" + std::to_string(line) + ": " + reason);
    }
    void add(const std::string& file, const std::string& reason) { lines_.push_back(file + ": " + reason); }

    void warn(const std::string& file, int line, const std::string& reason) {
        warnings_.push_back(file + ":" + std::to_string(line) + ": warning: " + reason);
    }
    void warn(const std::string& file, const std::string& reason) {
        warnings_.push_back(file + ": warning: " + reason);
    }

    /// No fault; there may be warnings.
    bool empty() const { return lines_.empty(); }
    const std::vector<std::string>& lines() const { return lines_; }
    const std::vector<std::string>& warnings() const { return warnings_; }

  private:
    std::vector<std::string> lines_;
    std::vector<std::string> warnings_;
};

}  // namespace marvello

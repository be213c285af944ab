#pragma once

#include <string>
#include <vector>

namespace marvello {

/// What is wrong with the content of a catalogue, each fault as one line "file:line: reason".
class Faults {
  public:
    void add(const std::string& file, int line, const std::string& reason) {
        lines_.push_back(file + ":" + std::to_string(line) + ": " + reason);
    }
    void add(const std::string& file, const std::string& reason) { lines_.push_back(file + ": " + reason); }

    bool empty() const { return lines_.empty(); }
    const std::vector<std::string>& lines() const { return lines_; }

  private:
    std::vector<std::string> lines_;
};

}  // namespace marvello

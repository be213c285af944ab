#pragma once

#include <functional>
#include <string>
#include <vector>

#include "data/Hooks.h"

namespace marvello {

/// While it lives, message boxes are collected instead of shown, each text once: a run over many compressors
/// says a thing once, and not for each of them. Restores the former hook.
class CollectedBoxes {
  public:
    CollectedBoxes();
    ~CollectedBoxes();
    CollectedBoxes(const CollectedBoxes&) = delete;
    CollectedBoxes& operator=(const CollectedBoxes&) = delete;

    struct Box {
        BoxKind kind;
        std::string text;
    };
    const std::vector<Box>& boxes() const { return boxes_; }

  private:
    std::vector<Box> boxes_;
    std::function<void(BoxKind, const std::string&)> former_;
};

}  // namespace marvello

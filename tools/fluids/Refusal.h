#pragma once

#include <stdexcept>

namespace marvello::properties {

/// What was asked for makes no sense or cannot be had; the text is one sentence for a person.
class Refusal : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace marvello::properties

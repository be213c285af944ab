#pragma once

#include <cstdio>

namespace marvello {

/// Whether a stream goes to a terminal, where a person reads it.
bool isTerminal(std::FILE* stream);

}  // namespace marvello

#pragma once

#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>

namespace marvello::fuzz {

/// Aborts when what was thrown is no sentence for a person but one of the standard library, which names its
/// functions.
inline void checkIsForPeople(const std::exception& refusal) {
    const std::string reason = refusal.what();
    bool tells = !reason.empty();
    for (const char* function : {"std::", "basic_string", "vector", "map::", "_Map", "stoi", "stod"})
        tells = tells && !reason.starts_with(function);
    if (tells) return;
    std::cerr << "A refusal that tells nothing: " << reason << '\n';
    std::abort();
}

}  // namespace marvello::fuzz

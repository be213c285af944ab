#pragma once

#include <optional>
#include <string>

namespace marvello {

/// The per-user value "section/name" of a product of Kestrom, in the platform's own store; nothing when there
/// is none. Throws std::runtime_error "number - reason" if the store cannot be read.
std::optional<std::string> readSetting(const std::string& product, const std::string& section,
                                       const std::string& name);

/// Stores a per-user value at once. Throws std::runtime_error "number - reason" if it cannot be stored.
void writeSetting(const std::string& product, const std::string& section, const std::string& name,
                  const std::string& value);

}  // namespace marvello

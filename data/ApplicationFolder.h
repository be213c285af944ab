#pragma once

#include <string>

namespace marvello {

/// The folder with the catalogue, the property library, `Fluids` and the pictures, without a separator at the
/// end: the folder of the running program unless another was set.
std::string applicationFolder();

/// Takes another folder, for tools and tests that are elsewhere. Blank goes back to the program's own.
void setApplicationFolder(const std::string& folder);

}  // namespace marvello

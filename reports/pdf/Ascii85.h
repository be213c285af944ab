#pragma once

#include <string>
#include <string_view>

namespace marvello {

/// The bytes in base 85, without a mark at the end and without line breaks (Adobe's ASCII85, PDF Reference
/// 1.3, section 3.3.2): five characters for four bytes, n + 1 for the last n, "z" for four zero bytes.
std::string ascii85(std::string_view bytes);

}  // namespace marvello

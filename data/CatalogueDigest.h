#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>

namespace marvello {

/// The table that holds the digest of a catalogue file, as text in the one row of its one column fDigest.
inline constexpr const char* digestTable = "tDigest";

/// The pages of a catalogue file as the digest goes over them.
struct CataloguePages {
    std::int64_t fileSize = 0;    ///< bytes
    std::int64_t pageSize = 0;    ///< bytes
    std::int64_t digestPage = 0;  ///< The number of the page that holds the digest, from 1; it is left out.
    /// Fills `bytes` from a position of the file; false if it cannot.
    std::function<bool(std::span<unsigned char> bytes, std::int64_t position)> read;
};

/// Returns the digest of a catalogue file: CRC-32 (ISO 3309, as zlib computes it) of all its bytes but the
/// page of the digest itself, and the size, in hexadecimal digits. Any flip within 32 bits in a row changes
/// it, and other damage in all but one of four thousand million cases. Returns an empty text if the file
/// cannot be read.
std::string catalogueDigest(const CataloguePages& pages);

/// The digits of a digest.
inline constexpr std::size_t digestLength = 24;

}  // namespace marvello

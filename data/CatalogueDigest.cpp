#include "data/CatalogueDigest.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

namespace marvello {

namespace {

/// The sum over a stretch of the file; false if it cannot be read.
bool addStretch(const CataloguePages& pages, std::int64_t from, std::int64_t to, uLong& sum) {
    constexpr std::int64_t most = 1 << 18;
    std::vector<unsigned char> bytes;
    for (std::int64_t at = from; at < to; at += static_cast<std::int64_t>(bytes.size())) {
        bytes.resize(static_cast<std::size_t>(std::min(most, to - at)));
        if (!pages.read(bytes, at)) return false;
        sum = crc32_z(sum, bytes.data(), bytes.size());
    }
    return true;
}

}  // namespace

std::string catalogueDigest(const CataloguePages& pages) {
    const std::int64_t begin = (pages.digestPage - 1) * pages.pageSize;
    const std::int64_t end = begin + pages.pageSize;
    if (pages.pageSize <= 0 || begin < 0 || end > pages.fileSize) return {};
    uLong sum = crc32_z(0, nullptr, 0);
    if (!addStretch(pages, 0, begin, sum) || !addStretch(pages, end, pages.fileSize, sum)) return {};
    std::array<char, digestLength + 1> text{};
    std::snprintf(text.data(), text.size(), "%08lx%016llx", sum,
                  static_cast<unsigned long long>(pages.fileSize));
    return text.data();
}

}  // namespace marvello

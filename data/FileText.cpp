#include "data/FileText.h"

#include <cstdio>
#include <fstream>
#include <ios>
#include <iterator>
#include <stdexcept>

namespace marvello {

std::optional<std::string> fileText(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) return std::nullopt;
    try {
        return std::string(std::istreambuf_iterator<char>(stream), {});
    } catch (const std::ios_base::failure&) {
        return std::nullopt;
    }
}

void printText(const std::string& text) {
    const bool isWritten = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (!isWritten || std::fflush(stdout) != 0) throw std::runtime_error("The output cannot be written.");
}

}  // namespace marvello

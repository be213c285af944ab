// Half of the changes put another number in the place of one: plain changes of bytes seldom leave a file that
// is taken, and what is taken must be solved.
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <random>
#include <string>
#include <utility>
#include <vector>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t room);

namespace {

bool isOfNumber(char c) {
    return std::isdigit(static_cast<unsigned char>(c)) != 0 || std::strchr("+-.eE", c) != nullptr;
}

/// Begin and length of each number that follows a blank, a bracket or a comma.
std::vector<std::pair<std::size_t, std::size_t>> numbersIn(const std::string& text) {
    std::vector<std::pair<std::size_t, std::size_t>> found;
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (std::strchr(" [,", text[i - 1]) == nullptr || text[i] == '\0') continue;
        if (text[i] != '-' && std::isdigit(static_cast<unsigned char>(text[i])) == 0) continue;
        std::size_t end = i;
        while (end < text.size() && text[end] != '\0' && isOfNumber(text[end])) ++end;
        found.emplace_back(i, end - i);
        i = end;
    }
    return found;
}

/// A little next to the number, far from it, or one of the limits.
double another(double number, std::minstd_rand& random) {
    constexpr double limits[]{0, 1, -1, 0.02, 0.1, 0.5, 10, 20, 100, 200, 1e5, 1e9, -200, 1e-300, 1e300};
    std::uniform_real_distribution<double> wide(-2, 2);
    switch (random() % 4) {
        case 0:
            return number * (1 + 1e-3 * wide(random));
        case 1:
            return number * (1 + 0.2 * wide(random));
        case 2:
            return number * 3 * wide(random);
        default:
            return limits[random() % std::size(limits)];
    }
}

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t room,
                                               unsigned int seed) {
    std::minstd_rand random(seed);
    std::string text(reinterpret_cast<const char*>(data), size);
    const auto numbers = numbersIn(text);
    if (numbers.empty() || random() % 2 == 0) return LLVMFuzzerMutate(data, size, room);
    const auto [begin, length] = numbers[random() % numbers.size()];
    char written[40];
    std::snprintf(written, sizeof written, "%.9g", another(std::strtod(&text[begin], nullptr), random));
    text.replace(begin, length, written);
    if (text.size() > room) return LLVMFuzzerMutate(data, size, room);
    std::memcpy(data, text.data(), text.size());
    return text.size();
}

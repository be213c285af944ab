#include "tools/select/NumberList.h"

#include <cmath>

#include "data/Numbers.h"
#include "data/Texts.h"

namespace marvello::select {

namespace {

std::vector<double> stepsOf(const std::vector<std::string>& parts, const std::string& text,
                            const Range& permitted, const std::string& noun) {
    const double first = numberIn(parts[0], permitted);
    const double last = numberIn(parts[1], permitted);
    const auto step = storedNumber(parts[2]);
    if (!step || *step <= 0 || last < first)
        throw BadRequest("\"" + text + "\" is not a range such as -20:10:5, from low to high");
    const double count = std::floor((last - first) / *step + 1e-9) + 1;
    if (count > static_cast<double>(maxListed))
        throw BadRequest("\"" + text + "\" has more than " + std::to_string(maxListed) + ' ' + noun + 's');
    constexpr double grain = 1e9;  // 0.1 three times is 0.3
    std::vector<double> values;
    for (double i = 0; i < count; ++i) values.push_back(std::nearbyint((first + i * *step) * grain) / grain);
    return values;
}

}  // namespace

std::vector<double> numbersIn(const std::string& text, const Range& permitted, const std::string& noun) {
    const auto parts = splitText(text, ':');
    if (parts.size() == 3) return stepsOf(parts, text, permitted, noun);
    if (parts.size() != 1)
        throw BadRequest("\"" + text + "\" is not a " + noun +
                         ", a list such as \"2;5\" or a range such as -20:10:5");
    std::vector<double> values;
    for (const std::string& part : splitText(text, ';')) values.push_back(numberIn(trimmed(part), permitted));
    return values;
}

}  // namespace marvello::select

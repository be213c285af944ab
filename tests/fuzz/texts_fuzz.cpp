// Any text as the line of an envelope, a number and a list of keys.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string_view>

#include "catalogue/clsLimits.h"
#include "data/Numbers.h"
#include "data/Texts.h"
#include "tests/fuzz/Refusal.h"

namespace {

using namespace marvello;

void tryLine(std::string_view text) {
    auto limit = std::make_shared<clsLimit>();
    try {
        limit->Points = parsePoints(text);
    } catch (const std::invalid_argument& refusal) {
        fuzz::checkIsForPeople(refusal);
        return;
    }
    clsLimits limits;
    limits.add(limit);
    const clsPoint first = limit->Points.Item(1);
    // Each point lies between the corners, and a corner of a line is on it.
    for (const clsPoint& point : limit->Points)
        if (point.x < limits.getLeftPoint()->x || point.Y < limits.getRightPoint()->Y) std::abort();
    if (limit->Points.Count() >= 4 && limits.GetLimitsFromPoint(first.x, first.Y).Count() != 1) std::abort();
    (void)limits.GetLimitsFromPoint(0, 0);
}

void tryNumber(std::string_view text) {
    for (const auto number : {storedNumber(text), localNumber(text)})
        if (number && storedNumber(storedText(*number)) != number) std::abort();
}

void tryList(std::string_view text) {
    const auto key = text.substr(0, text.find('|'));
    if (key.find(';') == std::string_view::npos && text.find('|') != std::string_view::npos &&
        ListLookup(key, text) != text.substr(key.size() + 1, text.find(';') - key.size() - 1))
        std::abort();
    (void)ListLookup(text, text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    tryLine(text);
    tryNumber(text);
    tryList(text);
    return 0;
}

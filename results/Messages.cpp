#include "results/Messages.h"

#include <algorithm>
#include <exception>

namespace marvello {

namespace {

std::string textOf(const clsMessage& message) {
    try {
        return message.Description();
    } catch (const std::exception&) {
        return message.Name;  // the catalogue lacks the text; its key says more than none
    }
}

}  // namespace

std::vector<ShownMessage> messagesOf(const clsCompressor& compressor) {
    std::vector<ShownMessage> shown;
    const auto add = [&shown](Severity severity, const clsMessages& messages) {
        for (const clsMessage& message : messages) {
            ShownMessage entry{severity, textOf(message), message.Name};
            const auto isSame = [&entry](const ShownMessage& other) {
                return other.severity == entry.severity && other.text == entry.text;
            };
            // A search may end in the same message twice; to a person it is one.
            if (std::ranges::none_of(shown, isSame)) shown.push_back(std::move(entry));
        }
    };
    add(Severity::error, compressor.Messages.Error);
    if (!shown.empty()) return shown;
    add(Severity::attention, compressor.Messages.Attention);
    add(Severity::information, compressor.Messages.Information);
    return shown;
}

}  // namespace marvello

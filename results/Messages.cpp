#include "results/Messages.h"

#include <algorithm>
#include <exception>

#include "data/DictionaryTexts.h"

namespace marvello {

namespace {

std::string textOf(const clsMessage& message) {
    try {
        const std::string text = message.Description();
        return text.empty() ? dictionaryText("messages.failedstep") : text;
    } catch (const std::exception&) {
        return message.Name;  // the catalogue lacks the text; its key says more than none
    }
}

}  // namespace

std::vector<ShownMessage> messagesOf(const clsCompressor& compressor) {
    std::vector<ShownMessage> shown;
    const auto add = [&shown](Severity severity, const clsMessages& messages) {
        for (const clsMessage& message : messages) {
            const std::string text = textOf(message);
            auto same = std::ranges::find_if(shown, [&](const ShownMessage& other) {
                return other.severity == severity && other.text == text;
            });
            // A search may end in the same message twice; to a person it is one.
            if (same == shown.end()) same = shown.insert(same, {severity, text, message.Name, {}});
            if (!message.Cause.empty()) same->causes.push_back(message.Cause);
        }
    };
    add(Severity::error, compressor.Messages.Error);
    if (!shown.empty()) return shown;
    add(Severity::attention, compressor.Messages.Attention);
    add(Severity::information, compressor.Messages.Information);
    return shown;
}

}  // namespace marvello

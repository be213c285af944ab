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

void add(std::vector<ShownMessage>& shown, Severity severity, const clsMessages& messages) {
    for (const clsMessage& message : messages) {
        const std::string text = textOf(message);
        auto same = std::ranges::find_if(shown, [&](const ShownMessage& other) {
            return other.severity == severity && other.text == text;
        });
        // A search may end in the same message twice; to a person it is one.
        if (same == shown.end()) same = shown.insert(same, {severity, text, message.Name, {}});
        if (!message.Cause.empty()) same->causes.push_back(message.Cause);
    }
}

}  // namespace

std::vector<ShownMessage> messagesOf(const ClsSelectionMessages& messages) {
    std::vector<ShownMessage> shown;
    add(shown, Severity::error, messages.Error);
    if (!shown.empty()) return shown;
    add(shown, Severity::attention, messages.Attention);
    add(shown, Severity::information, messages.Information);
    return shown;
}

std::vector<ShownMessage> messagesOf(const clsCompressor& compressor) {
    return messagesOf(compressor.Messages);
}

std::vector<ShownMessage> allMessagesOf(const clsCompressor& compressor) {
    std::vector<ShownMessage> shown;
    add(shown, Severity::error, compressor.Messages.Error);
    add(shown, Severity::attention, compressor.Messages.Attention);
    add(shown, Severity::information, compressor.Messages.Information);
    return shown;
}

}  // namespace marvello

#include "tools/select/MessagesJson.h"

namespace marvello::select {

const char* wordOf(Severity severity) {
    switch (severity) {
        case Severity::error:
            return "error";
        case Severity::attention:
            return "attention";
        case Severity::information:
            break;
    }
    return "information";
}

nlohmann::ordered_json messagesJson(const std::vector<ShownMessage>& messages) {
    auto list = nlohmann::ordered_json::array();
    for (const ShownMessage& message : messages) {
        list.push_back(
            {{"severity", wordOf(message.severity)}, {"name", message.key}, {"description", message.text}});
        if (!message.causes.empty()) list.back()["cause"] = message.causes.front();
    }
    return list;
}

}  // namespace marvello::select

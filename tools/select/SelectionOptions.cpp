#include "tools/select/SelectionOptions.h"

namespace marvello::select {

void SelectionOptions::addTo(CLI::App& command, bool (*offers)(const RequestOption&)) {
    command_ = &command;
    for (const RequestOption& option : requestOptions()) {
        if (offers != nullptr && !offers(option)) continue;
        const std::string name(option.name);
        command.add_option("--" + name, given_[name], std::string(option.help));
    }
}

void SelectionOptions::read(Request& request, const Choices& choices) const {
    for (const RequestOption& option : requestOptions()) {
        const std::string name(option.name);
        if (given_.contains(name) && command_->count("--" + name) > 0)
            readOption(request, option, given_.at(name), choices);
    }
}

}  // namespace marvello::select

#include "catalogue/ClsSelectionMessages.h"

#include <stdexcept>

#include "data/Numbers.h"
#include "data/Session.h"
#include "data/Texts.h"

namespace marvello {

void clsMessage::Format(std::string_view format, std::vector<MessageArgument> arguments) {
    isFormatName_ = format == Name;
    format_ = isFormatName_ ? std::string_view() : format;
    arguments_ = std::move(arguments);
}

std::string clsMessage::Description() const {
    if (format_.empty() && !isFormatName_) return description_;
    std::string text = lowered(isFormatName_ ? Name : format_);
    replaceAll(text, lowered(Name), gApplication().DictionaryRead(Name));
    for (std::size_t i = 0; i < arguments_.size(); ++i) {
        const auto* number = std::get_if<double>(&arguments_[i]);
        replaceAll(text, "{" + std::to_string(i) + "}",
                   number != nullptr ? localText(*number) : std::get<std::string>(arguments_[i]));
    }
    return text;
}

void clsMessages::add(std::string_view Name, std::string_view format, std::vector<MessageArgument> arguments,
                      std::string cause) {
    clsMessage& message = messages_.emplace_back();
    message.Name = Name;
    message.Cause = std::move(cause);
    message.Format(format, std::move(arguments));
}

const clsMessage& clsMessages::Item(int index) const {
    if (index < 1 || index > Count())
        throw std::out_of_range("There is no message " + std::to_string(index) + ".");
    return messages_[static_cast<std::size_t>(index) - 1];
}

}  // namespace marvello

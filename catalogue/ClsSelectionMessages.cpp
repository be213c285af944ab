#include "catalogue/ClsSelectionMessages.h"

#include <stdexcept>

#include "data/Numbers.h"
#include "data/Session.h"
#include "data/Texts.h"

namespace marvello {

void clsMessage::Format(std::string format, std::vector<std::string> arguments) {
    format_ = std::move(format);
    arguments_ = std::move(arguments);
}

std::string clsMessage::Description() const {
    if (format_.empty()) return description_;
    std::string text = lowered(format_);
    replaceAll(text, lowered(Name), gApplication().DictionaryRead(Name));
    for (std::size_t i = 0; i < arguments_.size(); ++i) {
        replaceAll(text, "{" + std::to_string(i) + "}", arguments_[i]);
    }
    return text;
}

void clsMessages::add(const std::string& Name, const std::string& format,
                      const std::vector<MessageArgument>& arguments, std::string cause) {
    std::vector<std::string> texts;
    for (const MessageArgument& argument : arguments) {
        const auto* number = std::get_if<double>(&argument);
        texts.push_back(number != nullptr ? localText(*number) : std::get<std::string>(argument));
    }
    clsMessage message;
    message.Name = Name;
    message.Cause = std::move(cause);
    message.Format(format, std::move(texts));
    messages_.push_back(std::move(message));
}

const clsMessage& clsMessages::Item(int index) const {
    if (index < 1 || index > Count())
        throw std::out_of_range("There is no message " + std::to_string(index) + ".");
    return messages_[static_cast<std::size_t>(index) - 1];
}

}  // namespace marvello

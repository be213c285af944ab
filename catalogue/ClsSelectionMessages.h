#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace marvello {

/// An argument of a message: a text or a number, which becomes text with the locale's decimal mark.
using MessageArgument = std::variant<std::string, double>;

/// One message under a dictionary key. Its text is made when it is read, so that it follows a change of
/// language.
class clsMessage {
  public:
    std::string Name;   ///< The dictionary key.
    std::string Cause;  ///< What failed: variable, call and the library's own sentence; mostly empty.

    /// Stores a format and its arguments.
    void Format(std::string_view format, std::vector<MessageArgument> arguments);
    void setDescription(std::string description) { description_ = std::move(description); }

    /// Without a format the stored description. Otherwise the format in lower case, the key in it replaced by
    /// its dictionary text and each "{i}" by argument i. Throws UnknownTextKey.
    std::string Description() const;

  private:
    std::string description_;
    std::string format_;
    bool isFormatName_ = false;  ///< The format is the key, as that of most messages, and not stored again.
    std::vector<MessageArgument> arguments_;
};

/// Messages in the order of adding; a key may come twice.
class clsMessages {
  public:
    void add(std::string_view Name, std::string_view format, std::vector<MessageArgument> arguments = {},
             std::string cause = {});
    /// By position from 1. Throws std::out_of_range.
    const clsMessage& Item(int index) const;
    int Count() const { return static_cast<int>(messages_.size()); }
    void Clear() { messages_.clear(); }

    auto begin() const { return messages_.begin(); }
    auto end() const { return messages_.end(); }

  private:
    std::vector<clsMessage> messages_;
};

/// How much a message weighs, the worst first.
enum class Severity { error, attention, information };

/// What the engine has to say about one compressor.
struct ClsSelectionMessages {
    clsMessages Error;
    clsMessages Attention;
    clsMessages Information;

    void Clear() {
        Error.Clear();
        Attention.Clear();
        Information.Clear();
    }
};

}  // namespace marvello

#pragma once

#include <string>
#include <vector>

#include "catalogue/clsCompressor.h"

namespace marvello {

/// A message about a compressor as people read it.
struct ShownMessage {
    Severity severity = Severity::error;
    std::string text;
    std::string key;                  ///< of the dictionary
    std::vector<std::string> causes;  ///< what failed: variable, call and the library's own sentence
};

/// Returns the errors of a compressor, or without errors its warnings and notes. Equal messages are one, with
/// the causes of all.
std::vector<ShownMessage> messagesOf(const clsCompressor& compressor);

std::vector<ShownMessage> messagesOf(const ClsSelectionMessages& messages);

/// Returns the warnings and notes beside the errors too.
std::vector<ShownMessage> allMessagesOf(const clsCompressor& compressor);

}  // namespace marvello

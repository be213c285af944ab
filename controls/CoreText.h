#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace marvello {

/// Texts between the windows and the modules without Qt, which are UTF-8.
inline QString fromCore(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string toCore(const QString& text) { return text.toStdString(); }

}  // namespace marvello

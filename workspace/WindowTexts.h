#pragma once

#include <QLocale>
#include <QString>
#include <QStringList>
#include <string>
#include <string_view>

namespace marvello {

inline QString fromCore(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string toCore(const QString& text) { return text.toStdString(); }

/// The text of a dictionary key in the user's language. A key that the catalogue lacks stands for itself, so
/// that the window still comes up and the gap can be seen.
QString dictionaryText(const QString& key);

/// As above; an empty text for a key that the catalogue lacks, for texts that a window can do without.
QString dictionaryTextIfAny(const QString& key);

/// The reason of a failure in the user's language: the text of a dictionary key; any other reason stays as it
/// is.
QString reasonText(const QString& reason);

/// The text of a menu without the mark of its access key: "&File" or, in a script without Latin letters,
/// "Text(&T)".
QString withoutAccessKey(QString text);

/// The locale of the user's language, for what the platform writes: dates, and the texts of its own dialogs.
QLocale userLocale();

/// A text with "{0}", "{1}", ... replaced by the arguments.
QString filled(const QString& text, const QStringList& arguments);

}  // namespace marvello

#pragma once

#include <QLocale>
#include <QString>
#include <QStringList>

#include "controls/CoreText.h"

namespace marvello {

/// The functions of data/DictionaryTexts.h for windows.
QString dictionaryText(const QString& key);
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

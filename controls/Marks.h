#pragma once

#include <QString>
#include <QStringList>

namespace marvello::mark {

// The names of the marks: each is a picture of the resource folder, and its text the dictionary key
// "general." + name.
inline const QString possible = QStringLiteral("ledgreen");
inline const QString withWarnings = QStringLiteral("ledorange");
inline const QString notPossible = QStringLiteral("ledred");
inline const QString group = QStringLiteral("ledblue");  ///< without a text
inline const QString error = QStringLiteral("msgerror");
inline const QString attention = QStringLiteral("msgattention");
inline const QString information = QStringLiteral("msginformation");

inline const QStringList withText{possible, withWarnings, notPossible, error, attention, information};

}  // namespace marvello::mark

#pragma once

#include <QSettings>
#include <QString>

namespace marvello {

/// What a product of Kestrom keeps for the user between starts. While the platform's settings file is no
/// regular file (a pipe would stop the program, a device would be replaced), settings last until the program
/// ends.
QSettings userSettings(const QString& product = QStringLiteral("Marvello"));

}  // namespace marvello

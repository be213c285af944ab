#pragma once

#include <QSettings>
#include <QString>

namespace marvello {

/// What a product of Kestrom keeps for the user between starts. While the platform's settings file is no
/// regular file (a pipe would stop the program, a device would be replaced), settings last until the program
/// ends.
QSettings userSettings(const QString& product = QStringLiteral("Marvello"));

/// Where a dialog for files begins: the folder that is kept under a key, else that of the user's documents,
/// else the user's own; the first of them that is there.
QString keptFolder(const QString& key);

}  // namespace marvello

#pragma once

#include <QSettings>
#include <QString>

namespace marvello {

/// What the windows keep for the user between starts.
inline QSettings userSettings() { return QSettings(QStringLiteral("Kestrom"), QStringLiteral("Marvello")); }

/// Where a dialog for files begins: the folder that is kept under a key, else that of the user's documents,
/// else the user's own; the first of them that is there.
QString keptFolder(const QString& key);

}  // namespace marvello

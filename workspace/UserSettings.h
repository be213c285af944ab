#pragma once

#include <QSettings>

namespace marvello {

/// What the windows keep for the user between starts.
inline QSettings userSettings() { return QSettings(QStringLiteral("Kestrom"), QStringLiteral("Marvello")); }

}  // namespace marvello

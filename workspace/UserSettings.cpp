#include "workspace/UserSettings.h"

#include <QDir>
#include <QStandardPaths>

namespace marvello {

QString keptFolder(const QString& key) {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    for (const QString& folder : {userSettings().value(key).toString(), documents})
        if (!folder.isEmpty() && QDir(folder).exists()) return folder;
    return QDir::homePath();
}

}  // namespace marvello

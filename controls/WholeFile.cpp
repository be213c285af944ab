#include "controls/WholeFile.h"

#include <QFileInfo>
#include <QSaveFile>

namespace marvello {

bool mayBeWritten(const QString& path) {
    const QFileInfo there(path);
    return !there.exists() || there.isFile();
}

QString writeWholeFile(const QString& path, const QByteArray& bytes, QIODevice::OpenMode mode) {
    if (!mayBeWritten(path)) return QStringLiteral("general.noregularfile");
    QSaveFile file(path);
    if (!file.open(mode)) return file.errorString();
    // A disk that fills up takes a part without complaint; only the next write says what is wrong.
    for (qint64 done = 0; done < bytes.size();) {
        const qint64 written = file.write(bytes.constData() + done, bytes.size() - done);
        if (written <= 0) return file.errorString();
        done += written;
    }
    // Committing flushes too, but takes no notice of a failure there.
    return file.flush() && file.commit() ? QString() : file.errorString();
}

}  // namespace marvello

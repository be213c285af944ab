#include "app/FirstInstance.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace marvello {

namespace {

/// True if the lock was taken.
bool taken(QLockFile& lock) {
    constexpr int moment = 200;  // milliseconds, in which another start may be about to write the file
    lock.setStaleLockTime(0);    // a lock is stale when its process is gone, at no age
    // A folder that takes no lock file is no second instance.
    if (lock.tryLock(moment) || lock.error() != QLockFile::LockFailedError) return true;
    // What the file says may be lost, by a sudden end just then, or of a machine that had another name. The
    // system's own lock on it ends with its process: who gets that may take the file away.
    return lock.removeStaleLockFile() && lock.tryLock();
}

QString callFile() { return instanceLockFile() + QStringLiteral(".call"); }

bool writeCall(const QByteArray& text) {
    QFile file(callFile());
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
}

}  // namespace

QString instanceLockFile() {
    QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (folder.isEmpty()) folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    QDir().mkpath(folder);
    return QDir(folder).filePath(QStringLiteral("marvello.lock"));
}

FirstInstance::FirstInstance() : lock_(instanceLockFile()), isThis_(taken(lock_)) {}

FirstInstance::~FirstInstance() {
    if (isThis_ && !calls_.files().isEmpty()) QFile::remove(callFile());
}

void FirstInstance::call() {
    writeCall(QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs).toUtf8());
}

void FirstInstance::whenCalled(const std::function<void()>& answer) {
    // A file that is not there cannot be watched.
    if (!writeCall({}) || !calls_.addPath(callFile())) return;
    QObject::connect(&calls_, &QFileSystemWatcher::fileChanged, &calls_, [answer] {
        // Emptying the file comes before the call itself.
        if (QFile(callFile()).size() > 0) answer();
    });
}

}  // namespace marvello

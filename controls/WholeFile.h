#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QString>

namespace marvello {

/// True if a file may be written under this name: nothing is there, or a regular file, also behind a link.
/// False for a folder, a device, a pipe or a socket.
bool mayBeWritten(const QString& path);

/// Writes a file as a whole: to a file next to it, which takes its place when every byte is there, so that a
/// failure leaves the old one. Never replaces what is not a regular file. Returns an empty text after
/// success, otherwise the reason why not: that of the system, or a key of the dictionary.
QString writeWholeFile(const QString& path, const QByteArray& bytes,
                       QIODevice::OpenMode mode = QIODevice::WriteOnly);

}  // namespace marvello

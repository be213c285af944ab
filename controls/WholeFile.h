#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QString>

namespace marvello {

/// Writes a file as a whole: to a file beside it, which takes its place when every byte is there, so that a
/// failure leaves the old one. Empty when it is done, otherwise the reason why not, of the system.
QString writeWholeFile(const QString& path, const QByteArray& bytes,
                       QIODevice::OpenMode mode = QIODevice::WriteOnly);

}  // namespace marvello

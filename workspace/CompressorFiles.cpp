#include "workspace/CompressorFiles.h"

#include <QFileInfo>
#include <QImageReader>

#include "data/Session.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

/// The file with the first of the names that a folder of the application folder has; empty without any.
QString fileOf(const QString& folder, const QStringList& names, const QString& extension) {
    const QString path = fromCore(Session::current().applicationFolder) + folder;
    for (const QString& name : names)
        if (const QString file = path + name + extension; QFileInfo(file).isFile()) return file;
    return {};
}

}  // namespace

QImage readPhoto(const QString& serie, const QString& model) {
    // A file of another kind under this name, such as a drawing with scripts in it, reaches no other reader.
    const QString file =
        fileOf(QStringLiteral("/images/photos/"), {serie + u'-' + model, serie, QStringLiteral("Kestrom")},
               QStringLiteral(".jpg"));
    QImageReader reader(file, "jpeg");
    reader.setAutoDetectImageFormat(false);
    return reader.read();
}

QString drawingFile(const QString& serie, const QString& model) {
    return fileOf(QStringLiteral("/Images/Dimensions/"), {serie + u'-' + model, serie},
                  QStringLiteral(".wmf"));
}

}  // namespace marvello

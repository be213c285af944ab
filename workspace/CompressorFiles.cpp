#include "workspace/CompressorFiles.h"

#include <QFileInfo>
#include <QImageReader>

#include "data/Session.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

/// The file of the model or of its series in a folder of the application folder; empty without either.
QString fileOf(const QString& folder, const QString& serie, const QString& model, const QString& extension) {
    const QString path = fromCore(Session::current().applicationFolder) + folder;
    for (const QString& name : {serie + u'-' + model, serie})
        if (const QString file = path + name + extension; QFileInfo(file).isFile()) return file;
    return {};
}

}  // namespace

QString photoFile(const QString& serie, const QString& model) {
    const QString folder = QStringLiteral("/images/photos/");
    const QString file = fileOf(folder, serie, model, QStringLiteral(".jpg"));
    return file.isEmpty()
               ? fromCore(Session::current().applicationFolder) + folder + QStringLiteral("Kestrom.jpg")
               : file;
}

QImage readPhoto(const QString& serie, const QString& model) {
    // A file of another kind under this name, such as a drawing with scripts in it, reaches no other reader.
    QImageReader reader(photoFile(serie, model), "jpeg");
    reader.setAutoDetectImageFormat(false);
    return reader.read();
}

QString drawingFile(const QString& serie, const QString& model) {
    return fileOf(QStringLiteral("/Images/Dimensions/"), serie, model, QStringLiteral(".wmf"));
}

}  // namespace marvello

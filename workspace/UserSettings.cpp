#include "workspace/UserSettings.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include "controls/WholeFile.h"

namespace marvello {

namespace {

const QString maker = QStringLiteral("Kestrom");

/// The files that the platform's store reads for a product: its own, and the maker's for all products.
bool filesAreRegular(const QString& product) {
    // The folder is asked of a store that has no file: to open one reads it.
    const QSettings none(QStringLiteral("Kestrom.none"));
    const QString folder = QFileInfo(none.fileName()).path() + u'/';
    return mayBeWritten(folder + maker + u'/' + product + QStringLiteral(".conf")) &&
           mayBeWritten(folder + maker + QStringLiteral(".conf"));
}

}  // namespace

QSettings userSettings(const QString& product) {
    if (filesAreRegular(product)) return QSettings(maker, product);
    static const QTemporaryDir untilTheEnd;
    return QSettings(untilTheEnd.filePath(product), QSettings::IniFormat);
}

}  // namespace marvello

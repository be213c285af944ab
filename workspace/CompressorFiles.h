#pragma once

#include <QImage>
#include <QString>

namespace marvello {

/// The photo of a model in the application folder: its own, else that of its series, else the maker's. Null
/// where the file holds no picture of its kind, whatever its name says.
QImage readPhoto(const QString& serie, const QString& model);

/// The dimension drawing of a model in the application folder: its own, else that of its series. Empty
/// without either.
QString drawingFile(const QString& serie, const QString& model);

}  // namespace marvello

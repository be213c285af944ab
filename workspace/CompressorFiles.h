#pragma once

#include <QImage>
#include <QString>

namespace marvello {

/// The photo of a model in the application folder: its own, else that of its series, else the maker's. The
/// file of the last need not be there.
QString photoFile(const QString& serie, const QString& model);

/// What is in it, whatever kind of picture its name says; null without a picture.
QImage readPhoto(const QString& serie, const QString& model);

/// The dimension drawing of a model in the application folder: its own, else that of its series. Empty
/// without either.
QString drawingFile(const QString& serie, const QString& model);

}  // namespace marvello

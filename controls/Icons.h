#pragma once

#include <QColor>
#include <QIcon>
#include <QRectF>
#include <QString>

class QPainter;

namespace marvello {

/// A tool or menu icon of the resource folder, tinted by its state: text, disabled, or accent when it is
/// checked. Sharp at any size and device pixel ratio.
QIcon icon(const QString& name);

/// A mark, by its name in Marks.h, in the colours of the current look.
QIcon markIcon(const QString& name);

/// Paints an icon in one colour.
void paintIcon(QPainter& painter, const QRectF& rect, const QString& name, const QColor& colour);

/// Paints a mark in the colours of the current look.
void paintMark(QPainter& painter, const QRectF& rect, const QString& name);

/// The same for paper: as curves, which stay sharp at any resolution, and a mark in the colours of light.
void paintIconOnPaper(QPainter& painter, const QRectF& rect, const QString& name, const QColor& colour);
void paintMarkOnPaper(QPainter& painter, const QRectF& rect, const QString& name);

}  // namespace marvello

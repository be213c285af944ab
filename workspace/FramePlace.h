#pragma once

#include <QByteArray>
#include <QRect>

class QWidget;

namespace marvello {

/// A rectangle of the size of `wanted` as far as it fits into `available`, moved as little as possible to lie
/// inside. All in logical pixels.
QRect fittedInto(const QRect& wanted, const QRect& available);

/// Gives a main window that is not shown yet the place that QWidget::saveGeometry kept for it. Whatever the
/// bytes hold, the window lies on a screen that is there; maximized stays maximized. Without a sound place
/// the window gets its usual size in the middle of the primary screen, and is maximized where that is too
/// large.
void placeFrame(QWidget& window, const QByteArray& kept);

}  // namespace marvello

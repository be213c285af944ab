#pragma once

#include <QColor>

namespace marvello {

/// Returns the colour of a band of a map: one ramp whose lightness changes in even steps, so that it can be
/// read with any colour vision and in grey. `band` counts from 0, the lowest values.
QColor mapColour(int band, int bands, bool isDark);

}  // namespace marvello

#pragma once

#include <QStringList>

namespace marvello {

/// Returns the row that is meant by what a person typed, -1 without one: the row of that very name, else the
/// next one that begins with it. One letter typed again and again goes through all rows that begin with it.
/// Letters are compared without regard to case; `current` is the row to go on from, -1 at the start.
int typedChoice(const QStringList& rows, const QString& typed, int current);

}  // namespace marvello

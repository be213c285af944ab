#pragma once

#include <QString>

#include "engine/Performance.h"
#include "engine/Verdict.h"
#include "results/Messages.h"

namespace marvello {

/// Returns the name of the mark (controls/Marks.h) of a verdict, and of a message.
QString markOf(Verdict verdict);
QString markOf(Severity severity);
/// That of a list, for a state or a point of a table.
QString markOf(PointState state);

/// Returns what a mark says, for a screen reader, in the user's language.
QString markText(const QString& mark);

}  // namespace marvello

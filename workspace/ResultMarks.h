#pragma once

#include <QString>

#include "engine/Verdict.h"
#include "results/Messages.h"

namespace marvello {

/// Returns the name of the mark (controls/Marks.h) of a verdict, and of a message.
QString markOf(Verdict verdict);
QString markOf(Severity severity);

/// Returns what a mark says, for a screen reader, in the user's language.
QString markText(const QString& mark);

}  // namespace marvello

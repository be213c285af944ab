#pragma once

#include <QStringList>

#include "inputs/SelectionInputs.h"

namespace marvello {

/// Returns the refrigerants and series of a search in a few words: "6 refrigerants · all series".
QString searchSubject(const SelectionInputs& inputs);

/// Returns what a search asks for and its operating point, each in a few words.
QStringList searchTexts(const SelectionInputs& inputs);

}  // namespace marvello

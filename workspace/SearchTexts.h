#pragma once

#include <QStringList>

#include "inputs/SelectionInputs.h"

namespace marvello {

/// Returns the refrigerants and series of a search in a few words: "6 refrigerants · all series".
QString searchSubject(const SelectionInputs& inputs);

/// Returns a tolerance with its sign: "+20 %".
QString percentText(double percent);

/// Returns what a search asks for and its operating point, each in a few words.
QStringList searchTexts(const SelectionInputs& inputs);

}  // namespace marvello

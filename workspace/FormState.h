#pragma once

#include <QHash>
#include <QString>

#include "inputs/SelectionInputs.h"

namespace marvello {

/// What a selection form leaves to the next one: its inputs, and how wide the user made the columns of its
/// list, by their keys.
struct FormState {
    InputState inputs;
    QHash<QString, int> columnWidths;

    bool isEmpty() const { return inputs.isEmpty(); }
};

}  // namespace marvello

#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include "inputs/SelectionInputs.h"

namespace marvello {

/// What a form leaves to the next one of its kind: its inputs, and what the user made of its list.
struct FormState {
    InputState inputs;
    QHash<QString, int> columnWidths;  ///< by the keys of the columns
    QStringList switchedColumns{};     ///< shown or hidden by the user, against what the list begins with
    QStringList filters{};             ///< of a list with filters
    QString mapQuantity{};             ///< on the page of the limits; empty for none

    bool isEmpty() const { return inputs.isEmpty(); }
};

}  // namespace marvello

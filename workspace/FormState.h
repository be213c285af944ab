#pragma once

#include <QHash>
#include <QString>

#include "workspace/CoupleLeaders.h"

namespace marvello {

/// What a selection form leaves to the next one: its inputs by the names of their fields, and how
/// wide the user made the columns of its list, by their keys. Values are in the units of the form.
struct FormState {
    int measureUnit = 0;  ///< 0 metric, 1 imperial
    QHash<QString, QString> keys;
    QHash<QString, double> values;
    QHash<QString, int> columnWidths;
    CoupleLeaders leaders;

    bool isEmpty() const { return keys.isEmpty(); }
};

}  // namespace marvello

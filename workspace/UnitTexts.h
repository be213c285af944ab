#pragma once

#include <QLocale>
#include <QString>

#include "inputs/SelectionInputs.h"

namespace marvello {

/// Returns what the user reads of an input, with its unit: "2.00 °C".
QString withUnit(const SelectionInputs& inputs, Input input);

/// Fills the temperatures and temperature differences of a text in a system of units: "{T:-50}" is -50
/// degrees Celsius and "{D:5}" a difference of 5 K. A sign that is written out stays: "{T:+15}".
QString inUnits(const QString& text, UnitSystem system, const QLocale& locale = QLocale());

}  // namespace marvello

#pragma once

#include <QLocale>
#include <QString>

#include "thermo/UnitSystem.h"

namespace marvello {

class AdvanceText;

/// Returns "2.00 °C": a value followed by its unit, if it has one.
QString withUnit(const QString& value, const QString& unit);
/// Returns what a field shows, with its unit.
QString withUnit(const AdvanceText& field);

/// Fills the temperatures and temperature differences of a text in a system of units: "{T:-50}" is -50
/// degrees Celsius and "{D:5}" a difference of 5 K. A sign that is written out stays: "{T:+15}".
QString inUnits(const QString& text, UnitSystem system, const QLocale& locale = QLocale());

}  // namespace marvello

#pragma once

namespace marvello {

/// The measure systems of a form, by the keys of their selector. The engine works in metric values alone.
enum class MeasureSystem { metric = 0, imperial = 1 };

/// Converts a value of one quantity between two systems.
using UnitRule = double (*)(double value, MeasureSystem from, MeasureSystem to);

/// A temperature between degrees Celsius and Fahrenheit.
double convertedTemperature(double value, MeasureSystem from, MeasureSystem to);
/// A difference of temperatures between K and degrees Fahrenheit.
double convertedDifference(double value, MeasureSystem from, MeasureSystem to);
/// An absolute pressure between bar and psi.
double convertedPressure(double value, MeasureSystem from, MeasureSystem to);

}  // namespace marvello

#pragma once

namespace marvello {

/// The systems of units of a form, by the keys of their selector. The engine works in metric values alone.
enum class UnitSystem { metric = 0, imperial = 1 };

/// Converts a value of one quantity between two systems.
using UnitRule = double (*)(double value, UnitSystem from, UnitSystem to);

/// A temperature between degrees Celsius and Fahrenheit.
double convertedTemperature(double value, UnitSystem from, UnitSystem to);
/// A difference of temperatures between K and degrees Fahrenheit.
double convertedDifference(double value, UnitSystem from, UnitSystem to);
/// A cooling or heating capacity between kW and tons of refrigeration.
double convertedCapacity(double value, UnitSystem from, UnitSystem to);
/// A mass flow between kg/h and lb/h.
double convertedMassFlow(double value, UnitSystem from, UnitSystem to);
/// An absolute pressure between bar and psi.
double convertedPressure(double value, UnitSystem from, UnitSystem to);
/// A specific enthalpy between kJ/kg and Btu/lb.
double convertedEnthalpy(double value, UnitSystem from, UnitSystem to);
/// A specific entropy between kJ/(kg K) and Btu/(lb R).
double convertedEntropy(double value, UnitSystem from, UnitSystem to);
/// A density between kg/m^3 and lb/ft^3.
double convertedDensity(double value, UnitSystem from, UnitSystem to);

}  // namespace marvello

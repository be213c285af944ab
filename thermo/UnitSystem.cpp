#include "thermo/UnitSystem.h"

#include <cmath>

#include "thermo/clsConvert.h"

namespace marvello {

namespace {

constexpr double fahrenheitInKelvin = 1.8;

/// To a thousand millionth: the last bits of a conversion must not decide on which side of a limit a
/// temperature is, such as 2 degrees Celsius typed as 35.6 degrees Fahrenheit.
double withoutNoise(double value) {
    constexpr double steps = 1e9;
    constexpr double exact = 1e6;  // beyond it no bits are left
    return std::abs(value) > exact ? value : std::nearbyint(value * steps) / steps;
}

/// The numbers of the systems are those of the unit sets. Any molar mass does: both are by mass.
double convertedProperty(double value, int property, UnitSystem from, UnitSystem to) {
    if (from == to) return value;
    clsConvert source;
    clsConvert target;
    source.Initialize(static_cast<int>(from), 1);
    target.Initialize(static_cast<int>(to), 1);
    return target.ConvertUnitsApp(source.ConvertUnitsRefprop(value, property), property);
}

}  // namespace

double convertedTemperature(double value, UnitSystem from, UnitSystem to) {
    if (from == to) return value;
    return withoutNoise(clsConvert().ConvertValue(value, to == UnitSystem::imperial
                                                             ? conversion::celsiusToFahrenheit
                                                             : conversion::fahrenheitToCelsius));
}

double convertedDifference(double value, UnitSystem from, UnitSystem to) {
    if (from == to) return value;
    return withoutNoise(to == UnitSystem::imperial ? value * fahrenheitInKelvin : value / fahrenheitInKelvin);
}

double convertedCapacity(double value, UnitSystem from, UnitSystem to) {
    if (from == to) return value;
    return withoutNoise(clsConvert().ConvertValue(
        value, to == UnitSystem::imperial ? conversion::kilowattsToTons : conversion::tonsToKilowatts));
}

double convertedMassFlow(double value, UnitSystem from, UnitSystem to) {
    if (from == to) return value;
    const double pounds = clsConvert().ConvertValue(1, conversion::kilogramsToPounds);
    return withoutNoise(to == UnitSystem::imperial ? value * pounds : value / pounds);
}

double convertedPressure(double value, UnitSystem from, UnitSystem to) {
    return convertedProperty(value, property::pressure, from, to);
}

double convertedEnthalpy(double value, UnitSystem from, UnitSystem to) {
    return convertedProperty(value, property::enthalpy, from, to);
}

double convertedEntropy(double value, UnitSystem from, UnitSystem to) {
    return convertedProperty(value, property::entropy, from, to);
}

double convertedDensity(double value, UnitSystem from, UnitSystem to) {
    return convertedProperty(value, property::density, from, to);
}

}  // namespace marvello

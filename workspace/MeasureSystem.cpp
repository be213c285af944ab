#include "workspace/MeasureSystem.h"

#include "thermo/clsConvert.h"

namespace marvello {

namespace {

constexpr int celsiusToFahrenheit = 2;
constexpr int fahrenheitToCelsius = 4;
constexpr double fahrenheitInKelvin = 1.8;
constexpr int pressureCode = 1;

}  // namespace

double convertedTemperature(double value, MeasureSystem from, MeasureSystem to) {
    if (from == to) return value;
    return clsConvert().ConvertValue(
        value, to == MeasureSystem::imperial ? celsiusToFahrenheit : fahrenheitToCelsius);
}

double convertedDifference(double value, MeasureSystem from, MeasureSystem to) {
    if (from == to) return value;
    return to == MeasureSystem::imperial ? value * fahrenheitInKelvin : value / fahrenheitInKelvin;
}

double convertedPressure(double value, MeasureSystem from, MeasureSystem to) {
    if (from == to) return value;
    // The numbers of the systems are those of the unit sets.
    clsConvert source;
    clsConvert target;
    source.Initialize(static_cast<int>(from));
    target.Initialize(static_cast<int>(to));
    return target.ConvertUnitsApp(source.ConvertUnitsRefprop(value, pressureCode), pressureCode);
}

}  // namespace marvello

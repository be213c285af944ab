#include "tools/generate/Motor.h"

#include <cmath>
#include <numbers>
#include <vector>

#include "tools/generate/Surface.h"

namespace marvello::generate {
namespace {

constexpr double volts = 400;

/// Current drawn at an absorbed power. The reactive share is the magnetizing current and a leakage that grows
/// with the square of the load; at the rating the power factor is 0.88.
double drawn(double power, double rating) {
    constexpr double magnetizing = 0.32;
    constexpr double leakage = 0.22;
    const double atRating = rating * 1000 / (std::numbers::sqrt3 * volts);
    const double active = power / rating;
    return atRating * std::hypot(active, magnetizing + leakage * active * active);
}

/// The size under which the motor is sold: the next horsepower of the usual row.
std::string nominalText(double absorbed) {
    constexpr std::array sizes{15, 20, 25,  30,  35,  40,  45,  50,  60,  70,
                               80, 90, 100, 110, 125, 140, 160, 180, 210, 240};
    constexpr double efficiency = 0.93;
    constexpr double kilowattsAHorsepower = 0.7457;
    const double shaft = absorbed * efficiency / kilowattsAHorsepower;
    int chosen = sizes.back();
    for (auto size = sizes.rbegin(); size != sizes.rend(); ++size) {
        if (*size >= shaft) chosen = *size;
    }
    return std::to_string(chosen) + " hp (" +
           std::to_string(static_cast<int>(std::nearbyint(chosen * kilowattsAHorsepower))) + " kW)";
}

double toTenth(double value) { return std::nearbyint(value * 10) / 10; }

}  // namespace

double Motor::currentAt(double power) const {
    double sum = 0;
    for (auto coefficient = current.rbegin(); coefficient != current.rend(); ++coefficient) {
        sum = sum * power + *coefficient;
    }
    return sum;
}

Motor motorFor(double rating, double nominal, Start start) {
    constexpr double lockedRotorRatio = 5.8;
    std::vector<Sample> samples;
    for (int percent = 5; percent <= 130; percent += 5) {
        const double power = rating * percent / 100;
        samples.push_back({power, 0, drawn(power, rating)});
    }
    Motor motor;
    motor.current = fitQuartic(samples);
    // A star winding draws a third of the direct current, half a winding about six tenths.
    motor.lockedRotorSecond = toTenth(lockedRotorRatio * drawn(rating, rating));
    motor.lockedRotorFirst = toTenth(motor.lockedRotorSecond * (start == Start::starDelta ? 1.0 / 3 : 0.6));
    motor.nominalPower = nominalText(nominal);
    return motor;
}

}  // namespace marvello::generate

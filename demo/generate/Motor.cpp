#include "demo/generate/Motor.h"

#include <cmath>
#include <numbers>
#include <stdexcept>
#include <vector>

#include "demo/generate/ScrewModel.h"
#include "tools/surface/Surface.h"

namespace marvello::generate {
namespace {

constexpr double volts = 400;

constexpr std::array horsepowers{10,  12,  15,  20,  25,  30,  35,  40,  45,  50,  60,  70,  80, 90,
                                 100, 110, 125, 140, 160, 180, 210, 240, 280, 320, 360, 420, 500};
constexpr double kilowattsAHorsepower = 0.7457;

/// A motor cooled by cold suction gas carries more than its nominal power.
double ratingOf(std::size_t size) {
    constexpr double efficiency = 0.93;
    constexpr double suctionGasCooling = 1.15;
    return horsepowers[size] * kilowattsAHorsepower / efficiency * suctionGasCooling;
}

/// Current drawn at a power input. The reactive share is the magnetizing current and a leakage that grows
/// with the square of the load; at the rating the power factor is 0.88.
double drawn(double power, double rating) {
    constexpr double magnetizing = 0.32;
    constexpr double leakage = 0.22;
    const double atRating = rating * 1000 / (std::numbers::sqrt3 * volts);
    const double active = power / rating;
    return atRating * std::hypot(active, magnetizing + leakage * active * active);
}

std::string nominalText(int horsepower) {
    return std::to_string(horsepower) + " hp (" +
           std::to_string(static_cast<int>(std::nearbyint(horsepower * kilowattsAHorsepower))) + " kW)";
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

std::size_t motorSizeFor(double shaftPower) {
    for (std::size_t size = 0; size < horsepowers.size(); ++size) {
        if (motorInput(shaftPower, ratingOf(size)) <= ratingOf(size)) return size;
    }
    throw std::runtime_error("No motor drives a shaft with " + std::to_string(shaftPower) + " kW.");
}

Motor motorOf(std::size_t size, Start start) {
    constexpr double lockedRotorRatio = 5.8;
    Motor motor;
    motor.rating = ratingOf(size);
    std::vector<Sample> samples;
    for (int percent = 5; percent <= 130; percent += 5) {
        const double power = motor.rating * percent / 100;
        samples.push_back({power, 0, drawn(power, motor.rating)});
    }
    motor.current = fitQuartic(samples);
    // A star winding draws a third of the direct current, half a winding about six tenths.
    motor.lockedRotorSecond = toTenth(lockedRotorRatio * drawn(motor.rating, motor.rating));
    motor.lockedRotorFirst = toTenth(motor.lockedRotorSecond * (start == Start::starDelta ? 1.0 / 3 : 0.6));
    motor.nominalPower = nominalText(horsepowers[size]);
    return motor;
}

std::array<double, 3> powerFactorLaw(const Motor& motor) {
    std::vector<Sample> samples;
    for (int percent = 15; percent <= 110; percent += 5) {
        const double power = motor.rating * percent / 100;
        samples.push_back(
            {power, 0, power * 1000 / (std::numbers::sqrt3 * volts * drawn(power, motor.rating))});
    }
    const std::array<double, 3> law = fitQuadratic(samples);
    return {law[2], law[1], law[0]};
}

}  // namespace marvello::generate

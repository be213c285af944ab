#include "demo/generate/FrequencyLaw.h"

#include <cmath>
#include <vector>

namespace marvello::generate {
namespace {

constexpr double nominal = 50;  // Hz

/// One frequency at one point: r and the factor over r, less 1.
struct Reading {
    double r;
    double excess;
};

/// c1 (r^2 - 1) + c2 (r - 1), by least squares; c3 follows from the factor 1 at r = 1.
std::array<double, 3> fitLaw(const std::vector<Reading>& readings) {
    double uu = 0, uv = 0, vv = 0, ue = 0, ve = 0;
    for (const Reading& reading : readings) {
        const double u = reading.r * reading.r - 1;
        const double v = reading.r - 1;
        uu += u * u;
        uv += u * v;
        vv += v * v;
        ue += u * reading.excess;
        ve += v * reading.excess;
    }
    const double determinant = uu * vv - uv * uv;
    // Six decimals are far below the error of the law and the same on every machine.
    const auto rounded = [](double value) { return std::nearbyint(value * 1e6) / 1e6; };
    const double c1 = rounded((ue * vv - ve * uv) / determinant);
    const double c2 = rounded((ve * uu - ue * uv) / determinant);
    return {c1, c2, rounded(-c1 - c2)};
}

double errorOfLaw(const std::array<double, 3>& law, const std::vector<Reading>& readings) {
    double squares = 0;
    for (const Reading& reading : readings) {
        const double factor = FrequencyLaw::factor(law, reading.r * nominal);
        const double error = factor / (reading.r * (1 + reading.excess)) - 1;
        squares += error * error;
    }
    return std::sqrt(squares / static_cast<double>(readings.size()));
}

}  // namespace

double FrequencyLaw::factor(const std::array<double, 3>& law, double hertz) {
    const double r = hertz / nominal;
    return (r * r * law[0] + r * law[1] + law[2] + 1) * r;
}

FrequencyLaw frequencyLaw(const ScrewMachine& machine, const PointGrid& grid) {
    const std::vector<Performance> at50 = grid.performances(machine);
    std::vector<Reading> capacity;
    std::vector<Reading> power;
    for (double hertz = 25; hertz <= 70; hertz += 5) {
        const double r = hertz / nominal;
        const std::vector<Performance> here = grid.performances(machine, r);
        for (std::size_t i = 0; i < here.size(); ++i) {
            if (!grid.nodes()[i].isApplication) continue;
            capacity.push_back({r, here[i].capacity / at50[i].capacity / r - 1});
            power.push_back({r, here[i].power / at50[i].power / r - 1});
        }
    }
    FrequencyLaw law{.capacity = fitLaw(capacity), .power = fitLaw(power)};
    law.capacityError = errorOfLaw(law.capacity, capacity);
    law.powerError = errorOfLaw(law.power, power);
    return law;
}

}  // namespace marvello::generate

#include "tools/fluids/StateTables.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "data/Constants.h"
#include "data/Csv.h"
#include "data/Numbers.h"
#include "tools/fluids/FluidCaller.h"
#include "tools/fluids/Refusal.h"

namespace marvello::properties {
namespace {

using Side = FluidCaller::Side;

constexpr double kPaPerBar = 100;
constexpr std::size_t maxRows = 100000;

std::vector<double> stepsOf(const TemperatureRange& range, double to) {
    if (!(range.step > 0)) throw Refusal("The step is not above 0.");
    if (!(range.from <= to)) {
        throw Refusal("The temperatures from " + storedText(range.from) + " to " + storedText(to) +
                      " C hold no step.");
    }
    const double last = std::floor((to - range.from) / range.step + 1e-9);
    if (!(last < static_cast<double>(maxRows))) throw Refusal("The table would have too many rows.");
    std::vector<double> steps;
    for (std::size_t k = 0; k <= static_cast<std::size_t>(last); ++k)
        steps.push_back(range.from + static_cast<double>(k) * range.step);
    return steps;
}

/// Saturated liquid and vapour at one temperature, for a blend at the pressures of its bubble and dew points.
struct SaturationRow {
    SaturationRow(FluidCaller& caller, double celsius) {
        const double t = celsius + zeroCelsius;
        const State bubble = caller.saturationAtT(t, Side::bubble);
        const State dew = caller.saturationAtT(t, Side::dew);
        const State liquid = caller.liquidAt(bubble);
        const State vapour = caller.atTP(t, dew.p);
        const double mass = caller.molarMass();  // g/mol: J/mol over it is kJ/kg
        numbers = {celsius,         bubble.p / kPaPerBar, dew.p / kPaPerBar, bubble.Dl * mass, dew.Dv * mass,
                   liquid.h / mass, vapour.h / mass,      liquid.s / mass,   vapour.s / mass};
    }
    std::array<double, 9> numbers;
};

std::string heading(const Composition& composition, FluidCaller& caller, double critical) {
    std::array<char, 200> line{};
    std::string text = composition.name;
    if (composition.isBlend()) {
        for (const Composition::Part& part : composition.parts) {
            text += &part == &composition.parts.front() ? ": " : ", ";
            text +=
                part.file.substr(0, part.file.find('.')) + " " + storedText(100 * part.massFraction) + " %";
        }
        text += " by mass";
    }
    std::snprintf(line.data(), line.size(), "; %.3f g/mol; critical temperature %.2f C\n", caller.molarMass(),
                  critical - zeroCelsius);
    text += line.data();
    text +=
        "h = 200 kJ/kg and s = 1 kJ/(kg K) for saturated liquid at 0 C; ' liquid at bubble point, \" vapour "
        "at dew point\n\n";
    std::snprintf(line.data(), line.size(),
                  "%8s%10s%10s%10s%10s%9s%9s%10s%10s\n%8s%10s%10s%10s%10s%9s%9s%10s%10s\n", "T", "p bubble",
                  "p dew", "rho'", "rho\"", "h'", "h\"", "s'", "s\"", "C", "bar", "bar", "kg/m3", "kg/m3",
                  "kJ/kg", "kJ/kg", "kJ/kg K", "kJ/kg K");
    return text + line.data();
}

std::string lineOf(const auto& numbers) {
    std::vector<std::string> fields;
    for (const double number : numbers) fields.push_back(storedText(number));
    return csvLine(fields);
}

/// From the gas to the liquid: evenly by ln p in one phase, by p between dew and bubble point.
std::vector<double> pressuresAcross(FluidCaller& caller, double t, double critical) {
    constexpr double lowest = 50;     // kPa
    constexpr double highest = 6000;  // kPa
    constexpr int parts = 100;
    std::vector<double> pressures;
    for (int k = 0; k <= parts; ++k)
        pressures.push_back(lowest * std::pow(highest / lowest, double(k) / parts));
    if (t >= critical) return pressures;
    const double dew = caller.saturationAtT(t, Side::dew).p;
    const double bubble = caller.saturationAtT(t, Side::bubble).p;
    std::erase_if(pressures, [&](double p) { return p >= dew && p <= bubble; });
    constexpr int inside = 20;
    for (int k = 0; k <= inside; ++k) pressures.push_back(dew + (bubble - dew) * k / inside);
    pressures.push_back(bubble * (1 + 2e-9));  // liquid, of a pure fluid too
    std::erase_if(pressures, [&](double p) { return p > highest || p < lowest; });
    std::sort(pressures.begin(), pressures.end());
    pressures.erase(std::unique(pressures.begin(), pressures.end()), pressures.end());
    return pressures;
}

}  // namespace

std::string saturationTable(const Composition& composition, const TemperatureRange& range, bool csv) {
    FluidCaller caller(composition);
    const double critical = caller.criticalTemperature(zeroCelsius);
    constexpr double usualEnd = 60;
    const double to = range.to.value_or(std::min(usualEnd, critical - zeroCelsius));
    const std::vector<double> steps = stepsOf(range, to);
    std::string text = csv ? "T,p_bubble,p_dew,rho_liquid,rho_vapour,h_liquid,h_vapour,s_liquid,s_vapour\n"
                           : heading(composition, caller, critical);
    for (const double celsius : steps) {
        const SaturationRow row(caller, celsius);
        if (csv) {
            text += lineOf(row.numbers);
            continue;
        }
        const auto& n = row.numbers;
        std::array<char, 200> line{};
        std::snprintf(line.data(), line.size(), "%8.2f%10.4f%10.4f%10.2f%10.3f%9.2f%9.2f%10.4f%10.4f\n", n[0],
                      n[1], n[2], n[3], n[4], n[5], n[6], n[7], n[8]);
        text += line.data();
    }
    return text;
}

std::string isotherms(const Composition& composition, const TemperatureRange& range) {
    FluidCaller caller(composition);
    const double critical = caller.criticalTemperature(zeroCelsius);
    std::string text = "T,p,h,quality\n";
    for (const double celsius : stepsOf(range, range.to.value_or(60))) {
        const double t = celsius + zeroCelsius;
        for (const double p : pressuresAcross(caller, t, critical)) {
            const State state = caller.atTP(t, p);
            text += lineOf(std::array{celsius, p / kPaPerBar, state.h / caller.molarMass(), state.q});
        }
    }
    return text;
}

}  // namespace marvello::properties

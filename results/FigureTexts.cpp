#include "results/FigureTexts.h"

#include <array>

#include "thermo/EnteredQuantity.h"

namespace marvello {

namespace {

constexpr std::string_view onePlace = "#0.0";
constexpr std::string_view twoPlaces = "#0.00";

/// In the order of Figure.
constexpr std::array figureTexts{
    FigureText{"variables.q0.name", "variables.q0.description", onePlace, convertedCapacity},
    FigureText{"variables.pta.name", "variables.pta.description", onePlace},
    FigureText{"variables.cop.name", "variables.cop.description", twoPlaces},
    FigureText{"variables.ca.name", "variables.ca.description", onePlace},
    FigureText{"variables.mbase.name", "variables.mbase.description", onePlace, convertedMassFlow},
    FigureText{"variables.tsca.name", "variables.tsca.description", onePlace, convertedTemperature}};

}  // namespace

const FigureText& textOf(Figure figure) { return figureTexts.at(static_cast<std::size_t>(figure)); }

std::string unitOf(Figure figure, UnitSystem units) {
    switch (figure) {
        case Figure::capacity:
            return unitText(Quantity::power, units);
        case Figure::power:
            return "kW";  // in both systems
        case Figure::current:
            return "A";
        case Figure::massFlow:
            return units == UnitSystem::imperial ? "lb/h" : "kg/h";
        case Figure::dischargeTemperature:
            return unitText(Quantity::temperature, units);
        case Figure::cop:
            break;
    }
    return {};
}

double valueIn(Figure figure, double metric, UnitSystem units) {
    const UnitRule convert = textOf(figure).convert;
    return convert == nullptr ? metric : convert(metric, UnitSystem::metric, units);
}

ShownValue shownFigure(Figure figure, std::optional<double> metric, UnitSystem units,
                       const NumberMarks& marks) {
    if (!metric) return {.text = "-"};
    const double value = valueIn(figure, *metric, units);
    if (value == 0) return {.text = "-"};  // the current of a compressor without a motor
    const std::string_view pattern = textOf(figure).pattern;
    return {shownValue(value, pattern), formatNumber(value, pattern, marks)};
}

std::string_view nameOf(Figure figure) {
    constexpr std::array<std::string_view, 6> names{"capacity", "power",    "cop",
                                                    "current",  "massFlow", "dischargeTemperature"};
    return names.at(static_cast<std::size_t>(figure));
}

}  // namespace marvello

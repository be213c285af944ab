#include "results/ShownMap.h"

#include "data/DictionaryTexts.h"
#include "results/FigureTexts.h"
#include "thermo/EnteredQuantity.h"

namespace marvello {

namespace {

PlanePoint inUnits(const PlanePoint& celsius, UnitSystem units) {
    return {convertedTemperature(celsius.x, UnitSystem::metric, units),
            convertedTemperature(celsius.y, UnitSystem::metric, units)};
}

GridField inUnits(GridField field, Figure figure, UnitSystem units) {
    field.lowerLeft = inUnits(field.lowerLeft, units);
    field.upperRight = inUnits(field.upperRight, units);
    for (double& value : field.values) value = valueIn(figure, value, units);
    for (auto& [key, end] : field.ends) end.value = valueIn(figure, end.value, units);
    return field;
}

}  // namespace

std::optional<ShownMap> shownMap(const PerformanceMap& map, const clsLimits& limits, Figure figure,
                                 UnitSystem units, const NumberMarks& marks) {
    const GridField field = inUnits(map.fieldOf(figure), figure, units);
    std::vector<PlanePolygon> within = applicationPolygons(limits);
    for (PlanePolygon& polygon : within)
        for (PlanePoint& corner : polygon) corner = inUnits(corner, units);
    const std::vector<double> levels = roundLevels(rangeWithin(field, within));
    if (levels.empty()) return std::nullopt;
    ShownMap shown{.name = dictionaryText(std::string(textOf(figure).name)),
                   .unit = unitOf(figure, units),
                   .contours = contoursOf(field, within, levels),
                   .levels = {}};
    for (const double level : levels) shown.levels.push_back(formatNumber(level, "#0.####", marks));
    return shown;
}

}  // namespace marvello

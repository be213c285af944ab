#include "results/ComparisonCharts.h"

#include <string>

#include "data/DictionaryTexts.h"
#include "engine/PerformanceMap.h"
#include "results/FigureTexts.h"
#include "results/ReportLines.h"
#include "thermo/EnteredQuantity.h"

namespace marvello {

namespace {

double shownTemperature(double celsius, UnitSystem units) {
    return convertedTemperature(celsius, UnitSystem::metric, units);
}

ChartAxis temperatureAxis(const char* key, const char* shortKey, UnitSystem units) {
    const std::string unit = unitText(Quantity::temperature, units);
    return {.title = withUnit(dictionaryText(key), unit), .name = dictionaryText(shortKey), .unit = unit};
}

const char* const evaporating = "frmselection.txtted.captiontext";
const char* const condensing = "frmselection.txttcd.captiontext";

std::string nameOf(const ComparedMachine& machine) {
    return machine.choice.serie + '-' + machine.choice.model;
}

/// The application limits of a machine as closed curves.
std::vector<ChartCurve> limitsOf(const ComparedMachine& machine, std::size_t place, UnitSystem units) {
    std::vector<ChartCurve> curves;
    if (machine.limits() == nullptr) return curves;
    for (const PlanePolygon& polygon : applicationPolygons(*machine.limits())) {
        ChartCurve& curve = curves.emplace_back(ChartCurve{.style = styleOfMachine(place),
                                                           .name = nameOf(machine),
                                                           .set = static_cast<int>(place),
                                                           .isOutline = true});
        for (const PlanePoint& point : polygon)
            curve.points.push_back({shownTemperature(point.x, units), shownTemperature(point.y, units)});
        curve.points.push_back(curve.points.front());
    }
    return curves;
}

}  // namespace

CurveStyle styleOfMachine(std::size_t place) {
    using enum CurveStyle::Line;
    switch (place) {
        case 0:
            return {.line = solid, .tone = CurveStyle::Tone::text};
        case 1:
            return {.line = dashed, .tone = CurveStyle::Tone::accent};
        case 2:
            return {.line = dotted, .tone = CurveStyle::Tone::muted};
        default:
            return {.line = dashDotted, .tone = CurveStyle::Tone::text};
    }
}

Chart limitsChart(const Comparison& comparison, UnitSystem units) {
    Chart chart{.title = dictionaryText("frmcomparison.limits"),
                .across = temperatureAxis("frmselection.limitreport.xaxis.caption", evaporating, units),
                .up = temperatureAxis("frmselection.limitreport.yaxis.caption", condensing, units)};
    std::vector<ChartCurve> points;
    for (std::size_t i = 0; i < comparison.machines.size(); ++i) {
        const ComparedMachine& machine = comparison.machines[i];
        CurveStyle style = styleOfMachine(i);
        for (ChartCurve& curve : limitsOf(machine, i, units)) chart.curves.push_back(std::move(curve));
        chart.legend.push_back({nameOf(machine), style});
        style.line = CurveStyle::Line::none;
        style.hasRings = true;
        const OperatingPoint at = pointOf(machine.choice.conditions);
        points.insert(
            points.begin(),
            {.points = {{shownTemperature(at.ted, units), shownTemperature(at.tcd, units)}}, .style = style});
    }
    for (ChartCurve& point : points) chart.curves.push_back(std::move(point));
    if (const auto point = comparison.samePoint()) chart.marked = shownTemperature(point->ted, units);
    return chart;
}

Chart curvesChart(const Comparison& comparison, const std::vector<Curve>& curves, CurveAxis axis,
                  Figure figure, UnitSystem units) {
    const bool isEvaporating = axis == CurveAxis::evaporating;
    const char* const temperature = isEvaporating ? evaporating : condensing;
    const FigureText& text = textOf(figure);
    const std::string unit = unitOf(figure, units);
    const std::string title = withUnit(dictionaryText(text.name), unit);
    Chart chart{.title = title,
                .across = temperatureAxis(temperature, temperature, units),
                .up = {.title = title,
                       .hasZero = figure == Figure::capacity,
                       .name = dictionaryText(text.name),
                       .unit = unit,
                       .pattern = text.pattern}};
    for (std::size_t i = 0; i < curves.size(); ++i) {
        const double factor = figure == Figure::capacity ? comparison.machines[i].choice.machines : 1;
        bool goesOn = false;
        for (const CurvePoint& point : curves[i]) {
            const auto value = mappedValueOf(point.performance, figure);
            if (value) {
                if (!goesOn || point.beginsPart)
                    chart.curves.push_back({.style = styleOfMachine(i),
                                            .name = nameOf(comparison.machines[i]),
                                            .set = static_cast<int>(i)});
                chart.curves.back().points.push_back(
                    {shownTemperature(point.at, units), valueIn(figure, *value * factor, units)});
            }
            goesOn = value.has_value();
        }
    }
    if (const auto point = comparison.samePoint())
        chart.marked = shownTemperature(isEvaporating ? point->ted : point->tcd, units);
    return chart;
}

}  // namespace marvello

#include "results/YearCharts.h"

#include <algorithm>

#include "data/DictionaryTexts.h"
#include "results/ComparisonCharts.h"
#include "results/ReportLines.h"
#include "thermo/EnteredQuantity.h"

namespace marvello {

namespace {

/// Up to so many bins each has a ring and its hours.
constexpr std::size_t fewBins = 24;

BarFill fillOf(std::size_t place) {
    using enum BarFill;
    switch (place) {
        case 0:
            return solid;
        case 1:
            return hatched;
        case 2:
            return barred;
        default:
            return crosshatched;
    }
}

class ChartMaker {
  public:
    ChartMaker(const YearComparison& comparison, const YearStyle& style, std::optional<std::size_t> marked)
        : comparison_(comparison), style_(style), heads_(yearHeads(comparison)) {
        frame_.across.name = dictionaryText("frmyear.column.outdoor");
        frame_.across.unit = unitText(Quantity::temperature, style.units);
        const bool hasHours = bins().size() <= fewBins;
        frame_.across.title = dictionaryText(hasHours ? "frmyear.chart.across" : "frmyear.chart.outdoor",
                                             {unitText(Quantity::temperature, style.units)});
        for (const LoadBin& bin : bins())
            frame_.categories.push_back(
                {formatNumber(convertedTemperature(bin.outdoor, UnitSystem::metric, style.units), "#0.#",
                              style.marks),
                 hasHours ? formatNumber(bin.hours, "#0.#", style.marks) + " h" : std::string()});
        if (marked && *marked < bins().size()) frame_.markedCategory = marked;
    }

    Chart energy() const {
        constexpr double thousand = 1000;
        double largest = 0;
        for (const YearOfPlant& plant : comparison_.plants)
            for (const YearBin& bin : plant.year.bins) largest = std::max(largest, bin.energy());
        const bool isLarge = largest >= thousand;
        Chart chart = titled(dictionaryText("frmyear.difference.energy"), isLarge ? "MWh" : "kWh");
        chart.up.pattern = "#0.0#";
        chart.up.hasZero = true;
        for (std::size_t i = 0; i < comparison_.plants.size(); ++i) {
            ChartBars& bars = chart.bars.emplace_back(ChartBars{{}, fillOf(i), heads_[i].name});
            for (const YearBin& bin : comparison_.plants[i].year.bins)
                bars.values.push_back(bin.energy() / (isLarge ? thousand : 1));
            chart.legend.push_back({.name = heads_[i].name, .fill = fillOf(i)});
        }
        return chart;
    }

    Chart cop() const {
        Chart chart = titled(dictionaryText("variables.cop.name"), "");
        chart.up.pattern = "#0.00";
        addPlants(chart, [](const YearOfPlant&, const YearBin& bin) {
            return bin.power() > 0 ? std::optional(bin.delivered() / bin.power()) : std::nullopt;
        });
        return chart;
    }

    Chart hours() const {
        Chart chart = titled(dictionaryText("frmyear.chart.hours"), "h");
        chart.up.hasZero = true;
        double sum = 0;
        addCurve(chart, {.line = CurveStyle::Line::solid, .tone = CurveStyle::Tone::muted},
                 dictionaryText("frmyear.chart.profilehours"),
                 [&](std::size_t bin) { return std::optional(sum += bins()[bin].hours); });
        const YearOfPlant* last = nullptr;
        addPlants(chart, [&](const YearOfPlant& plant, const YearBin& bin) {
            if (last != &plant) sum = 0;
            last = &plant;
            for (std::size_t kind = 0; kind < plant.choice.plant.machines.size(); ++kind)
                sum += bin.runningHours(kind);
            return std::optional(sum);
        });
        return chart;
    }

    Chart load() const {
        Chart chart = titled(dictionaryText("variables.q0.name"), unitText(Quantity::power, style_.units));
        chart.up.hasZero = true;
        const auto shown = [this](double kilowatts) {
            return std::optional(convertedCapacity(kilowatts, UnitSystem::metric, style_.units));
        };
        addCurve(chart, {.line = CurveStyle::Line::solid, .tone = CurveStyle::Tone::muted},
                 dictionaryText("frmyear.column.needed"),
                 [&](std::size_t bin) { return shown(comparison_.terms.designLoad * bins()[bin].load); });
        addPlants(chart, [&](const YearOfPlant&, const YearBin& bin) { return shown(bin.delivered()); });
        return chart;
    }

  private:
    const std::vector<LoadBin>& bins() const { return comparison_.terms.profile.bins; }

    Chart titled(const std::string& name, const std::string& unit) const {
        Chart chart = frame_;
        chart.title = chart.up.title = withUnit(name, unit);
        chart.up.name = name;
        chart.up.unit = unit;
        return chart;
    }

    /// A curve through the middles of the bins; a bin without a value ends it.
    template <class ValueOf>
    void addCurve(Chart& chart, CurveStyle style, const std::string& name, ValueOf valueOf) const {
        const int set = static_cast<int>(chart.legend.size());
        bool goesOn = false;
        for (std::size_t bin = 0; bin < bins().size(); ++bin) {
            const std::optional<double> value = valueOf(bin);
            if (value && !goesOn) chart.curves.push_back({.style = style, .name = name, .set = set});
            if (value) chart.curves.back().points.push_back({static_cast<double>(bin) + 0.5, *value});
            goesOn = value.has_value();
        }
        chart.legend.push_back({.name = name, .style = style});
    }

    template <class ValueOf>
    void addPlants(Chart& chart, ValueOf valueOf) const {
        for (std::size_t i = 0; i < comparison_.plants.size(); ++i) {
            const YearOfPlant& plant = comparison_.plants[i];
            CurveStyle style = styleOfMachine(i);
            style.hasRings = bins().size() <= fewBins;
            addCurve(chart, style, heads_[i].name,
                     [&](std::size_t bin) { return valueOf(plant, plant.year.bins.at(bin)); });
        }
    }

    const YearComparison& comparison_;
    const YearStyle& style_;
    const std::vector<ComparedHead> heads_;
    Chart frame_;
};

}  // namespace

YearCharts yearCharts(const YearComparison& comparison, const YearStyle& style,
                      std::optional<std::size_t> markedBin) {
    const ChartMaker maker(comparison, style, markedBin);
    return {maker.energy(), maker.cop(), maker.hours(), maker.load()};
}

}  // namespace marvello

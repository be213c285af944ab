#include "results/RatingSheet.h"

#include "catalogue/clsInverter.h"

namespace marvello {

namespace {

/// Multiples of the step in the units of the style, whatever they are in the metric ones.
struct Axis {
    std::vector<double> shown{};
    std::vector<double> metric{};
    std::size_t current = 0;
};

Axis temperatures(double low, double high, double step, double current, UnitSystem units) {
    const auto in = [&](double celsius) { return convertedTemperature(celsius, UnitSystem::metric, units); };
    Axis axis{.shown = multiplesOf(step, in(low), in(high))};
    axis.current = insertValue(axis.shown, in(current));
    for (const double value : axis.shown)
        axis.metric.push_back(convertedTemperature(value, units, UnitSystem::metric));
    axis.metric[axis.current] = current;  // to the last bit, as it is calculated
    return axis;
}

Axis frequencies(double step, double current) {
    Axis axis{.shown = multiplesOf(step, clsInverter::minimumFrequency, clsInverter::maximumFrequency)};
    axis.current = insertValue(axis.shown, current);
    axis.metric = axis.shown;
    return axis;
}

}  // namespace

std::optional<RatingSheet> ratingSheet(const PreparedCompressor& compressor,
                                       const clsProjectConditions& conditions, const RatingStyle& style) {
    const auto box = applicationBox(compressor, conditions.EcoCalculateMode);
    if (!box) return std::nullopt;
    const Axis across = style.across == RatingAcross::frequency
                            ? frequencies(style.acrossStep, static_cast<double>(conditions.InverterFrequency))
                            : temperatures(box->tedLow, box->tedHigh, style.acrossStep,
                                           conditions.TEvaporatingDew, style.units);
    const Axis down =
        temperatures(box->tcdLow, box->tcdHigh, style.downStep, conditions.TCondensationDew, style.units);
    return RatingSheet{.plan = {.compressor = &compressor,
                                .conditions = conditions,
                                .across = style.across,
                                .columns = across.metric,
                                .rows = down.metric},
                       .style = style,
                       .columns = across.shown,
                       .rows = down.shown,
                       .currentColumn = across.current,
                       .currentRow = down.current};
}

std::string axisText(double value, const NumberMarks& marks) { return formatNumber(value, "#0.0", marks); }

std::vector<PerformanceRow> ratingRows(const RatingSheet& sheet, std::span<const Performance> cells) {
    std::vector<PerformanceRow> rows;
    for (std::size_t cell = 0; cell < cells.size(); ++cell) {
        const clsProjectConditions conditions = sheet.plan.conditionsOf(cell);
        PerformanceRow& row = rows.emplace_back();
        row.ted = conditions.TEvaporatingDew;
        row.tcd = conditions.TCondensationDew;
        row.performance = cells[cell];
        if (sheet.plan.across == RatingAcross::frequency)
            row.frequency = static_cast<double>(conditions.InverterFrequency);
    }
    return rows;
}

}  // namespace marvello

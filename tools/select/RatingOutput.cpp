#include "tools/select/RatingOutput.h"

#include <algorithm>
#include <array>
#include <vector>

#include "data/Numbers.h"
#include "tools/select/AlignedTable.h"
#include "tools/select/PerformanceJson.h"

namespace marvello::select {

namespace {

/// The columns that a question asks for.
std::vector<PerformanceColumn> columnsOf(const RatingQuestion& question) {
    const bool hasEconomizer = question.request.conditions.EcoCalculateMode != EconomizerMode::none;
    std::vector<PerformanceColumn> columns;
    for (const PerformanceColumn& column : performanceColumns(hasEconomizer || !question.quantity.empty()))
        if (question.quantity.empty() || column.name == question.quantity) columns.push_back(column);
    return columns;
}

std::string titleOf(const PerformanceColumn& column) {
    struct Unit {
        std::string_view prefix;
        std::string_view text;
    };
    constexpr std::array units{Unit{"capacity", " kW"}, Unit{"power", " kW"}, Unit{"current", " A"},
                               Unit{"massFlow", " kg/h"}, Unit{"dischargeTemperature", " C"}};
    for (const Unit& unit : units)
        if (column.name.starts_with(unit.prefix)) return std::string(column.name) + std::string(unit.text);
    return std::string(column.name);
}

std::string cellOf(const PerformanceRow& row, const PerformanceColumn& column) {
    const auto value = column.value(row.performance);
    if (!value) return row.performance.state == PointState::error ? "x" : "-";
    const char* const pattern = column.name.starts_with("cop") ? "#0.00" : "#0.0";
    return formatNumber(*value, pattern) + (row.performance.state == PointState::warning ? "*" : " ");
}

/// Evaporating temperatures across, condensing ones down.
std::string gridOf(const RatingAnswer& answer, const PerformanceColumn& column) {
    const std::size_t across = answer.question.teds.size();
    std::vector<Cells> lines{{"tcd \\ ted"}};
    for (const double ted : answer.question.teds) lines.front().push_back(storedText(ted) + ' ');
    for (std::size_t at = 0; at < answer.rows.size(); at += across) {
        Cells& line = lines.emplace_back(Cells{storedText(answer.rows[at].tcd)});
        for (const PerformanceRow& row : answer.rows.subspan(at, across)) line.push_back(cellOf(row, column));
    }
    const auto widths = widthsOf(lines, std::vector<std::size_t>(across + 1, 9));
    std::string text = titleOf(column) + '\n';
    for (const Cells& line : lines) text += lineText(line, widths, 1);
    return text;
}

std::string gridsOf(const RatingAnswer& answer) {
    const Request& request = answer.question.request;
    std::string text = request.refrigerant + ' ' + request.series + '-' + request.models +
                       ": * with warnings, x not possible, - outside the limits\n";
    for (const PerformanceColumn& column : columnsOf(answer.question)) text += '\n' + gridOf(answer, column);
    return text;
}

}  // namespace

std::string ratingText(const RatingAnswer& answer) {
    switch (answer.question.format.value_or(RatingFormat::table)) {
        case RatingFormat::csv:
            return performanceCsv(answer.rows, columnsOf(answer.question));
        case RatingFormat::json:
            return performanceJson(answer.rows, columnsOf(answer.question));
        default:
            return gridsOf(answer);
    }
}

std::string coefficientsText(const RatingQuestion& question, const RatedCoefficients& rated) {
    const CoefficientForm form = *question.coefficients;
    if (form == CoefficientForm::energyPlus) return coefficientsIdf(rated);
    return question.format == RatingFormat::json ? coefficientsJson(rated, form, *question.units)
                                                 : coefficientsCsv(rated, form, *question.units);
}

}  // namespace marvello::select

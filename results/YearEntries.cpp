#include "results/YearEntries.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <optional>
#include <stdexcept>
#include <utility>

#include "data/Csv.h"
#include "data/Texts.h"
#include "engine/YearLimits.h"

namespace marvello {

namespace {

using Reason = LoadProfileFault::Reason;

constexpr std::array<double LoadBin::*, binColumns> members{&LoadBin::outdoor, &LoadBin::hours,
                                                            &LoadBin::load};
constexpr double percent = 100;

double LoadBin::* memberOf(BinColumn column) { return members.at(static_cast<std::size_t>(column)); }

std::string metricTemperature(const std::string& text, UnitSystem units) {
    const auto value = localNumber(text);
    if (!value) return text;  // the reader of the rule says what is wrong
    return storedText(convertedTemperature(*value, units, UnitSystem::metric));
}

bool isOfWords(const std::vector<std::string>& fields) {
    return std::ranges::none_of(fields,
                                [](const std::string& field) { return localNumber(field).has_value(); });
}

std::vector<std::string> fieldsOf(const std::string& line) {
    const char separator = line.find('\t') != std::string::npos ? '\t' : ';';
    std::vector<std::string> fields;
    for (const std::string& field : splitText(line, separator)) fields.push_back(trimmed(field));
    return fields;
}

}  // namespace

EvaporatingRule evaporatingRuleIn(std::string_view text, UnitSystem units) {
    std::string metric;
    for (const std::string& part : splitText(trimmed(text), ';')) {
        std::string point;
        for (const std::string& number : splitText(part, ':'))
            point += (point.empty() ? "" : ":") + metricTemperature(trimmed(number), units);
        metric += (metric.empty() ? "" : ";") + point;
    }
    return evaporatingRuleOf(metric);
}

std::string enteredText(const EvaporatingRule& rule, UnitSystem units, const NumberMarks& marks) {
    const auto shown = [&](double celsius) {
        return formatNumber(convertedTemperature(celsius, UnitSystem::metric, units), "#0.##", marks);
    };
    if (rule.points.size() == 1)
        return formatNumber(convertedTemperature(rule.points.front().evaporating, UnitSystem::metric, units),
                            "#0.00", marks);
    std::string text;
    for (const EvaporatingRule::Point& point : rule.points)
        text += (text.empty() ? "" : ";") + shown(point.outdoor) + ':' + shown(point.evaporating);
    return text;
}

double shownValue(const LoadBin& bin, BinColumn column, UnitSystem units) {
    const double value = bin.*memberOf(column);
    if (column == BinColumn::outdoor) return convertedTemperature(value, UnitSystem::metric, units);
    return column == BinColumn::load ? value * percent : value;
}

void enter(LoadBin& bin, BinColumn column, const std::string& text, UnitSystem units) {
    const auto value = localNumber(trimmed(text));
    if (!value) throw LoadProfileFault(Reason::notANumber, {}, trimmed(text));
    LoadBin changed = bin;
    double& target = changed.*memberOf(column);
    target = *value;
    if (column == BinColumn::outdoor) target = convertedTemperature(*value, units, UnitSystem::metric);
    if (column == BinColumn::load) target = *value / percent;
    if (const auto reason = faultOf(changed, memberOf(column)))
        throw LoadProfileFault(*reason, {}, trimmed(text));
    bin = changed;
}

std::vector<LoadBin> pasted(std::vector<LoadBin> bins, std::size_t row, BinColumn column,
                            std::string_view text, UnitSystem units) {
    int line = 0;
    bool isFirst = true;
    for (const std::string& each : splitText(text, '\n')) {
        ++line;
        if (trimmed(each).empty()) continue;
        const std::vector<std::string> fields = fieldsOf(each);
        const bool isHeading = std::exchange(isFirst, false) && isOfWords(fields);
        if (isHeading) continue;
        if (row >= LoadProfile::maxBins) throw LoadProfileFault(Reason::tooManyBins, {{}, line});
        if (row >= bins.size()) bins.push_back(nextBin(bins));
        for (std::size_t i = 0;
             i < fields.size() && static_cast<int>(column) + static_cast<int>(i) < binColumns; ++i) {
            const auto target = static_cast<BinColumn>(static_cast<int>(column) + static_cast<int>(i));
            try {
                enter(bins[row], target, fields[i], units);
            } catch (const LoadProfileFault& fault) {
                throw LoadProfileFault(fault.reason, {{}, line}, fault.text);
            }
        }
        ++row;
    }
    return bins;
}

LoadBin nextBin(const std::vector<LoadBin>& bins) {
    constexpr double step = 5;
    LoadBin next{.outdoor = 0, .hours = 0, .load = 1};
    if (!bins.empty())
        next.outdoor = std::min(bins.back().outdoor + step, yearLimits::outdoorTemperature.maximum);
    return next;
}

std::size_t sortBins(std::vector<LoadBin>& bins, std::size_t row) {
    std::vector<std::size_t> order(bins.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, {}, [&](std::size_t i) { return bins[i].outdoor; });
    std::vector<LoadBin> sorted;
    for (const std::size_t i : order) sorted.push_back(bins[i]);
    bins = std::move(sorted);
    const auto found = std::ranges::find(order, row);
    return static_cast<std::size_t>(found - order.begin());
}

std::string binsText(const std::vector<LoadBin>& bins) {
    std::string text = csvLine({"outdoor", "hours", "load"});
    for (const LoadBin& bin : bins)
        text += csvLine({storedText(bin.outdoor), storedText(bin.hours), storedText(bin.load)});
    return text;
}

}  // namespace marvello

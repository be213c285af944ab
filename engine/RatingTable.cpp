#include "engine/RatingTable.h"

#include <algorithm>
#include <cmath>

namespace marvello {

namespace {

constexpr double lastBits = 1e-9;

}  // namespace

std::optional<TemperatureBox> applicationBox(const PreparedCompressor& compressor, EconomizerMode mode) {
    const Envelope* const envelope = compressor.envelopeFor(mode);
    if (envelope == nullptr) return std::nullopt;
    const clsLimit* const limit = envelope->limits.GetLimitType(limitType::application);
    if (limit == nullptr || !limit->LeftPoint() || !limit->RightPoint()) return std::nullopt;
    return TemperatureBox{.tedLow = limit->LeftPoint()->x,
                          .tedHigh = limit->RightPoint()->x,
                          .tcdLow = limit->RightPoint()->Y,
                          .tcdHigh = limit->LeftPoint()->Y};
}

std::vector<double> multiplesOf(double step, double low, double high) {
    std::vector<double> values;
    const double last = std::floor(high / step + lastBits);
    for (double i = std::ceil(low / step - lastBits); i <= last; ++i) values.push_back(i * step);
    return values;
}

std::size_t insertValue(std::vector<double>& ascending, double value) {
    const auto at = std::ranges::lower_bound(ascending, value - lastBits);
    const auto index = static_cast<std::size_t>(at - ascending.begin());
    if (at != ascending.end() && *at <= value + lastBits)
        *at = value;
    else
        ascending.insert(at, value);
    return index;
}

clsProjectConditions RatingPlan::conditionsOf(std::size_t cell) const {
    clsProjectConditions of = conditions;
    of.TCondensationDew = rows.at(cell / columns.size());
    const double column = columns.at(cell % columns.size());
    if (across == RatingAcross::frequency)
        of.InverterFrequency = static_cast<float>(column);
    else
        of.TEvaporatingDew = column;
    return of;
}

std::optional<std::vector<Performance>> rate(const RatingPlan& plan, const PointLoop& loop) {
    std::vector<Performance> cells(plan.count());
    const bool isComplete = loop(cells.size(), [&](Calculator& calculator, std::size_t cell) {
        cells[cell] = performanceAt(calculator, *plan.compressor, plan.conditionsOf(cell));
    });
    if (!isComplete) return std::nullopt;
    return cells;
}

}  // namespace marvello

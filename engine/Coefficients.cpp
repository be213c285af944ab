#include "engine/Coefficients.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "catalogue/clsLimits.h"

namespace marvello {

namespace {

using Reason = NoCoefficients::Reason;

constexpr std::array ratedFigures{Figure::capacity, Figure::power, Figure::current, Figure::massFlow};
constexpr double step = 0.5;            // K, from point to point
constexpr double stepEconomized = 2.5;  // K: a point takes a hundred times as long
constexpr std::size_t minPoints = 20;   // with fewer, errors say nothing about the points between

NoCoefficients tooFew(std::size_t count) {
    return {Reason::tooFewPoints, "The operating points inside the application limit that have values (" +
                                      std::to_string(count) +
                                      ") do not determine ten coefficients: more are needed, at four or more "
                                      "of both temperatures."};
}

/// Multiples of the step and the corners of the limit, all inside it.
std::vector<RatedPoint> pointsOf(const CoefficientsRequest& request, const clsProjectConditions& conditions) {
    const Envelope* const envelope = request.compressor->envelopeFor(conditions.EcoCalculateMode);
    const auto box = applicationBox(*request.compressor, conditions.EcoCalculateMode);
    if (!box)
        throw NoCoefficients(Reason::noLimit,
                             "The compressor has no application limit for these conditions.");
    std::vector<RatedPoint> points;
    const TemperatureBox& within = request.within;
    const auto add = [&](double ted, double tcd) {
        const bool isWithin =
            ted >= within.tedLow && ted <= within.tedHigh && tcd >= within.tcdLow && tcd <= within.tcdHigh;
        if (isWithin && envelope->limits.holding(ted, tcd).FindLimitType(limitType::application))
            points.push_back({ted, tcd});
    };
    const double apart = conditions.EcoCalculateMode == EconomizerMode::none ? step : stepEconomized;
    for (const double tcd : multiplesOf(apart, box->tcdLow, box->tcdHigh))
        for (const double ted : multiplesOf(apart, box->tedLow, box->tedHigh)) add(ted, tcd);
    const auto isOnGrid = [apart](const clsPoint& p) {
        constexpr double near = 1e-3;  // K: lines of the catalogue end a little behind their last corner
        return std::abs(std::remainder(p.x, apart)) < near && std::abs(std::remainder(p.Y, apart)) < near;
    };
    const clsPoints& line = envelope->limits.GetLimitType(limitType::application)->Points;
    for (int i = 1; i < line.Count(); ++i)  // the last one is the first again
        if (!isOnGrid(line.Item(i))) add(line.Item(i).x, line.Item(i).Y);
    return points;
}

clsProjectConditions at(clsProjectConditions conditions, const RatedPoint& point) {
    conditions.TEvaporatingDew = point.ted;
    conditions.TCondensationDew = point.tcd;
    return conditions;
}

/// The points that have values, calculated.
std::vector<RatedPoint> calculated(const CoefficientsRequest& request, const clsProjectConditions& conditions,
                                   const PointLoop& loop) {
    std::vector<RatedPoint> points = pointsOf(request, conditions);
    const bool isComplete = loop(points.size(), [&](Calculator& calculator, std::size_t i) {
        points[i].performance = performanceAt(calculator, *request.compressor, at(conditions, points[i]));
    });
    if (!isComplete) throw NoCoefficients(Reason::givenUp, "The calculation was stopped.");
    std::erase_if(points, [](const RatedPoint& point) { return !point.performance.hasValues(); });
    if (points.size() < minPoints) throw tooFew(points.size());
    return points;
}

/// The catalogue's surface of a figure as calculations at the conditions have it. None for a figure without
/// one, and if not one surface holds at all points, as with a built-in volume ratio that follows them.
std::optional<CubicTerms> catalogueSurface(Figure figure, const PreparedCompressor& compressor,
                                           const clsProjectConditions& conditions,
                                           const std::vector<RatedPoint>& points) {
    if (figure != Figure::capacity && figure != Figure::power) return std::nullopt;
    std::optional<CubicTerms> one;
    clsCompressor loaded;
    for (const RatedPoint& point : points) {
        compressor.load(loaded, choiceOf(at(conditions, point)));
        const CubicTerms& c = figure == Figure::capacity ? loaded.PolynomialQ0.c : loaded.polynomialPta.c;
        if (one && *one != c) return std::nullopt;
        one = c;
    }
    return one;
}

/// Empty unless all points have the figure, and not all are 0 as the current without a motor.
std::vector<SurfacePoint> valuesOf(const std::vector<RatedPoint>& points, Figure figure) {
    std::vector<SurfacePoint> values;
    for (const RatedPoint& point : points)
        if (const auto value = valueOf(point.performance, figure))
            values.push_back({point.ted, point.tcd, *value});
    const bool isZero = std::ranges::all_of(values, [](const SurfacePoint& each) { return each.value == 0; });
    if (values.size() < points.size() || isZero) values.clear();
    return values;
}

FitDeviation deviationOf(const CubicTerms& terms, const std::vector<SurfacePoint>& values) {
    FitDeviation deviation;
    double squares = 0;
    double relativeSquares = 0;
    for (const SurfacePoint& each : values) {
        const double error = std::abs(valueAt(terms, each.x, each.y) - each.value);
        const double percent = each.value == 0 ? 0 : error / std::abs(each.value) * 100;
        deviation.max = std::max(deviation.max, error);
        deviation.maxPercent = std::max(deviation.maxPercent, percent);
        squares += error * error;
        relativeSquares += percent * percent;
    }
    const auto count = static_cast<double>(values.size());
    deviation.rms = std::sqrt(squares / count);
    deviation.rmsPercent = std::sqrt(relativeSquares / count);
    return deviation;
}

/// Fits a surface unless there is one.
RatedQuantity quantityOf(Figure figure, const std::vector<SurfacePoint>& values,
                         std::optional<CubicTerms> surface) {
    const bool isOfCatalogue = surface.has_value();
    if (!surface) surface = fittedSurface(values);
    if (!surface) throw tooFew(values.size());
    return {.figure = figure,
            .terms = *surface,
            .isOfCatalogue = isOfCatalogue,
            .deviation = deviationOf(*surface, values)};
}

TemperatureBox boxOf(const std::vector<RatedPoint>& points) {
    const auto [leastTed, mostTed] = std::ranges::minmax(points, {}, &RatedPoint::ted);
    const auto [leastTcd, mostTcd] = std::ranges::minmax(points, {}, &RatedPoint::tcd);
    return {leastTed.ted, mostTed.ted, leastTcd.tcd, mostTcd.tcd};
}

/// A few at round temperatures, all over the points.
std::vector<RatedPoint> checkPointsOf(const std::vector<RatedPoint>& points) {
    constexpr std::size_t wanted = 6;
    std::vector<RatedPoint> round;
    for (const double apart : {10.0, 5.0, 1.0}) {
        round.clear();
        for (const RatedPoint& point : points)
            if (std::remainder(point.ted, apart) == 0 && std::remainder(point.tcd, apart) == 0)
                round.push_back(point);
        if (round.size() >= wanted) break;
    }
    if (round.size() < wanted) round = points;
    std::vector<RatedPoint> chosen;
    for (std::size_t i = 0; i < wanted; ++i) chosen.push_back(round[i * (round.size() - 1) / (wanted - 1)]);
    return chosen;
}

}  // namespace

std::string_view nameOf(RatingConditions rating) {
    constexpr std::array<std::string_view, 3> names{"own", "en12900", "form"};
    return names.at(static_cast<std::size_t>(rating));
}

clsProjectConditions conditionsOf(RatingConditions rating, clsProjectConditions conditions) {
    if (rating == RatingConditions::form) return conditions;
    conditions.SuperHeatType = SuperheatKind::difference;
    conditions.SuperHeat = 10;
    conditions.SubCooling = rating == RatingConditions::own ? 5 : 0;
    conditions.EcoCalculateMode = EconomizerMode::none;
    return conditions;
}

RatingConditions ratingOf(const clsProjectConditions& conditions) {
    const clsProjectConditions own = conditionsOf(RatingConditions::own, conditions);
    const bool isOwn = own.SuperHeatType == conditions.SuperHeatType &&
                       own.SuperHeat == conditions.SuperHeat && own.SubCooling == conditions.SubCooling &&
                       own.EcoCalculateMode == conditions.EcoCalculateMode;
    return isOwn ? RatingConditions::own : RatingConditions::form;
}

RatedCoefficients coefficientsOf(const CoefficientsRequest& request, const PointLoop& loop) {
    const clsProjectConditions conditions = conditionsOf(request.rating, request.conditions);
    const std::vector<RatedPoint> points = calculated(request, conditions, loop);
    RatedCoefficients result{.compressor = request.compressor,
                             .rating = request.rating,
                             .conditions = conditions,
                             .range = boxOf(points),
                             .quantities = {},
                             .points = points.size(),
                             .check = checkPointsOf(points)};
    for (const Figure figure : ratedFigures) {
        const auto values = valuesOf(points, figure);
        if (values.empty()) continue;
        std::optional<CubicTerms> surface;
        if (request.rating == RatingConditions::own)
            surface = catalogueSurface(figure, *request.compressor, conditions, points);
        result.quantities.push_back(quantityOf(figure, values, surface));
    }
    return result;
}

}  // namespace marvello

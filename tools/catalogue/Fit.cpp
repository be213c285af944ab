#include "tools/catalogue/Fit.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <set>

#include "data/Numbers.h"
#include "data/Texts.h"
#include "tools/catalogue/Rows.h"

namespace marvello {

namespace {

SurfaceForm formOf(const FitRequest& request) {
    return request.isDischarge ? SurfaceForm::biquadratic : SurfaceForm::cubic;
}

int typeOf(const std::string& column, const FitRequest& request) {
    if (request.isDischarge) return 3;
    const std::string name = lowered(column);
    return name.starts_with("power") || name.starts_with("pta") ? 1 : 0;
}

double crossed(const clsPoint& origin, const clsPoint& a, const clsPoint& b) {
    return (a.x - origin.x) * (b.Y - origin.Y) - (a.Y - origin.Y) * (b.x - origin.x);
}

/// The convex hull, counter-clockwise (Andrew's monotone chain).
std::vector<clsPoint> hullOf(std::vector<clsPoint> points) {
    const auto less = [](const clsPoint& a, const clsPoint& b) {
        return a.x < b.x || (a.x == b.x && a.Y < b.Y);
    };
    if (points.size() < 2) return points;
    std::ranges::sort(points, less);
    std::vector<clsPoint> hull;
    const auto walk = [&](const auto& from, const auto& to) {
        const std::size_t begun = hull.size();
        for (auto point = from; point != to; ++point) {
            while (hull.size() >= begun + 2 && crossed(hull[hull.size() - 2], hull.back(), *point) <= 0)
                hull.pop_back();
            hull.push_back(*point);
        }
        hull.pop_back();  // begins the next half
    };
    walk(points.begin(), points.end());
    walk(points.rbegin(), points.rend());
    return hull;
}

/// How far a point lies outside a convex hull, K; 0 inside.
double outside(const std::vector<clsPoint>& hull, const clsPoint& point) {
    double nearest = -1;
    bool isOutside = hull.size() < 3;
    for (std::size_t i = 0; i < hull.size(); ++i) {
        const clsPoint& a = hull[i];
        const clsPoint& b = hull[(i + 1) % hull.size()];
        isOutside = isOutside || crossed(a, b, point) < 0;
        const double length = std::hypot(b.x - a.x, b.Y - a.Y);
        double share =
            length == 0 ? 0
                        : ((point.x - a.x) * (b.x - a.x) + (point.Y - a.Y) * (b.Y - a.Y)) / (length * length);
        share = std::clamp(share, 0.0, 1.0);
        const double distance =
            std::hypot(point.x - a.x - share * (b.x - a.x), point.Y - a.Y - share * (b.Y - a.Y));
        if (nearest < 0 || distance < nearest) nearest = distance;
    }
    return isOutside ? nearest : 0;
}

std::string shown(double value) { return storedText(std::nearbyint(value * 100) / 100); }

void warnOfPoints(const std::vector<Sample>& samples, const FitRequest& request,
                  std::vector<std::string>& warnings) {
    const SurfaceForm form = formOf(request);
    if (samples.size() < termCount(form))
        warnings.push_back(std::to_string(samples.size()) + " points are fewer than the " +
                           std::to_string(termCount(form)) + " coefficients");
    else if (samples.size() < termCount(form) + 3)
        warnings.push_back(std::to_string(samples.size()) + " points for " + std::to_string(termCount(form)) +
                           " coefficients: the residuals say little about the points between");
    const auto missing = undeterminedTerms(form, samples);
    if (missing.empty()) return;
    std::string terms;
    for (const auto term : missing) {
        terms += terms.empty() ? "" : ", ";
        terms += "c" + std::to_string(term + 1) + " (" + std::string(termName(form, term)) + ")";
    }
    std::set<double> evaporating;
    std::set<double> condensing;
    for (const auto& sample : samples) {
        evaporating.insert(sample.x);
        condensing.insert(sample.y);
    }
    warnings.push_back("the points do not determine " + terms + ", left at 0: they stand at " +
                       std::to_string(evaporating.size()) + " evaporating and " +
                       std::to_string(condensing.size()) + " condensing temperatures");
}

void warnOfLimit(const std::vector<Sample>& samples, const FitRequest& request,
                 std::vector<std::string>& warnings) {
    constexpr double tolerated = 0.5;  // K
    std::vector<clsPoint> points;
    points.reserve(samples.size());
    for (const auto& sample : samples) points.push_back({sample.x, sample.y});
    const auto hull = hullOf(points);
    std::vector<std::string> corners;
    double farthest = 0;
    for (const clsPoint& corner : request.limit) {
        const double distance = outside(hull, corner);
        if (distance <= tolerated) continue;
        farthest = std::max(farthest, distance);
        const std::string text = storedText(corner.x) + "," + storedText(corner.Y);
        if (std::ranges::find(corners, text) == corners.end()) corners.push_back(text);
    }
    if (!corners.empty())
        warnings.push_back("the envelope reaches up to " + shown(farthest) +
                           " K beyond the points, where the surface is extrapolated: at " +
                           shortList(corners));
}

bool isFinite(double value) { return std::isfinite(value); }

std::string formatted(const char* pattern, double a, double b, double c, double d, double e) {
    std::array<char, 160> text{};
    std::snprintf(text.data(), text.size(), pattern, a, b, c, d, e);
    return text.data();
}

}  // namespace

std::vector<FittedColumn> fitColumns(const RatingPoints& points, const FitRequest& request,
                                     const std::string& file, Faults& faults) {
    std::vector<FittedColumn> fitted;
    for (const auto& column : points.columns) {
        FittedColumn found{column.name, typeOf(column.name, request), {}, {}, {}};
        std::vector<Sample> samples;
        for (std::size_t i = 0; i < points.lines.size(); ++i) {
            const double value = column.values[i];
            if (!request.isDischarge && value <= 0)
                faults.add(file, points.lines[i],
                           column.name + ": " + storedText(value) + " kW is not positive; correct the point");
            samples.push_back(
                {points.evaporating[i], points.condensing[i], value, request.isDischarge ? 1 : value});
        }
        if (!faults.empty() || samples.empty()) continue;
        const SurfaceForm form = formOf(request);
        found.coefficients = fit(form, samples);
        for (const auto& sample : samples)
            found.residuals.push_back(evaluate(form, found.coefficients, sample.x, sample.y) - sample.value);
        if (!std::ranges::all_of(found.coefficients, isFinite) ||
            !std::ranges::all_of(found.residuals, isFinite)) {
            faults.add(file, column.name + ": the values are too small or too large to be fitted");
            continue;
        }
        warnOfPoints(samples, request, found.warnings);
        warnOfLimit(samples, request, found.warnings);
        fitted.push_back(std::move(found));
    }
    return fitted;
}

std::string polynomialRow(const FittedColumn& column, const FitRequest& request) {
    std::string row =
        request.polynomialId + "," + std::to_string(column.type) + "," + storedText(request.field);
    for (const double coefficient : column.coefficients) row += "," + storedText(coefficient);
    return row;
}

std::string fitReport(const FittedColumn& column, const RatingPoints& points, std::size_t index) {
    const auto& values = points.columns[index].values;
    const auto percent = [](double part, double whole) { return whole == 0 ? 0 : 100 * part / whole; };
    std::string text = column.name + ", " + std::to_string(points.lines.size()) + " points\n";
    text += "  evaporating  condensing       value    residual        %\n";
    double squares = 0;
    double percentSquares = 0;
    std::size_t worst = 0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const double residual = column.residuals[i];
        text += formatted("%13.2f%12.2f%12.4g%12.4g%9.3f\n", points.evaporating[i], points.condensing[i],
                          values[i], residual, percent(residual, values[i]));
        squares += residual * residual;
        percentSquares += std::pow(percent(residual, values[i]), 2);
        if (std::abs(residual) > std::abs(column.residuals[worst])) worst = i;
    }
    const auto count = static_cast<double>(values.size());
    text += formatted("  rms %.4g (%.3f %%), largest %.4g (%.3f %%)", std::sqrt(squares / count),
                      std::sqrt(percentSquares / count), column.residuals[worst],
                      percent(column.residuals[worst], values[worst]), 0);
    text += " in line " + std::to_string(points.lines[worst]) + "\n";
    const auto range = [](const std::vector<double>& of) {
        const auto [least, most] = std::ranges::minmax(of);
        return shown(least) + " to " + shown(most);
    };
    text += "  covers " + range(points.evaporating) + " evaporating, " + range(points.condensing) +
            " condensing, degrees Celsius\n";
    for (const auto& warning : column.warnings) text += "  warning: " + warning + "\n";
    return text;
}

}  // namespace marvello

#include "tools/catalogue/UsualPoints.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <vector>

#include "catalogue/FirstConditions.h"
#include "data/Texts.h"
#include "engine/PlanePolygon.h"

namespace marvello {

namespace {

PlanePolygon polygonOf(const clsPoints& line) {
    PlanePolygon polygon;
    for (const clsPoint& point : line) polygon.push_back({point.x, point.Y});
    return polygon;
}

/// The centroid of the area, to whole degrees.
clsPoint centreOf(const clsPoints& line) {
    const PlanePolygon polygon = polygonOf(line);
    const PlanePoint origin = polygon.front();  // near, so that little is lost where terms cancel
    PlanePoint sum;
    double doubled = 0;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const PlanePoint from{polygon[i].x - origin.x, polygon[i].y - origin.y};
        const PlanePoint& next = polygon[(i + 1) % polygon.size()];
        const PlanePoint to{next.x - origin.x, next.y - origin.y};
        const double cross = from.x * to.y - to.x * from.y;
        doubled += cross;
        sum.x += (from.x + to.x) * cross;
        sum.y += (from.y + to.y) * cross;
    }
    if (doubled == 0) return {std::round(origin.x), std::round(origin.y)};
    return {std::round(origin.x + sum.x / (3 * doubled)), std::round(origin.y + sum.y / (3 * doubled))};
}

/// The application limits of the models of a series.
using Limits = std::vector<const clsPoints*>;

bool isHeld(const clsPoints& line, const clsPoint& point) {
    return polygonTest(line, point.x, point.Y) > PolygonState::outside;
}

clsPoint usualPoint(const Limits& limits) {
    const clsPoint first{firstConditions.TEvaporatingDew, firstConditions.TCondensationDew};
    const auto holding = [&](const clsPoint& point) {
        return std::ranges::count_if(limits, [&](const clsPoints* line) { return isHeld(*line, point); });
    };
    if (2 * holding(first) >= std::ssize(limits)) return first;
    clsPoint best = first;
    std::ptrdiff_t most = -1;
    std::set<std::pair<double, double>> tried;
    for (const clsPoints* const line : limits) {
        const clsPoint centre = centreOf(*line);
        if (!tried.emplace(centre.x, centre.Y).second) continue;
        const std::ptrdiff_t count = holding(centre);
        if (count <= most) continue;
        most = count;
        best = centre;
    }
    return best;
}

}  // namespace

bool hasEconomizer(const PreparedCompressor& compressor) {
    if (compressor.envelopeEconomized == nullptr) return false;
    if (compressor.hasInvert) return true;
    const unsigned inputs = permittedSelectors(*compressor.traits, refrigerantTraits(compressor.Refrigerant));
    return allows(inputs, Selector::economizer);
}

SeriesChoice seriesChoiceOf(const PreparedCompressor& compressor, bool economized) {
    return {lowered(compressor.Refrigerant), lowered(compressor.Serie), economized};
}

UsualPoints usualPoints(const PreparedCatalogue& catalogue) {
    std::map<SeriesChoice, Limits> limits;
    for (const PreparedCompressor& compressor : catalogue.compressors())
        for (const bool economized : {false, true}) {
            if (economized && !hasEconomizer(compressor)) continue;
            Limits& ofSeries = limits[seriesChoiceOf(compressor, economized)];
            const Envelope* const envelope = economized ? compressor.envelopeEconomized : compressor.envelope;
            const clsLimit* const line =
                envelope ? envelope->limits.GetLimitType(limitType::application) : nullptr;
            if (line && line->Points.Count() > 0) ofSeries.push_back(&line->Points);
        }
    UsualPoints points;
    for (const auto& [choice, ofSeries] : limits) points[choice] = usualPoint(ofSeries);
    return points;
}

double areaOf(const clsPoints& line) { return std::abs(marvello::areaOf(polygonOf(line))); }

}  // namespace marvello

// The lines of tLimits.

#include <cmath>
#include <map>
#include <set>

#include "data/Numbers.h"
#include "tools/catalogue/Check.h"
#include "tools/catalogue/Index.h"
#include "tools/catalogue/Rows.h"

namespace marvello {

namespace {

// Dew temperatures in degrees Celsius between which any refrigeration compressor works.
constexpr double minEvaporating = -100;
constexpr double maxEvaporating = 50;
constexpr double minCondensing = -60;
constexpr double maxCondensing = 130;

std::string pointText(const clsPoint& point) { return storedText(point.x) + "," + storedText(point.Y); }

void checkCoordinates(const Row& row, const clsPoints& line) {
    for (const clsPoint& point : line) {
        if (point.x < minEvaporating || point.x > maxEvaporating || point.Y < minCondensing ||
            point.Y > maxCondensing) {
            row.fault("fPoints: the point " + pointText(point) + " lies outside " +
                      storedText(minEvaporating) + " to " + storedText(maxEvaporating) + " evaporating and " +
                      storedText(minCondensing) + " to " + storedText(maxCondensing) +
                      " condensing, degrees Celsius; write evaporating,condensing");
            return;
        }
    }
    for (const clsPoint& point : line)
        if (point.Y < point.x) {
            row.fault(
                "fPoints: at the point " + pointText(point) +
                " the condensing temperature is below the evaporating one; write evaporating,condensing");
            return;
        }
}

/// The temperature that a border stands for: one widened by a hair stands for the thousandth it was widened
/// from.
double nominal(double x) {
    constexpr double hair = 2e-4;
    const double rounded = std::round(x * 1000) / 1000;
    return std::abs(x - rounded) < hair ? rounded : x;
}

/// An operating point on a vertical border should be inside. At the right side it is not, since angles are
/// compared in single precision, unless the border is a hair further out.
void checkBorders(const Row& row, const clsPoints& line) {
    for (int i = 1; i < line.Count(); ++i) {
        const clsPoint& from = line.Item(i);
        const clsPoint& to = line.Item(i + 1);
        if (from.x != to.x || from.Y == to.Y) continue;
        for (const double y : {from.Y, (from.Y + to.Y) / 2, to.Y}) {
            const clsPoint point{nominal(from.x), y};
            if (polygonTest(line, point.x, point.Y) > PolygonState::outside) continue;
            row.warn("fPoints: the border at " + storedText(point.x) + " loses its own points, such as " +
                     pointText(point) + "; move it outwards by 0.00001");
            return;
        }
    }
}

void checkLine(const Row& row) {
    const int type = row.integer("fType");
    if (type < limitType::over || type > limitType::last)
        row.fault("fType: there is no line of type " + std::to_string(type) + "; the types are -1 to 14");

    const clsPoints line = parsePoints(row.text("fPoints"));
    const clsPoint& first = line.Item(1);
    const clsPoint& last = line.Item(line.Count());
    if (first.x != last.x || first.Y != last.Y)
        row.fault("fPoints: the line is not closed; repeat its first point " + pointText(first) +
                  " at the end");
    checkCoordinates(row, line);
    checkBorders(row, line);
    const auto& topLeft = line.getLeftPoint();
    const auto& bottomRight = line.getRightPoint();
    if (topLeft && bottomRight && (topLeft->x == bottomRight->x || topLeft->Y == bottomRight->Y))
        row.fault("fPoints: the line holds no area; it needs points of different temperatures");
}

}  // namespace

void checkEnvelopes(const Content& content, Faults& faults) {
    const Index index(content);
    std::set<std::string> used;
    forEachRow(content, "tCompressors", faults, [&](const Row& row) {
        for (const auto* column : {"fLimitID", "fLimitEconomizedID"}) used.insert(row.key(column));
    });
    std::set<std::string> told;
    std::map<std::string, std::string> places;
    forEachRow(content, "tLimits", faults, [&](const Row& row) {
        checkLine(row);
        const std::string id = row.key("fLimitID");
        const auto [first, isNew] = places.emplace(
            id + '\n' + std::to_string(row.integer("fType")) + '\n' + row.text("fPoints"), row.place());
        if (!isNew) row.warn("the line stands already at " + first->second + "; remove one of them");
        if (!told.insert(id).second) return;
        if (!lineOfType(index.lines(id), limitType::application))
            row.fault("the envelope has no application limit; add a line of fType 0");
        if (!used.contains(id))
            row.warn("no compressor uses the envelope; remove its lines or name it in tCompressors");
    });
}

}  // namespace marvello

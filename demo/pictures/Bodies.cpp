#include "demo/pictures/Bodies.h"

#include <algorithm>
#include <stdexcept>

#include "data/TextTable.h"

namespace marvello::pictures {

namespace {

Body bodyOf(const TextTable::Row& row) {
    Body body{row.text("body"),
              row.number("displacement_to"),
              row.number("length"),
              row.number("width"),
              row.number("height"),
              row.number("feet_length"),
              row.number("feet_width"),
              row.text("suction"),
              row.text("discharge"),
              row.text("economizer"),
              {}};
    if (body.feetLength >= body.length || body.feetWidth >= body.width)
        row.fault("feet_length", "the feet of a body stand within its length and width");
    return body;
}

SeriesBodies& seriesOf(std::vector<SeriesBodies>& all, const TextTable::Row& row) {
    const auto found = std::find_if(all.begin(), all.end(), [&](const SeriesBodies& series) {
        return series.serie == row.text("serie");
    });
    if (found == all.end()) row.fault("serie", "\"" + row.text("serie") + "\" is not in series.csv");
    return *found;
}

}  // namespace

bool SeriesBodies::hasEconomizer() const {
    return std::any_of(bodies.begin(), bodies.end(),
                       [](const Body& body) { return !body.economizer.empty(); });
}

std::vector<SeriesBodies> readBodies(const std::filesystem::path& plans) {
    std::vector<SeriesBodies> all;
    const TextTable series(plans / "series.csv"), bodies(plans / "bodies.csv"), models(plans / "models.csv");
    for (const auto& row : series.rows()) all.push_back({row.text("serie"), {}});
    for (const auto& row : bodies.rows()) seriesOf(all, row).bodies.push_back(bodyOf(row));
    for (auto& one : all) {
        if (one.bodies.empty()) throw std::runtime_error("bodies.csv has no body for " + one.serie + ".");
        std::sort(one.bodies.begin(), one.bodies.end(),
                  [](const Body& a, const Body& b) { return a.displacementTo < b.displacementTo; });
    }
    for (const auto& row : models.rows()) {
        auto& one = seriesOf(all, row).bodies;
        const double displacement = row.number("displacement");
        const auto body = std::find_if(one.begin(), one.end(), [&](const Body& candidate) {
            return candidate.displacementTo >= displacement;
        });
        if (body == one.end()) row.fault("displacement", "no body of the series is large enough");
        body->models.push_back(row.text("model"));
    }
    return all;
}

}  // namespace marvello::pictures

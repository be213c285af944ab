#include "tools/select/MapCommand.h"

#include <algorithm>
#include <vector>

#include "catalogue/PreparedCatalogue.h"
#include "data/CollectedBoxes.h"
#include "data/FileText.h"
#include "data/Session.h"
#include "data/clsApplication.h"
#include "engine/PerformanceMap.h"
#include "results/PerformanceRows.h"
#include "tools/select/Choices.h"
#include "tools/select/Exit.h"
#include "tools/select/InLoop.h"
#include "tools/select/PerformanceJson.h"
#include "tools/select/RatingQuestion.h"
#include "tools/select/Run.h"

namespace marvello::select {

namespace {

struct GridSize {
    int columns;
    int rows;
};

/// Reads "41x41": evaporating by condensing temperatures.
GridSize gridSizeIn(const std::string& text) {
    constexpr int fewest = 2;
    constexpr int most = 1001;
    const auto cross = text.find('x');
    if (cross == std::string::npos)
        throw BadRequest("grid: \"" + text + "\" is not a number of columns and rows such as 41x41");
    const auto sideOf = [&](const std::string& side) {
        try {
            return static_cast<int>(wholeNumberIn(side, fewest, most));
        } catch (const BadRequest& fault) {
            throw BadRequest(std::string("grid: ") + fault.what());
        }
    };
    return {sideOf(text.substr(0, cross)), sideOf(text.substr(cross + 1))};
}

MapGrid gridOf(const PreparedCompressor& compressor, const clsProjectConditions& conditions,
               const GridSize& size) {
    const Envelope* const envelope = compressor.envelopeFor(conditions.EcoCalculateMode);
    const auto grid = envelope ? gridOver(envelope->limits, size.columns, size.rows) : std::nullopt;
    if (!grid)
        throw NothingMatches(
            "The catalogue has no application limit " +
            std::string(conditions.EcoCalculateMode == EconomizerMode::none ? "" : "with an economizer ") +
            "for " + compressor.Serie + " " + compressor.Model + ".");
    return *grid;
}

std::vector<PerformanceRow> rowsOver(const MapGrid& grid, const PreparedCompressor& compressor,
                                     const clsProjectConditions& conditions) {
    std::vector<PerformanceRow> rows(static_cast<std::size_t>(grid.count()));
    inLoop(conditions, rows.size(), [&](const PointLoop& loop) {
        return loop(rows.size(), [&](Calculator& calculator, std::size_t index) {
            const auto point = static_cast<int>(index);
            clsProjectConditions there = conditions;
            there.TEvaporatingDew = grid.ted(point);
            there.TCondensationDew = grid.tcd(point);
            rows[index] = {there.TEvaporatingDew, there.TCondensationDew,
                           performanceAt(calculator, compressor, there)};
        });
    });
    return rows;
}

}  // namespace

MapCommand::MapCommand(CLI::App& app)
    : command_(app.add_subcommand("map", "Writes a compressor over its application limit.")),
      language_(defaultLanguage) {
    selection_.addTo(*command_, isRatingOption);
    command_->add_option(
        "--grid", grid_,
        "evaporating by condensing temperatures, 2x2 to 1001x1001, evenly over the rectangle "
        "around the application limit (41x41)");
    command_->add_option("--format", format_, "csv or json");
    command_->add_option("--language", language_, "language of the texts (en-EN)");
    command_->add_option("--app-folder", folder_, "folder with db.mdb, the fluid library and Fluids");
}

int MapCommand::run() const {
    if (format_ != "csv" && format_ != "json") throw BadRequest(notOneOf("format", format_, {"csv", "json"}));
    const GridSize size = gridSizeIn(grid_);
    const Session session(folder_);
    openCatalogue(language_);
    const Choices choices = catalogueChoices();
    Request request;
    // Those of the points take their place.
    request.conditions.TEvaporatingDew = 0;
    request.conditions.TCondensationDew = 0;
    selection_.read(request, choices);
    const auto catalogue = preparedCatalogue(gDatabase());
    const PreparedCompressor& compressor = oneCompressor(request, *catalogue);
    const CollectedBoxes said;  // what a point failed at is its state
    const auto rows = rowsOver(gridOf(compressor, request.conditions, size), compressor, request.conditions);
    const bool hasEconomizer = request.conditions.EcoCalculateMode != EconomizerMode::none;
    printText(format_ == "csv" ? performanceCsv(rows, hasEconomizer) : performanceJson(rows, hasEconomizer));
    const auto hasValues = [](const PerformanceRow& row) { return row.performance.hasValues(); };
    if (std::ranges::any_of(rows, hasValues)) return done;
    return complain(
        "No point of the map has values: all are outside the limits of the compressor, or have "
        "an error.",
        nothingMatches);
}

}  // namespace marvello::select

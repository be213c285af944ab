#include "tools/select/RatingCommand.h"

#include <algorithm>
#include <vector>

#include "catalogue/PreparedCatalogue.h"
#include "data/CollectedBoxes.h"
#include "data/FileText.h"
#include "data/Session.h"
#include "data/clsApplication.h"
#include "engine/RatingTable.h"
#include "tools/select/Choices.h"
#include "tools/select/Exit.h"
#include "tools/select/InLoop.h"
#include "tools/select/RatingOutput.h"
#include "tools/select/RatingQuestion.h"
#include "tools/select/Run.h"

namespace marvello::select {

namespace {

/// Each end of the ranges against the refrigerant.
void checkSaturation(const RatingQuestion& question) {
    const SaturationRange range = saturationRange(question.request.refrigerant);
    const auto check = [&](const std::vector<double>& values, bool isCondensing) {
        if (values.empty()) return;
        const auto [lowest, highest] = std::ranges::minmax(values);
        for (const double value : {lowest, highest}) {
            Request point = question.request;
            // With both alike, only the one that is looked at can be at fault.
            point.conditions.TEvaporatingDew = value;
            point.conditions.TCondensationDew = value;
            try {
                checkTemperatures(point, range);
            } catch (const BadRequest& fault) {
                const std::string sentence = fault.what();
                throw BadRequest(isCondensing ? "tcd" + sentence.substr(3) : sentence);
            }
        }
    };
    check(question.teds, false);
    check(question.tcds, true);
}

int writeTable(const RatingQuestion& question, const PreparedCompressor& compressor) {
    const RatingPlan plan{.compressor = &compressor,
                          .conditions = question.request.conditions,
                          .columns = question.teds,
                          .rows = question.tcds};
    const auto cells =
        inLoop(plan.conditions, plan.count(), [&](const PointLoop& loop) { return rate(plan, loop); });
    std::vector<PerformanceRow> rows;
    bool hasValues = false;
    for (std::size_t cell = 0; cell < cells->size(); ++cell) {
        const clsProjectConditions conditions = plan.conditionsOf(cell);
        rows.push_back({conditions.TEvaporatingDew, conditions.TCondensationDew, (*cells)[cell]});
        hasValues = hasValues || rows.back().performance.hasValues();
    }
    printText(ratingText({question, rows}));
    if (hasValues) return done;
    return complain(
        "No point of the table has values: all are outside the limits of the compressor, or have "
        "an error.",
        nothingMatches);
}

TemperatureBox rangeOf(const RatingQuestion& question) {
    TemperatureBox box = CoefficientsRequest{}.within;
    if (!question.teds.empty())
        std::tie(box.tedLow, box.tedHigh) = std::minmax({question.teds.front(), question.teds.back()});
    if (!question.tcds.empty())
        std::tie(box.tcdLow, box.tcdHigh) = std::minmax({question.tcds.front(), question.tcds.back()});
    return box;
}

int writeCoefficients(const RatingQuestion& question, const PreparedCompressor& compressor) {
    const CoefficientsRequest request{.compressor = &compressor,
                                      .conditions = question.request.conditions,
                                      .rating = *question.rating,
                                      .within = rangeOf(question)};
    try {
        printText(coefficientsText(question, inLoop(request.conditions, 0, [&](const PointLoop& loop) {
                                       return coefficientsOf(request, loop);
                                   })));
    } catch (const NoCoefficients& none) {
        return complain(none.what(), nothingMatches);
    }
    return done;
}

}  // namespace

RatingCommand::RatingCommand(CLI::App& app)
    : command_(app.add_subcommand(
          "rating", "Writes a compressor over its operating points: a table, or coefficients.")),
      language_(defaultLanguage) {
    const auto add = [this](std::string_view name, std::string_view help) {
        command_->add_option("--" + std::string(name), given_[std::string(name)], std::string(help));
    };
    for (const RatingOption& option : ratingOptions()) add(option.name, option.help);
    selection_.addTo(*command_, isRatingOption);
    command_->add_option("--language", language_, "language of the texts (en-EN)");
    command_->add_option("--app-folder", folder_, "folder with db.mdb, the fluid library and Fluids");
}

int RatingCommand::run() const {
    const Session session(folder_);
    openCatalogue(language_);
    const Choices choices = catalogueChoices();
    const auto isStated = [this](std::string_view name) {
        return command_->count("--" + std::string(name)) > 0;
    };
    RatingQuestion question;
    for (const RatingOption& option : ratingOptions())
        if (isStated(option.name)) readOption(question, option, given_.at(std::string(option.name)));
    selection_.read(question.request, choices);
    complete(question);
    const auto catalogue = preparedCatalogue(gDatabase());
    const PreparedCompressor& compressor = oneCompressor(question.request, *catalogue);
    checkSaturation(question);
    const CollectedBoxes said;  // what a point failed at is its state
    return question.coefficients ? writeCoefficients(question, compressor) : writeTable(question, compressor);
}

}  // namespace marvello::select

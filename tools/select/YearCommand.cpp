#include "tools/select/YearCommand.h"

#include "data/CollectedBoxes.h"
#include "data/FileText.h"
#include "data/Session.h"
#include "data/clsApplication.h"
#include "engine/PermittedConditions.h"
#include "tools/select/Choices.h"
#include "tools/select/Exit.h"
#include "tools/select/InLoop.h"
#include "tools/select/PutBack.h"
#include "tools/select/Run.h"
#include "tools/select/YearOutput.h"
#include "tools/select/YearQuestion.h"

namespace marvello::select {

namespace {

std::map<std::string, unsigned> putBackOf(const YearRequest& year) {
    std::map<std::string, unsigned> putBack;
    for (const PlantMachines& machines : year.machines)
        putBack[machines.compressor->Serie] |=
            permittedConditions(*machines.compressor, year.conditions).putBack;
    return putBack;
}

int write(const YearQuestion& question) {
    const YearRequest& request = question.year;
    std::optional<Year> year;
    std::optional<FourPoints> fourPoints;
    inLoop(request.conditions, request.profile.bins.size(), [&](const PointLoop& loop) {
        year = yearOf(request, loop);
        if (question.chosen.rule) fourPoints = fourPointsOf(request, *question.chosen.rule, loop);
        return year.has_value();
    });
    const YearAnswer answer{question, *year, fourPoints};
    if (year->delivered == 0 && year->unmet > 0) {
        printText(yearText(answer));
        return complain(cannotRun(answer), nothingMatches);
    }
    for (const std::string& remark : putBackRemarks(putBackOf(request))) complain(remark, done);
    for (const std::string& remark : yearRemarks(answer)) complain(remark, done);
    printText(yearText(answer));
    return done;
}

}  // namespace

YearCommand::YearCommand(CLI::App& app)
    : command_(app.add_subcommand("year", "Says what a plant takes, costs and emits over a year.")),
      language_(defaultLanguage) {
    for (const YearOption& option : yearOptions())
        command_->add_option("--" + std::string(option.name), given_[std::string(option.name)],
                             std::string(option.help));
    selection_.addTo(*command_, isYearOption);
    command_->add_option("--language", language_, "language of the texts (en-EN)");
    command_->add_option("--app-folder", folder_, "folder with db.mdb, the fluid library and Fluids");
}

int YearCommand::run() const {
    const Session session(folder_);
    openCatalogue(language_);
    const Choices choices = catalogueChoices();
    YearQuestion question;
    for (const YearOption& option : yearOptions())
        if (command_->count("--" + std::string(option.name)) > 0)
            readOption(question, option, given_.at(std::string(option.name)));
    selection_.read(question.request, choices);
    const auto catalogue = preparedCatalogue(gDatabase());
    complete(question, *catalogue, Session::current().applicationFolder);
    const CollectedBoxes said;  // what a machine failed at is said of its bin
    return write(question);
}

}  // namespace marvello::select

#include "tools/select/FindCommand.h"

#include "catalogue/PreparedCatalogue.h"
#include "data/CollectedBoxes.h"
#include "data/FileText.h"
#include "data/Session.h"
#include "data/clsApplication.h"
#include "tools/select/Choices.h"
#include "tools/select/Exit.h"
#include "tools/select/FindOutput.h"
#include "tools/select/FindQuestion.h"
#include "tools/select/PutBack.h"
#include "tools/select/Run.h"

namespace marvello::select {

namespace {

/// An economizer takes milliseconds for each compressor, which are worth threads.
FindResult carryOut(const FindRequest& request, Calculator& calculator) {
    const auto catalogue = preparedCatalogue(gDatabase());
    const CollectedBoxes said;  // what it failed at is said of the compressor
    if (request.conditions.EcoCalculateMode == EconomizerMode::none)
        return find(request, catalogue, calculator);
    CalculatorPool pool;
    return find(request, catalogue, pool);
}

}  // namespace

FindCommand::FindCommand(CLI::App& app)
    : command_(app.add_subcommand("find", "Finds the compressors for a needed capacity.")),
      language_(defaultLanguage) {
    const auto add = [this](std::string_view name, std::string_view help) {
        command_->add_option("--" + std::string(name), given_[std::string(name)], std::string(help));
    };
    for (const FindOption& option : findOptions()) add(option.name, option.help);
    command_->add_flag("--heating", isHeating_, "the capacity is that of the condenser");
    command_->add_flag("--steps", hasSteps_, "capacity steps below 100 % may be used");
    selection_.addTo(*command_, isFindOption);
    command_->add_option("--language", language_, "language of the texts (en-EN)");
    command_->add_option("--format", format_, "table, csv or json");
    command_->add_option("--app-folder", folder_, "folder with db.mdb, the fluid library and Fluids");
}

int FindCommand::run() const {
    const FindFormat& format = findFormatOf(format_);
    const Session session(folder_);
    openCatalogue(language_);
    const Choices choices = catalogueChoices();
    const auto isStated = [this](std::string_view name) {
        return command_->count("--" + std::string(name)) > 0;
    };
    FindQuestion question;
    question.request.maxMachines = searchRange::maxMachines;
    for (const FindOption& option : findOptions())
        if (isStated(option.name)) readOption(question, option, given_.at(std::string(option.name)));
    Request base;
    selection_.read(base, choices);
    FindRequest& request = question.request;
    request.conditions = base.conditions;
    request.markets = base.market;
    request.kind = isHeating_ ? CapacityKind::heating : CapacityKind::cooling;
    request.steps = hasSteps_;
    checkQuestion(question);

    Calculator calculator;
    FindResult result = carryOut(request, calculator);
    rank(result.candidates, question.rankBy);
    std::map<std::string, unsigned> putBack;
    for (const Candidate& candidate : result.candidates)
        putBack[candidate.compressor->Serie] |= candidate.putBack;
    for (const std::string& remark : putBackRemarks(putBack)) complain(remark, done);
    printText(format.text({question, result, calculator}));
    return result.candidates.empty() ? complain(nothingFound(request, result), nothingMatches) : done;
}

}  // namespace marvello::select

#include "tools/select/CompareCommand.h"

#include <algorithm>
#include <map>
#include <string>

#include "data/CollectedBoxes.h"
#include "data/FileText.h"
#include "data/Session.h"
#include "data/clsApplication.h"
#include "tools/select/Choices.h"
#include "tools/select/CompareOutput.h"
#include "tools/select/CompareQuestion.h"
#include "tools/select/Exit.h"
#include "tools/select/PutBack.h"
#include "tools/select/Run.h"

namespace marvello::select {

CompareCommand::CompareCommand(CLI::App& app)
    : command_(app.add_subcommand("compare", "Shows two to four compressors next to each other.")),
      language_(defaultLanguage) {
    command_
        ->add_option("--choice", choices_,
                     "a compressor with what it has of its own, once for each: options of a selection and "
                     "machines (1), as in \"refrigerant=R134A,series=TK-A,models=255,machines=2\"")
        ->expected(1)
        ->take_all();
    selection_.addTo(*command_);
    command_->add_option("--reference", reference_,
                         "number of the choice of the differences, 0 for none (0)");
    command_->add_option("--language", language_, "language of the texts (en-EN)");
    command_->add_option("--format", format_, "table, csv or json");
    command_->add_option("--app-folder", folder_, "folder with db.mdb, the fluid library and Fluids");
}

int CompareCommand::run() const {
    CompareQuestion question;
    question.format = compareFormatOf(format_);
    const Session session(folder_);
    openCatalogue(language_);
    const Choices choices = catalogueChoices();
    selection_.read(question.common, choices);
    question.choices = choices_;
    const auto catalogue = preparedCatalogue(gDatabase());
    const std::vector<ComparedChoice> compared = choicesOf(question, *catalogue, choices);
    question.reference = referenceIn(reference_, compared.size());

    const CollectedBoxes said;  // what a compressor failed at is said of it
    Calculator calculator;
    const Comparison comparison = compare(compared, catalogue, calculator);
    std::map<std::string, unsigned> putBack;
    for (const ComparedMachine& machine : comparison.machines)
        putBack[machine.choice.serie] |= machine.putBack;
    for (const std::string& remark : putBackRemarks(putBack)) complain(remark, done);
    printText(comparisonText(comparison, question.reference, question.format));
    const bool hasValues = std::ranges::any_of(
        comparison.machines, [](const ComparedMachine& machine) { return machine.performance.hasValues(); });
    return hasValues ? done : complain("No compressor is possible at its operating point.", nothingMatches);
}

}  // namespace marvello::select

#include "tools/select/CycleCommand.h"

#include "catalogue/PreparedCatalogue.h"
#include "data/FileText.h"
#include "data/Session.h"
#include "data/clsApplication.h"
#include "tools/select/Choices.h"
#include "tools/select/CycleOutput.h"
#include "tools/select/Exit.h"
#include "tools/select/Run.h"

namespace marvello::select {

CycleCommand::CycleCommand(CLI::App& app)
    : command_(app.add_subcommand("cycle", "Shows the cycle of one compressor.")),
      language_(defaultLanguage) {
    selection_.addTo(*command_);
    command_->add_option("--format", format_, "json or svg (json)");
    command_->add_option("--units", units_, "units of a picture: si or ip (si)");
    command_->add_option("--language", language_, "language of the texts (en-EN)");
    command_->add_option("--app-folder", folder_, "folder with db.mdb, the fluid library and Fluids");
}

int CycleCommand::run() const {
    const CycleFormat& format = cycleFormatOf(format_);
    const UnitSystem units = unitSystemOf(units_);
    const Session session(folder_);
    openCatalogue(language_);
    const Choices choices = catalogueChoices();
    Request request;
    selection_.read(request, choices);
    oneCompressor(request, *preparedCatalogue(gDatabase()));
    const Run run = carryOut(request);
    for (const std::string& remark : run.remarks) complain(remark, done);
    printText(format.text(calculatedCycle(run), units));
    return done;
}

}  // namespace marvello::select

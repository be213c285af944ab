#include "tools/select/PartLoadCommand.h"

#include "catalogue/PreparedCatalogue.h"
#include "data/CollectedBoxes.h"
#include "data/FileText.h"
#include "data/Session.h"
#include "data/clsApplication.h"
#include "tools/select/Exit.h"
#include "tools/select/InLoop.h"
#include "tools/select/PartLoadOutput.h"
#include "tools/select/PartLoadQuestion.h"
#include "tools/select/PutBack.h"
#include "tools/select/Run.h"

namespace marvello::select {

PartLoadCommand::PartLoadCommand(CLI::App& app)
    : command_(app.add_subcommand("partload", "Writes a compressor at its steps or frequencies and loads.")),
      language_(defaultLanguage) {
    for (const PartLoadOption& option : partLoadOptions())
        command_->add_option("--" + std::string(option.name), given_[std::string(option.name)],
                             std::string(option.help));
    selection_.addTo(*command_, isPartLoadOption);
    command_->add_option("--language", language_, "language of the texts (en-EN)");
    command_->add_option("--app-folder", folder_, "folder with db.mdb, the fluid library and Fluids");
}

int PartLoadCommand::run() const {
    const Session session(folder_);
    openCatalogue(language_);
    PartLoadCall call;
    for (const PartLoadOption& option : partLoadOptions()) {
        const std::string name(option.name);
        if (command_->count("--" + name) > 0) readOption(call, option, given_.at(name));
    }
    selection_.read(call.request, catalogueChoices());
    const auto catalogue = preparedCatalogue(gDatabase());
    const PreparedCompressor& compressor = oneCompressor(call.request, *catalogue);
    checkTemperatures(call.request, saturationRange(call.request.refrigerant));
    const std::string name = compressor.Serie + '-' + compressor.Model;
    if (call.hasFrequencies && !compressor.hasInvert)
        throw BadRequest("frequencies: " + name + " is on the mains; it has its capacity steps");
    const PartLoadQuestion question{.plan = {.compressor = &compressor,
                                             .conditions = call.request.conditions,
                                             .condensing = call.condensing,
                                             .degradation = call.degradation},
                                    .frequencies = call.frequencies,
                                    .shares = call.shares};
    const CollectedBoxes said;  // what a state failed at is its message
    const auto table = inLoop(call.request.conditions, 0,
                              [&](const PointLoop& loop) { return partLoadTable(question, loop); });
    for (const std::string& remark : putBackRemarks({{compressor.Serie, table->full.state.at.putBack}}))
        complain(remark, done);
    if (!table->full.share)
        return complain(name + " has no capacity at this operating point: " + errorText(table->full),
                        nothingMatches);
    printText(partLoadText({call, compressor, *table}));
    return done;
}

}  // namespace marvello::select

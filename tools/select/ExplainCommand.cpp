#include "tools/select/ExplainCommand.h"

#include <array>

#include "data/CollectedBoxes.h"
#include "data/FileText.h"
#include "data/Session.h"
#include "data/clsApplication.h"
#include "engine/Explanation.h"
#include "results/SheetFiles.h"
#include "tools/select/Choices.h"
#include "tools/select/Exit.h"
#include "tools/select/ExplainJson.h"
#include "tools/select/Run.h"

namespace marvello::select {

namespace {

std::string titleOf(const clsCompressor& compressor) {
    return compressor.Serie + '-' + compressor.Model + ", " + compressor.Refrigerant;
}

template <auto write>
std::string sheet(const Explanation& explanation) {
    return write(titleOf(*explanation.compressor), calculationSheet(explanation));
}

struct ExplainFormat {
    std::string_view name;
    std::string (*text)(const Explanation& explanation);
};
constexpr std::array formats{
    ExplainFormat{"text", sheet<sheetAsText>}, ExplainFormat{"markdown", sheet<sheetAsMarkdown>},
    ExplainFormat{"html", sheet<sheetAsHtml>}, ExplainFormat{"json", explanationJson}};

const ExplainFormat& formatOf(const std::string& name) {
    for (const ExplainFormat& format : formats)
        if (format.name == name) return format;
    throw BadRequest(notOneOf("format", name, {"text", "markdown", "html", "json"}));
}

}  // namespace

ExplainCommand::ExplainCommand(CLI::App& app)
    : command_(app.add_subcommand("explain", "Lays the calculation of one compressor open.")),
      language_(defaultLanguage) {
    selection_.addTo(*command_);
    command_->add_option("--format", format_, "text, markdown, html or json (text)");
    command_->add_option("--language", language_, "language of the texts (en-EN)");
    command_->add_option("--app-folder", folder_, "folder with db.mdb, the fluid library and Fluids");
}

int ExplainCommand::run() const {
    const ExplainFormat& format = formatOf(format_);
    const Session session(folder_);
    openCatalogue(language_);
    const Choices choices = catalogueChoices();
    Request request;
    selection_.read(request, choices);
    checkRequest(request);
    const auto catalogue = preparedCatalogue(gDatabase());
    const PreparedCompressor& compressor = oneCompressor(request, *catalogue);
    for (const std::string& remark : carryOut(request).remarks) complain(remark, done);
    const CollectedBoxes said;  // by the run above
    printText(format.text(explain(compressor, request.conditions)));
    return done;
}

}  // namespace marvello::select

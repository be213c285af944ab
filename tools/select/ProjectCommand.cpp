#include "tools/select/ProjectCommand.h"

#include "catalogue/PreparedCatalogue.h"
#include "data/CollectedBoxes.h"
#include "data/FileText.h"
#include "data/Session.h"
#include "data/clsApplication.h"
#include "project/ProjectFile.h"
#include "tools/select/Exit.h"
#include "tools/select/ProjectOutput.h"
#include "tools/select/Run.h"

namespace marvello::select {

ProjectCommand::ProjectCommand(CLI::App& app)
    : command_(app.add_subcommand("project", "Calculates the promised results of a project again.")),
      language_(defaultLanguage) {
    command_->add_option("file", file_, "project, a file of the program")->required();
    command_->add_option("--format", format_, "table, csv or json (table)");
    command_->add_flag("--check", isCheck_, "says only what differs; the exit status is 4 if anything does");
    command_->add_option("--language", language_, "language of the texts (en-EN)");
    command_->add_option("--app-folder", folder_, "folder with db.mdb, the fluid library and Fluids");
}

int ProjectCommand::run() const {
    const ProjectFormat format = projectFormatOf(format_);
    const auto text = fileText(file_);
    if (!text) throw BadRequest(file_ + " cannot be read");
    Project project;
    try {
        project = projectIn(*text);
    } catch (const ProjectFault& fault) {
        throw BadRequest(file_ + ": " + fault.what());
    }
    const Session session(folder_);
    openCatalogue(language_);
    const CollectedBoxes said;  // what a compressor failed at is among its messages
    Calculator calculator;
    const auto catalogue = preparedCatalogue(gDatabase());
    std::vector<CheckedItem> items;
    for (const ProjectItem& item : project.items) {
        CheckedItem& checked = items.emplace_back(CheckedItem{.item = &item});
        if (item.promise) checked.results = checkedResults(*item.promise, *catalogue, calculator);
    }
    printText(projectReport({project, items, isCheck_}, format));
    return isCheck_ && differs(items) ? resultsDiffer : done;
}

}  // namespace marvello::select

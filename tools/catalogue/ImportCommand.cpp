#include "tools/catalogue/ImportCommand.h"

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <CLI/Option.hpp>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>

#include "data/FileText.h"
#include "tools/catalogue/ContentFiles.h"
#include "tools/catalogue/Dump.h"
#include "tools/catalogue/JetImport.h"

namespace marvello {

namespace {

namespace fs = std::filesystem;

constexpr int allTaken = 0;
constexpr int someRejected = 1;

void checkIsEmpty(const fs::path& folder) {
    if (folder.empty()) throw std::runtime_error("FOLDER: the name of the folder is empty.");
    if (!fs::exists(fs::symlink_status(folder))) return;
    if (!fs::is_directory(folder)) throw std::runtime_error(folder.string() + " is not a folder.");
    if (!fs::is_empty(folder))
        throw std::runtime_error("The folder " + folder.string() +
                                 " has files already; choose a new or an empty one.");
}

void writeRejected(const JetImport& result, const fs::path& folder) {
    if (result.rejected.empty()) return;
    const fs::path file = folder / rejectedName;
    std::ofstream stream(file, std::ios::binary);
    stream << rejectedText(result.rejected);
    stream.close();
    if (!stream) throw std::runtime_error("The rejected rows cannot be written to " + file.string() + ".");
}

/// All that is said of tables; of the rows, which are all among the rejected ones, the first.
void print(const JetImport& result) {
    constexpr std::size_t maxRows = 200;
    for (const std::string& fault : result.tableFaults) std::cerr << fault << '\n';
    const std::vector<std::string>& rows = result.rowFaults;
    for (std::size_t i = 0; i < std::min(rows.size(), maxRows); ++i) std::cerr << rows[i] << '\n';
    if (rows.size() > maxRows)
        std::cerr << "and " << rows.size() - maxRows << " more of rows; see " << rejectedName << '\n';
}

std::string summaryOf(const JetImport& result, const std::string& folder) {
    std::size_t rows = 0;
    for (const TableContent& table : result.content.tables) rows += table.records.size();
    std::string text = std::to_string(rows) + (rows == 1 ? " row" : " rows") + " taken, " +
                       std::to_string(result.rejectedRows) + " rejected";
    if (!result.rejected.empty()) text += "; see " + (fs::path(folder) / rejectedName).string();
    return text + "\nNow: marvello-catalogue check " + folder + "\n";
}

}  // namespace

ImportCommand::ImportCommand(CLI::App& program)
    : command_(program.add_subcommand("import", "Write the text tables of a Jet 3 or Jet 4 database")) {
    command_->add_option("DATABASE", file_, "The database, such as an old db.mdb")->required();
    command_->add_option("FOLDER", folder_, "A new or empty folder for the tables")->required();
    command_->add_option(
        "--charset", charset_,
        "The texts of a Jet 3 database, as iconv names it: CP1250, CP936 (what the file states)");
}

int ImportCommand::run() const {
    checkIsEmpty(folder_);
    const JetFile file(file_, charset_);
    if (!charset_.empty() && !file.isJet3())
        std::cerr << "warning: --charset has no effect: the texts of a " << file.version()
                  << " database are in Unicode\n";
    const JetImport result = importJet(file);
    writeTables(result.content, folder_, false);
    writeRejected(result, folder_);
    print(result);
    printText(summaryOf(result, folder_));
    return result.isWhole() ? allTaken : someRejected;
}

}  // namespace marvello

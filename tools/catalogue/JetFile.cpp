#include "tools/catalogue/JetFile.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <set>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "data/Csv.h"
#include "data/Texts.h"
#include "platform/ChildProcess.h"

namespace marvello {

namespace {

namespace fs = std::filesystem;

/// Stands between fields, and in no text of a catalogue.
constexpr char separator = '\x1f';

ChildOutput call(const std::string& program, const std::vector<std::string>& arguments,
                 const std::string& charset) {
    std::map<std::string, std::string> environment{{"LC_ALL", "C.UTF-8"}, {"MDBICONV", "UTF-8"}};
    if (!charset.empty()) environment["MDB_JET3_CHARSET"] = charset;
    try {
        return runProgram(program, arguments, environment);
    } catch (const std::system_error& failure) {
        if (failure.code() != std::errc::no_such_file_or_directory) throw;
        throw std::runtime_error("The program " + program +
                                 " is not there, which reads Jet databases; install the package mdbtools.");
    }
}

/// The lines of a text that say something, each once.
std::vector<std::string> sentencesIn(const std::string& text) {
    std::vector<std::string> sentences;
    std::set<std::string> seen;
    for (const std::string& line : splitText(text, '\n'))
        if (const std::string sentence = trimmed(line); !sentence.empty() && seen.insert(sentence).second)
            sentences.push_back(sentence);
    return sentences;
}

std::string firstSentence(const ChildOutput& child) {
    const auto sentences = sentencesIn(child.errors);
    return sentences.empty() ? "status " + std::to_string(child.status) : sentences.front();
}

[[noreturn]] void refuse(const fs::path& file, const std::string& reason) {
    throw std::runtime_error("The database " + file.string() + " cannot be read: " + reason + ".");
}

bool isSqlite(const fs::path& file) {
    constexpr std::string_view magic = "SQLite format 3";
    std::string head(magic.size(), '\0');
    return std::ifstream(file, std::ios::binary)
               .read(head.data(), static_cast<std::streamsize>(head.size())) &&
           head == magic;
}

/// The types of the columns from the lines "[name] type," of a definition.
std::map<std::string, std::string> typesIn(const std::string& definition) {
    std::map<std::string, std::string> types;
    for (const std::string& line : splitText(definition, '\n')) {
        const std::string text = trimmed(line);
        const auto end = text.find(']');
        if (!text.starts_with('[') || end == std::string::npos) continue;
        std::string type = trimmed(text.substr(end + 1));
        if (type.ends_with(',')) type.pop_back();
        types[text.substr(1, end - 1)] = type;
    }
    return types;
}

class TableReading {
  public:
    TableReading(std::string file, std::string charset, const std::string& table)
        : file_(std::move(file)), charset_(std::move(charset)), table_{table, {}, {}, {}} {}

    JetTable run() {
        readRows();
        const auto definition = ask("mdb-schema", {"-T", table_.name, "--", file_, "access"});
        auto types = typesIn(definition);
        for (JetColumn& column : table_.columns) column.type = types[column.name];
        countRows();
        return std::move(table_);
    }

  private:
    /// What a program answers; what it complains of is a doubt.
    std::string ask(const std::string& program, const std::vector<std::string>& arguments) {
        const ChildOutput child = call(program, arguments, charset_);
        for (const std::string& sentence : sentencesIn(child.errors)) doubt(program + " says: " + sentence);
        if (child.status != 0 && child.errors.empty())
            doubt(program + " ended with status " + std::to_string(child.status));
        return child.output;
    }

    void doubt(const std::string& reason) {
        if (std::ranges::find(table_.doubts, reason) == table_.doubts.end()) table_.doubts.push_back(reason);
    }

    void readRows() {
        const std::string text =
            ask("mdb-export", {"-B", "-b", "hex", "-D", "%Y-%m-%d", "-T", "%Y-%m-%d %H:%M:%S", "-d",
                               std::string(1, separator), "--", file_, table_.name});
        Faults faults;
        const auto records = readCsv(text, "mdb-export", faults, separator);
        for (const std::string& fault : faults.lines()) doubt(fault);
        if (records.empty()) return doubt("it has no columns that can be read");
        for (const std::string& column : records.front().fields) table_.columns.push_back({column, {}});
        for (auto record = records.begin() + 1; record != records.end(); ++record) {
            if (record->fields.size() != table_.columns.size())
                doubt("row " + std::to_string(table_.rows.size() + 1) + " has " +
                      std::to_string(record->fields.size()) + " fields and not " +
                      std::to_string(table_.columns.size()));
            table_.rows.push_back(record->fields);
            table_.rows.back().resize(table_.columns.size());
        }
    }

    /// The definition of a table counts its rows, so that lost pages are noticed.
    void countRows() {
        const std::string count = trimmed(ask("mdb-count", {"--", file_, table_.name}));
        if (!count.empty() && count != std::to_string(table_.rows.size()))
            doubt("its definition counts " + count + " rows, and " + std::to_string(table_.rows.size()) +
                  " can be read");
    }

    std::string file_;
    std::string charset_;
    JetTable table_;
};

}  // namespace

JetFile::JetFile(fs::path file, std::string charset) : file_(std::move(file)), charset_(std::move(charset)) {
    std::error_code ignored;
    if (!fs::is_regular_file(file_, ignored)) refuse(file_, "there is no such file");
    if (isSqlite(file_))
        refuse(file_,
               "it is a catalogue of this program and no Jet database; marvello-catalogue dump writes its "
               "tables");
    file_ = fs::absolute(file_);  // begins with no "-", which the programs would take for an option
    const ChildOutput child = call("mdb-ver", {file_.string()}, charset_);
    version_ = trimmed(child.output);
    if (child.status != 0 || version_.empty()) refuse(file_, "it is no Jet database, or a damaged one");
}

std::vector<std::string> JetFile::namesOf(const std::string& type, std::string& complaint) const {
    const ChildOutput child = call("mdb-tables", {"-1", "-t", type, file_.string()}, charset_);
    if (child.status != 0) refuse(file_, firstSentence(child));
    if (!child.errors.empty()) complaint = firstSentence(child);
    std::vector<std::string> names;
    for (const std::string& name : splitText(child.output, '\n'))
        if (!name.empty()) names.push_back(name);
    return names;
}

std::vector<std::string> JetFile::tables() const {
    std::string complaint;
    auto names = namesOf("table", complaint);
    if (names.empty()) refuse(file_, "it has no tables" + (complaint.empty() ? "" : "; " + complaint));
    return names;
}

std::vector<std::string> JetFile::linkedTables() const {
    std::string ignored;
    return namesOf("linkedtable", ignored);
}

JetTable JetFile::read(const std::string& table) const {
    return TableReading(file_.string(), charset_, table).run();
}

}  // namespace marvello

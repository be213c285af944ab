// One of the text tables of a catalogue with changed fields: read and checked, with faults that name file and
// line, and written when there are none.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "data/FileText.h"
#include "data/Session.h"
#include "tests/fuzz/Edits.h"
#include "tests/fuzz/Refusal.h"
#include "tests/support/TemporaryFolder.h"
#include "tools/catalogue/Check.h"
#include "tools/catalogue/Dump.h"

namespace {

using namespace marvello;
namespace fs = std::filesystem;

/// The tables of the small content, and their sound texts.
struct Tables {
    fs::path folder = test::newTemporaryFolder("marvello-fuzz");
    std::vector<std::pair<fs::path, std::string>> files;

    Tables() {
        writeTables(fuzz::cutContent(), folder / "content", true);
        for (const auto& entry : fs::directory_iterator(folder / "content"))
            files.emplace_back(entry.path(), *fileText(entry.path()));
        std::ranges::sort(files);
    }
};

void write(const fs::path& file, const std::string& text) { std::ofstream(file, std::ios::binary) << text; }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Session session;
    static const Tables tables;
    FuzzedDataProvider changes(data, size);
    const auto& [file, text] =
        tables.files[changes.ConsumeIntegralInRange<std::size_t>(0, tables.files.size() - 1)];
    write(file, fuzz::withChangedFields(text, changes));
    try {
        Faults faults;
        const Content content = readContent(tables.folder / "content", faults);
        if (faults.empty()) {
            // Catalogues are written whatever the checks say: texts are missing from so small a content.
            writeCatalogue(content, tables.folder / "db.mdb");
            checkContent(content, std::nullopt, tables.folder / "pictures", faults);
        }
        for (const std::string& line : faults.lines())
            if (line.find(": ") == std::string::npos) std::abort();
    } catch (const std::exception& refusal) {
        fuzz::checkIsForPeople(refusal);
    }
    write(file, text);
    return 0;
}

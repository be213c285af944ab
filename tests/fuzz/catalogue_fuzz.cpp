// A catalogue file with changed bytes: each reader of the program takes what is there, or refuses it in a
// sentence.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>

#include "catalogue/Globals.h"
#include "data/FileText.h"
#include "data/Hooks.h"
#include "data/ParameterSets.h"
#include "data/Session.h"
#include "engine/clsSelections.h"
#include "tests/fuzz/Edits.h"
#include "tests/fuzz/Refusal.h"
#include "tests/support/TemporaryFolder.h"
#include "thermo/RefpropLibrary.h"
#include "thermo/clsRefprop.h"
#include "tools/catalogue/Dump.h"

namespace {

using namespace marvello;

const std::filesystem::path& file() {
    static const std::filesystem::path all = test::newTemporaryFolder("marvello-fuzz") / "db.mdb";
    return all;
}

const std::string& soundFile() {
    static const std::string bytes = [] {
        writeCatalogue(fuzz::cutContent(), file());
        return *fileText(file());
    }();
    return bytes;
}

template <class Read>
void tryOut(Read read) {
    try {
        read();
    } catch (const std::exception& refusal) {
        fuzz::checkIsForPeople(refusal);
    }
}

void select(const char* series, int economizer, float frequency) {
    clsProjectConditions conditions = conditionsAt(0, 45);
    conditions.EcoCalculateMode = static_cast<EconomizerMode>(economizer);
    conditions.InverterFrequency = frequency;
    clsSelections().Selection(std::make_shared<clsProjectConditions>(conditions), series, "*", "R134A", 0);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    // Holds the property library in memory, in which the fuzzer counts what is reached.
    static const Session holder(MARVELLO_APP_FOLDER);
    (void)refpropFunctions();
    (void)soundFile();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider changes(data, size);
    std::ofstream(file(), std::ios::binary) << fuzz::withChangedBytes(soundFile(), changes);
    Session session(MARVELLO_APP_FOLDER);
    session.hooks.showBox = [](BoxKind, const std::string&) {};
    tryOut([] { gDatabase().Connect("Data Source=" + file().string()); });
    tryOut([] { gApplication().populateDictionary("en-EN", "de-DE"); });
    tryOut([] { loadSharedPolynomials(); });
    for (const char* key : {"populate", "translate"})
        tryOut([&] {
            readParameterSet("frm", "frmSelection", key,
                             [](const std::string& text) { return gApplication().DictionaryRead(text); });
        });
    tryOut([] { select("TK-A", 1, 0); });
    tryOut([] { select("TK-D", 0, 60); });
    tryOut([] { select("NL-H", 0, 0); });
    tryOut([] { readCatalogue(file()); });
    return 0;
}

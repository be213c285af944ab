#include "data/ApplicationFolder.h"

#include "platform/Places.h"

namespace marvello {

namespace {

std::string& chosenFolder() {
    static std::string folder;
    return folder;
}

}  // namespace

std::string applicationFolder() {
    if (!chosenFolder().empty()) return chosenFolder();
    return programFile().parent_path().string();
}

void setApplicationFolder(const std::string& folder) { chosenFolder() = folder; }

}  // namespace marvello

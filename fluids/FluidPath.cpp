#include "fluids/FluidPath.h"

#include <algorithm>
#include <system_error>

#include "fluids/LatinCase.h"

namespace marvello::fluids {
namespace {

namespace fs = std::filesystem;

/// The entry of a folder with this name, exactly or else without regard to case (the first in order of the
/// alphabet).
fs::path entryOf(const fs::path& folder, const fs::path& name) {
    std::error_code error;
    if (fs::exists(folder / name, error)) return folder / name;
    fs::path best;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        const fs::path& candidate = entry->path();
        if (!sameButCase(candidate.filename().string(), name.string())) continue;
        if (best.empty() || candidate < best) best = candidate;
    }
    return best;
}

fs::path follow(fs::path place, const fs::path& relative) {
    for (const fs::path& part : relative) {
        if (part.empty() || part == ".") continue;
        place = entryOf(place, part);
        if (place.empty()) break;
    }
    return place;
}

}  // namespace

fs::path findFluidFile(const std::string& name, const std::vector<fs::path>& folders) {
    std::string portable = name;
    std::replace(portable.begin(), portable.end(), '\\', '/');
    const fs::path wanted(portable);
    if (wanted.is_absolute()) return follow(wanted.root_path(), wanted.relative_path());
    for (const fs::path& folder : folders) {
        fs::path found = follow(folder, wanted);
        if (!found.empty()) return found;
    }
    return {};
}

}  // namespace marvello::fluids

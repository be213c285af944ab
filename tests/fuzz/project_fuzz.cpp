// Any text as the file of a project.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "project/ProjectFile.h"
#include "tests/fuzz/Refusal.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace marvello;
    try {
        const Project project = projectIn({reinterpret_cast<const char*>(data), size});
        // What was taken is kept.
        const std::string text = projectText(project);
        if (projectText(projectIn(text)) != text) std::abort();
    } catch (const ProjectFault& refusal) {
        fuzz::checkIsForPeople(refusal);
    }
    return 0;
}

#include "tests/tools/CallProgram.h"

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <memory>

namespace marvello::testing {

Answer callProgram(const std::string& program, const std::string& arguments, Listen to) {
    const std::string command = std::string("cd / && '") + MARVELLO_APP_FOLDER + "/" + program + "' " +
                                arguments + (to == Listen::errors ? " 2>&1 >/dev/null" : " 2>/dev/null");
    std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    Answer answer;
    std::array<char, 4096> buffer{};
    while (const std::size_t read = std::fread(buffer.data(), 1, buffer.size(), pipe.get())) {
        answer.out.append(buffer.data(), read);
    }
    const int status = pclose(pipe.release());
    answer.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return answer;
}

}  // namespace marvello::testing

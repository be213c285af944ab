#include "tests/tools/CallProgram.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>

namespace marvello::testing {

Answer callCommand(const std::string& command) {
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

Answer callProgram(const std::string& program, const std::string& arguments, Listen to) {
    return callCommand(std::string("cd / && '") + MARVELLO_APP_FOLDER + "/" + program + "' " + arguments +
                       (to == Listen::errors ? " 2>&1 >/dev/null" : " 2>/dev/null"));
}

void expectRefused(const std::string& program, const Refusal& refusal) {
    const Answer answer = callProgram(program, refusal.arguments, Listen::errors);
    EXPECT_EQ(answer.status, refusal.status) << refusal.arguments << ": " << answer.out;
    EXPECT_NE(answer.out.find(refusal.says), std::string::npos) << refusal.arguments << ": " << answer.out;
    EXPECT_EQ(std::count(answer.out.begin(), answer.out.end(), '\n'), 1) << answer.out;
}

}  // namespace marvello::testing

// Runs batches with marvello-select of the built application folder as its users do.

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "tests/support/TemporaryFolder.h"
#include "tests/tools/CallProgram.h"

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;
using Lines = std::vector<std::string>;

using marvello::test::TemporaryFolder;
using marvello::testing::Answer;
using marvello::testing::expectRefused;
using marvello::testing::Listen;

const std::string program = std::string(MARVELLO_APP_FOLDER) + "/marvello-select";

Answer call(const std::string& arguments, Listen to = Listen::output) {
    return marvello::testing::callProgram("marvello-select", arguments, to);
}

Lines linesOf(const std::string& text) {
    Lines lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

std::string joined(Lines::const_iterator begin, Lines::const_iterator end) {
    std::string text;
    for (auto line = begin; line != end; ++line) text += *line + '\n';
    return text;
}

std::string textOf(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// A record of CSV begins with the number of its line.
long long numberOf(const std::string& line) { return std::stoll(line); }

const std::string columns = "refrigerant,series,models,ted,tcd,eco-mode";

/// Points of two refrigerants that take turns, with some bad lines and empty ones between.
Lines points(int count) {
    Lines lines;
    for (int i = 0; i < count; ++i) {
        const std::string ted = std::to_string(-15 + i % 25);
        const char* const refrigerant = i / 30 % 2 == 0 ? "R134A" : "R407C";
        lines.push_back(std::string(refrigerant) + ",TK-A,120;140," + ted + ",40," +
                        (i % 10 == 0 ? "1" : "0"));
        if (i % 25 == 20) lines.back() = "R134A,TK-A,120,zero,40,0";
        if (i % 25 == 21) lines.back() = "";
        if (i % 25 == 22) lines.back() = "R134A,TK-A,120,300,40,0";
    }
    return lines;
}

/// A folder with the file points.csv of those points under their heading.
struct Points {
    explicit Points(int count) : lines(points(count)) {
        std::ofstream(file) << columns << '\n' << joined(lines.begin(), lines.end());
    }

    TemporaryFolder folder{"marvello-batch"};
    fs::path file = folder / "points.csv";
    Lines lines;
    std::string batch = "--format csv --batch " + file.string();
};

TEST(batch, NeitherJobsNorTheWayInChangeAByte) {
    const Points given(150);
    const Answer one = call(given.batch + " --jobs 1");
    EXPECT_EQ(one.status, 3);
    const std::string complaints = call(given.batch + " --jobs 1", Listen::errors).out;
    EXPECT_EQ(linesOf(complaints).size(), 12);
    const Lines records = linesOf(one.out);
    EXPECT_EQ(records.front().substr(0, 24), "line,refrigerant,series,");
    EXPECT_TRUE(std::ranges::is_sorted(records.begin() + 1, records.end(), {}, numberOf));
    EXPECT_EQ(numberOf(records.back()), 151);
    for (const char* jobs : {" --jobs 2", " --jobs 256", ""}) {
        EXPECT_TRUE(call(given.batch + jobs).out == one.out) << jobs;
        EXPECT_EQ(call(given.batch + jobs, Listen::errors).out, complaints) << jobs;
    }
    EXPECT_TRUE(call("--format csv --batch - < " + given.file.string()).out == one.out);
    const Lines fromInput = linesOf(call("--batch - < " + given.file.string(), Listen::errors).out);
    ASSERT_EQ(fromInput.size(), 12);
    EXPECT_NE(fromInput.front().find("standard input:22: ted: \"zero\""), std::string::npos)
        << fromInput.front();
}

TEST(batch, AFileInPiecesGivesTheSameLines) {
    const Points given(150);
    const std::string whole = call(given.batch).out;
    std::string found = whole.substr(0, whole.find('\n') + 1);
    constexpr std::ptrdiff_t pieces[] = {0, 1, 60, 61, 150};
    for (std::size_t i = 0; i + 1 < std::size(pieces); ++i) {
        const fs::path piece = given.folder / ("piece" + std::to_string(i));
        std::ofstream(piece) << joined(given.lines.begin() + pieces[i], given.lines.begin() + pieces[i + 1]);
        const std::string first = std::to_string(pieces[i] + 2);  // the heading is the first
        found += call("--columns " + columns + " --no-header --format csv --first-line " + first +
                      " --batch - < " + piece.string())
                     .out;
    }
    EXPECT_TRUE(found == whole);
    const std::string piece =
        call("--columns " + columns + " --format csv --batch - < " + (given.folder / "piece1").string()).out;
    EXPECT_NE(piece.find("\n1,R134A,"), std::string::npos);
}

TEST(batch, ALineIsNamedByItsNumberWhateverStandsBefore) {
    const TemporaryFolder folder("marvello-batch");
    const fs::path file = folder / "points.csv";
    std::ofstream(file) << "\n\xEF\xBB\xBFrefrigerant,series,models,ted,tcd\r\n\r\nR134A,TK-A,120,2,"
                           "40\r\n\nbad\nR134A,TK-A,120,0,"
                        << std::string(2'000'000, '4') << "\nR134A,TK-A,120;140,3,40\nR134A,TK-A,120,2,"
                        << '\0' << "\nworse";
    const std::string batch = "--batch " + file.string();
    Lines records = linesOf(call(batch + " --format csv").out);
    ASSERT_EQ(records.size(), 4);
    std::ranges::for_each(records, [](std::string& line) { line = line.substr(0, line.find(',', 15)); });
    EXPECT_EQ(records,
              (Lines{"line,refrigerant", "4,R134A,TK-A,120", "8,R134A,TK-A,120", "8,R134A,TK-A,140"}));
    const Lines complaints = linesOf(call(batch, Listen::errors).out);
    ASSERT_EQ(complaints.size(), 4);
    EXPECT_NE(complaints[0].find(":6: the line has 1 fields, not 5"), std::string::npos) << complaints[0];
    EXPECT_NE(complaints[2].find(":9: tcd: \""), std::string::npos) << complaints[2];
    EXPECT_NE(complaints[3].find(":10: the line has 1 fields"), std::string::npos) << complaints[3];
    EXPECT_NE(complaints[1].find(":7: the line is longer than 1000000 bytes"), std::string::npos)
        << complaints[1];
}

TEST(batch, StrictEndsBeforeTheFirstBadLineWithAnyJobs) {
    Points given(20);
    for (int i = 0; i < 400; ++i) given.lines.push_back("R134A,TK-A,120," + std::to_string(i % 10) + ",40,0");
    given.lines[299] = "R134A,TK-A,120,none,40,0";
    given.lines[310] = "bad as well";
    std::ofstream(given.file) << columns << '\n' << joined(given.lines.begin(), given.lines.end());
    const Lines all = linesOf(call(given.batch).out);
    const auto firstBeyond = std::ranges::find_if(all.begin() + 1, all.end(),
                                                  [](const auto& line) { return numberOf(line) > 301; });
    ASSERT_NE(firstBeyond, all.end());
    for (const char* jobs : {" --jobs 1", " --jobs 3", " --jobs 16"}) {
        const Answer strict = call(given.batch + " --strict" + jobs);
        EXPECT_EQ(strict.status, 3);
        EXPECT_TRUE(strict.out == joined(all.begin(), firstBeyond)) << jobs;
        EXPECT_EQ(linesOf(call(given.batch + " --strict" + jobs, Listen::errors).out).size(), 1);
    }
    EXPECT_EQ(Json::parse(call("--strict --format json --batch " + given.file.string()).out).size(), 299);
}

TEST(batch, LinesOfJsonAreTheObjectsOfTheArray) {
    const Points given(60);
    const std::string batch = "--batch " + given.file.string();
    const Json array = Json::parse(call(batch + " --format json").out);
    const Lines lines = linesOf(call(batch + " --format jsonl").out);
    ASSERT_EQ(lines.size(), array.size());
    Json numbers = Json::array();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_TRUE(lines[i].starts_with("{\"line\":"));
        Json object = Json::parse(lines[i]);
        numbers.push_back(object["line"]);
        object.erase("line");
        EXPECT_TRUE(object == array[i]) << i;
    }
    EXPECT_EQ(numbers.front(), 2);  // the first line below the heading
    EXPECT_EQ(numbers[20], 25);     // three that are bad or empty before it
    const std::string one = "--refrigerant R134A --series TK-A --ted 2 --tcd 40 --format ";
    const std::string line = call(one + "jsonl").out;
    EXPECT_EQ(std::ranges::count(line, '\n'), 1);
    EXPECT_EQ(Json::parse(line), Json::parse(call(one + "json").out));
    EXPECT_EQ(call(one + "csv").out.substr(0, 12), "refrigerant,");  // no number for a single selection
}

TEST(batch, WhatCannotBeIsRefused) {
    const std::string point = "--refrigerant R134A --series TK-A --ted 2 --tcd 40";
    const Points given(1);
    const std::string batch = "--batch - < " + given.file.string();
    for (const marvello::testing::Refusal& refusal : {
             marvello::testing::Refusal{"--jobs 0 " + batch,
                                        "jobs: \"0\" is not a whole number from 1 to 256"},
             {"--jobs 257 " + batch, "jobs: \"257\" is not"},
             {"--jobs 1.5 " + batch, "jobs: \"1.5\" is not"},
             {"--jobs two " + batch, "jobs: \"two\" is not"},
             {"--first-line 0 " + batch, "first-line: \"0\" is not a whole number from 1 to"},
             {"--columns ted,colour " + batch, "columns: there is no option colour"},
             {"--columns ted,tcd,ted " + batch, "columns: the column ted is there twice"},
             {"--columns '' " + batch, "columns: there is none"},
             {point + " --columns ted", "--batch"},
             {point + " --no-header", "--batch"},
             {point + " --jobs 2", "--batch"},
             {point + " --first-line 2", "--batch"},
             {"--format list-csv " + batch, "a batch has table, csv, json and jsonl"},
         })
        expectRefused("marvello-select", refusal);
}

// A library with the ten functions alone, which answers each call with the same figures.
TEST(batch, ALibraryWithOneSetUpHasOneThread) {
    const TemporaryFolder folder("marvello-one-set-up");
    const fs::path app = folder / "app";
    fs::create_directories(app);
    for (const char* name : {"db.mdb", "Fluids"})
        fs::create_symlink(fs::path(MARVELLO_APP_FOLDER) / name, app / name);
    const std::string library = fs::path(MARVELLO_RECORDING_LIBRARY).filename();
    fs::create_symlink(MARVELLO_RECORDING_LIBRARY, app / library);
    const std::string points = folder / "points.csv";
    std::ofstream(points) << "ted,tcd\n0,40\n5,45\n";
    const std::string batch = "--refrigerant R134A --series TK-A --models 120 --format csv --app-folder " +
                              app.string() + " --batch " + points;
    const Answer alone = call(batch + " --jobs 1");
    EXPECT_EQ(alone.status, 0) << alone.out;
    EXPECT_EQ(linesOf(alone.out).size(), 3U);
    EXPECT_EQ(call(batch + " --jobs 3").out, alone.out);
    EXPECT_THAT(call(batch + " --jobs 3", Listen::errors).out,
                testing::HasSubstr("calculates in one thread alone"));
    EXPECT_EQ(call(batch, Listen::errors).out.find("thread"), std::string::npos);
}

TEST(batch, OutputThatNobodyTakesEndsIt) {
    const Points given(400);
    const Answer head =
        marvello::testing::callCommand("'" + program + "' " + given.batch + " 2>&1 | head -n 1");
    EXPECT_EQ(head.out.substr(0, 5), "line,");
    EXPECT_EQ(linesOf(head.out).size(), 1);
    const std::string full = "ulimit -f 4; trap '' XFSZ; '" + program + "' --jobs 2 " + given.batch;
    const Answer answer =
        marvello::testing::callCommand("(" + full + " 2>&1 >" + (given.folder / "out").string() + ")");
    EXPECT_EQ(answer.status, 2);
    EXPECT_NE(answer.out.find("The output cannot be written.\n"), std::string::npos) << answer.out;
}

/// A batch that runs and is fed from here. Its output goes to the file `out`, and its complaints to `errors`,
/// which may be a terminal.
class Running {
  public:
    Running(std::vector<std::string> arguments, const fs::path& out, const fs::path& errors) {
        std::array<int, 2> pipe{};
        if (::pipe2(pipe.data(), O_CLOEXEC) != 0) std::abort();
        std::vector<char*> words{const_cast<char*>(program.c_str())};
        for (std::string& argument : arguments) words.push_back(argument.data());
        words.push_back(nullptr);
        process_ = fork();
        if (process_ == 0) {
            std::signal(SIGINT, SIG_DFL);
            dup2(pipe[0], STDIN_FILENO);
            dup2(open(out.c_str(), O_WRONLY | O_CREAT, 0600), STDOUT_FILENO);
            dup2(open(errors.c_str(), O_WRONLY | O_CREAT | O_NOCTTY, 0600), STDERR_FILENO);
            execv(words[0], words.data());
            _exit(99);
        }
        close(pipe[0]);
        input_ = pipe[1];
    }
    ~Running() {
        if (process_ > 0) (void)end();
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

    void feed(const std::string& text) {
        ASSERT_EQ(write(input_, text.data(), text.size()), ssize_t(text.size()));
    }
    void send(int signal) { kill(process_, signal); }

    struct End {
        int status;
        long peakKilobytes;
    };
    /// Ends its input and waits for it.
    End end() {
        close(std::exchange(input_, -1));
        return wait();
    }
    End wait() {
        int status = 0;
        rusage used{};
        wait4(std::exchange(process_, -1), &status, 0, &used);
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, used.ru_maxrss};
    }

  private:
    pid_t process_ = -1;
    int input_ = -1;
};

/// Waits up to a minute for something.
bool comes(const auto& condition) {
    for (int i = 0; i < 6000; ++i) {
        if (condition()) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
}

TEST(batch, AnInterruptEndsItAfterWholeLines) {
    const Points given(400);
    const std::string all = call(given.batch).out;
    for (const int signal : {SIGINT, SIGTERM}) {
        const fs::path out = given.folder / ("out" + std::to_string(signal));
        const fs::path errors = given.folder / ("errors" + std::to_string(signal));
        Running running({"--batch", "-", "--format", "csv", "--jobs", "3"}, out, errors);
        running.feed(columns + '\n' + joined(given.lines.begin(), given.lines.begin() + 200) + "R134A,TK");
        // What has come in is answered without waiting for more, and the half line is not.
        ASSERT_TRUE(comes([&] { return textOf(out).find("\n201,") != std::string::npos; }));
        running.send(signal);
        EXPECT_EQ(running.wait().status, 130);
        const std::string written = textOf(out);
        EXPECT_TRUE(all.starts_with(written));
        EXPECT_TRUE(written.ends_with('\n'));
        EXPECT_EQ(linesOf(textOf(errors)).back(), "marvello-select: interrupted after line 201");
    }
    // In the midst of the calculation, wherever that is; its input stays open, so that it cannot be at its
    // end.
    const fs::path out = given.folder / "out";
    Running running({"--batch", "-", "--format", "csv"}, out, given.folder / "errors");
    running.feed(columns + '\n' + joined(given.lines.begin(), given.lines.end()));
    ASSERT_TRUE(comes([&] { return !textOf(out).empty(); }));
    running.send(SIGINT);
    EXPECT_EQ(running.wait().status, 130);
    const std::string written = textOf(out);
    EXPECT_TRUE(all.starts_with(written));
    EXPECT_TRUE(written.ends_with('\n'));
}

TEST(batch, ALongOneTakesNoMoreMemoryThanAShortOne) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "A sanitizer keeps memory that was given back.";
#endif
    const TemporaryFolder folder("marvello-batch");
    const auto peakOf = [&](int count) {
        Running running({"--batch", "-", "--format", "csv", "--jobs", "2"}, folder / "out",
                        folder / "errors");
        running.feed("refrigerant,series,models,ted,tcd\nR134A,TK-A,120,2,40\n");
        const Lines block(1000, "R134A,TK-A,120,2,4o");
        for (int fed = 0; fed < count; fed += 1000) running.feed(joined(block.begin(), block.end()));
        return running.end().peakKilobytes;
    };
    const long before = peakOf(4000);
    const long after = peakOf(200000);
    EXPECT_LT(after, before + 3000);  // 1 KB for each line would be 196,000
    EXPECT_LT(after, 60000);
}

TEST(batch, ProgressIsShownOnATerminalAndWiped) {
    const TemporaryFolder folder("marvello-batch");
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_GE(terminal, 0);
    ASSERT_EQ(grantpt(terminal) + unlockpt(terminal), 0);
    Running running({"--batch", "-", "--format", "csv"}, folder / "out", ptsname(terminal));
    running.feed("refrigerant,series,models,ted,tcd\n");
    for (int i = 0; i < 2; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(400));
        running.feed("R134A,TK-A,120,2,40\n");
    }
    ASSERT_TRUE(comes([&] { return textOf(folder / "out").find("\n3,") != std::string::npos; }));
    running.feed("R134A,TK-A,120,2,no\n");
    EXPECT_EQ(running.end().status, 3);
    std::array<char, 4096> buffer{};
    const auto size = read(terminal, buffer.data(), buffer.size());
    ASSERT_GT(size, 0);
    const std::string shown(buffer.data(), static_cast<std::size_t>(size));
    close(terminal);
    EXPECT_NE(shown.find(" lines, "), std::string::npos) << shown;
    const auto complaint = shown.find("marvello-select: standard input:4: tcd: \"no\"");
    ASSERT_NE(complaint, std::string::npos) << shown;
    EXPECT_EQ(shown[complaint - 1], '\r') << shown;
    EXPECT_TRUE(shown.ends_with("\r\n") || shown.ends_with(" \r")) << shown;
    EXPECT_EQ(linesOf(shown).size(), 1 + static_cast<std::size_t>(shown.ends_with(" \r"))) << shown;
}

}  // namespace

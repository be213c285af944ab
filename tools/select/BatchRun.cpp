#include "tools/select/BatchRun.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <exception>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "data/FileText.h"
#include "data/Session.h"
#include "platform/Interrupt.h"
#include "thermo/RefpropLibrary.h"
#include "tools/select/Batch.h"
#include "tools/select/BlockQueue.h"
#include "tools/select/Complaint.h"
#include "tools/select/LineReader.h"
#include "tools/select/Progress.h"
#include "tools/select/Run.h"

namespace marvello::select {

namespace {

/// A batch as all its threads see it.
struct Batch {
    const BatchOptions& options;
    const Format& format;
    const Request& base;
    const Choices& choices;
    const Frame frame = format.frame(true, options.hasHeading);
    const std::string folder = Session::current().applicationFolder;
    BatchColumns columns{};

    std::string file() const { return options.file == "-" ? "standard input" : options.file; }
    std::string place(long long line) const { return file() + ":" + std::to_string(line) + ": "; }
    BadRequest unreadable() const { return BadRequest("the file " + file() + " cannot be read"); }
};

std::string tooLong() {
    return "the line is longer than " + std::to_string(LineReader::longestLine) + " bytes";
}

/// Calculates lines in a session of its own, which is that of the thread.
class Worker {
  public:
    explicit Worker(const Batch& batch) : batch_(batch) {}

    BlockResult run(const LineBlock& lines) {
        BlockResult result;
        try {
            open();
            runLines(lines, result);
        } catch (...) {
            result.failure = std::current_exception();
            result.isLast = true;
        }
        return result;
    }

  private:
    void open() {
        if (session_) return;
        session_ = std::make_unique<Session>(batch_.folder);
        openCatalogue(batch_.options.language);
    }

    void runLines(const LineBlock& lines, BlockResult& result) {
        const std::string_view text = lines.text;
        std::size_t at = 0;
        do {
            if (Interrupt::isAsked()) {
                result.isLast = result.isInterrupted = true;
                return;
            }
            const std::size_t end = std::min(text.find('\n', at), text.size());
            const long long number = lines.first + result.lines++;
            const std::string fault =
                lines.isTooLong ? tooLong() : runLine(text.substr(at, end - at), number, result);
            at = end + 1;
            if (fault.empty()) continue;
            result.complaints += complaint(batch_.place(number) + fault);
            result.hasBadLine = true;
            result.isLast = batch_.options.isStrict;
        } while (at < text.size() && !result.isLast);
    }

    /// Runs a line; what is wrong with it, empty for nothing.
    std::string runLine(std::string_view line, long long number, BlockResult& result) {
        try {
            auto request = readRequest(line, batch_.columns, batch_.base, batch_.choices);
            if (!request) return {};
            const Run run = carryOut(*std::move(request));
            std::string text = batch_.frame.between;
            batch_.format.add(text, run, number);
            result.text += text;
            result.hasCompressor |= run.selection->Count() > 0;
            for (const std::string& remark : run.remarks)
                result.complaints += complaint(batch_.place(number) + remark);
            return {};
        } catch (const DatabaseError&) {
            throw;  // no other line would be better off
        } catch (const FluidLibraryError&) {
            throw;
        } catch (const std::exception& fault) {
            return fault.what();
        }
    }

    const Batch& batch_;
    std::unique_ptr<Session> session_;
};

void work(const Batch& batch, BlockQueue& queue) {
    Worker worker(batch);
    while (BlockQueue::Slot* slot = queue.take()) queue.giveBack(*slot, worker.run(slot->lines));
}

/// Starts one more thread. Where the system has none left the others do its work.
void addWorker(std::vector<std::jthread>& workers, const Batch& batch, BlockQueue& queue) {
    try {
        workers.emplace_back([&] { work(batch, queue); });
    } catch (const std::system_error&) {
        if (workers.empty()) throw std::runtime_error("The system has no thread left.");
    }
}

/// Reads to the end, and starts threads as long as there is more to do than they can take.
void read(const Batch& batch, LineReader& reader, BlockQueue& queue) {
    std::vector<std::jthread> workers;
    const auto jobs = static_cast<std::size_t>(batch.options.jobs);
    BlockResult last;
    last.isLast = true;
    try {
        while (auto lines = reader.next(batch.format.linesAtOnce)) {
            if (!queue.add(*std::move(lines))) break;
            if (workers.size() < jobs && queue.needsHands()) addWorker(workers, batch, queue);
        }
        last.isInterrupted = Interrupt::isAsked();
    } catch (const std::system_error&) {
        last.failure = std::make_exception_ptr(batch.unreadable());
    } catch (...) {
        last.failure = std::current_exception();
    }
    queue.end(std::move(last));
}

/// Writes results in their order.
class Writer {
  public:
    explicit Writer(const Frame& frame) : unwritten_(frame.opening), frame_(frame) {}

    void write(const BlockResult& result) {
        progress_.add(result.lines);
        if (!result.text.empty()) {
            print(std::string_view(result.text).substr(isFirst_ ? frame_.between.size() : 0));
            isFirst_ = false;
        }
        if (result.complaints.empty()) return;
        progress_.hide();
        std::fwrite(result.complaints.data(), 1, result.complaints.size(), stderr);  // may hold zero bytes
    }
    void end() { print(frame_.closing); }

  private:
    void print(std::string_view text) {
        printText(unwritten_.append(text));
        unwritten_.clear();
    }

    std::string unwritten_;  ///< Waits for the first run.
    const Frame& frame_;
    bool isFirst_ = true;
    Progress progress_;
};

void write(BlockQueue& queue, const Frame& frame, BatchEnd& end) {
    Writer writer(frame);
    for (bool isLast = false; !isLast;) {
        const BlockResult result = queue.next();
        writer.write(result);
        end.lastLine += result.lines;
        end.hasBadLine |= result.hasBadLine;
        end.hasCompressor |= result.hasCompressor;
        end.isInterrupted |= result.isInterrupted;
        if (result.failure) std::rethrow_exception(result.failure);
        isLast = result.isLast;
    }
    writer.end();
}

/// Ends the other threads, whatever they wait for.
struct Stop {
    BlockQueue& queue;

    ~Stop() {
        queue.close();
        Interrupt::ask();
    }
};

/// Reads the columns from the first line that is not empty, or from the options. Returns the number of the
/// last line that it took.
long long readHeading(Batch& batch, LineReader& reader) {
    const auto read = [&](const std::string& place, const LineBlock& line) {
        try {
            if (line.isTooLong) throw BadRequest(tooLong());
            const auto columns = readColumns(std::string_view(line.text).substr(0, line.text.find('\n')));
            if (columns) batch.columns = *columns;
        } catch (const BadRequest& fault) {
            throw BadRequest(place + fault.what());
        }
        return !batch.columns.empty();
    };
    if (batch.options.columns) {
        if (read("columns: ", {.text = *batch.options.columns})) return batch.options.firstLine - 1;
        throw BadRequest("columns: there is none");
    }
    while (const auto line = reader.next(1))
        if (read(batch.place(line->first), *line)) return line->first;
    if (Interrupt::isAsked()) return batch.options.firstLine - 1;
    throw BadRequest(batch.file() + " has no header line");
}

}  // namespace

BatchEnd runBatch(const BatchOptions& options, const Format& format, const Request& base,
                  const Choices& choices) {
    const Interrupt interrupt;
    Batch batch{options, format, base, choices};
    std::optional<ByteInput> input;
    std::optional<LineReader> reader;
    BatchEnd end;
    try {
        input.emplace(options.file);
        reader.emplace(*input, options.firstLine);
        end.lastLine = readHeading(batch, *reader);
    } catch (const std::system_error&) {
        throw batch.unreadable();
    }
    BlockQueue queue(2 * static_cast<std::size_t>(options.jobs));
    const std::jthread reading([&] { read(batch, *reader, queue); });
    const Stop stop{queue};  // before the thread is waited for
    write(queue, batch.frame, end);
    return end;
}

}  // namespace marvello::select

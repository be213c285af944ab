#include "engine/CalculatorPool.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <limits>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "data/CollectedBoxes.h"
#include "data/Hooks.h"
#include "data/Session.h"
#include "thermo/RefpropLibrary.h"

namespace marvello {

namespace {

/// How many indices a thread takes at once: neighbours share states, which each thread finds for itself.
constexpr std::size_t mostAtOnce = 32;
constexpr std::size_t blocksForEach = 8;  ///< At least, so that the threads end together.
constexpr auto betweenTurns = std::chrono::milliseconds(20);

std::vector<CollectedBoxes::Box> onceEach(const std::vector<CollectedBoxes::Box>& boxes) {
    const CollectedBoxes collected;
    for (const CollectedBoxes::Box& box : boxes) showBox(box.kind, box.text);
    return collected.boxes();
}

}  // namespace

struct CalculatorPool::Shared {
    std::string folder;
    std::string catalogue;

    std::mutex lock;
    std::condition_variable begun;
    std::condition_variable ended;
    unsigned long long run = 0;  ///< The number of the present run.
    unsigned busy = 0;           ///< Threads that are at it.
    bool isOver = false;         ///< The pool goes.

    // Of a run.
    std::size_t count = 0;
    std::size_t block = 1;
    const Work* work = nullptr;
    std::atomic<std::size_t> next = 0;
    std::atomic<bool> isStopped = false;
    std::exception_ptr failure;
    std::size_t failedIndex = 0;
    std::vector<CollectedBoxes::Box> boxes;

    std::vector<std::jthread> threads;  ///< The last member: they use the others.

    /// Ends the threads, those of a pool that could not start all of them too.
    ~Shared();
    void live();
    void takePart(Calculator& calculator);
    void fail(std::size_t index);
};

CalculatorPool::Shared::~Shared() {
    {
        const std::lock_guard held(lock);
        isOver = true;
    }
    begun.notify_all();
}

/// A thread's life: a session, and a part in each run.
void CalculatorPool::Shared::live() {
    const Session session(folder);
    Calculator calculator;
    unsigned long long done = 0;
    std::unique_lock held(lock);
    while (true) {
        begun.wait(held, [&] { return isOver || run != done; });
        if (isOver) return;
        done = run;
        held.unlock();
        const CollectedBoxes said;
        takePart(calculator);
        held.lock();
        boxes.insert(boxes.end(), said.boxes().begin(), said.boxes().end());
        if (--busy == 0) ended.notify_one();
    }
}

void CalculatorPool::Shared::takePart(Calculator& calculator) {
    std::size_t index = 0;
    try {
        gDatabase().Connect(catalogue);
        gDatabase().followFile();
        for (std::size_t from = next.fetch_add(block); from < count; from = next.fetch_add(block)) {
            for (index = from; index < std::min(from + block, count); ++index) {
                if (isStopped) return;
                (*work)(calculator, index);
            }
        }
    } catch (...) {
        fail(index);
    }
}

void CalculatorPool::Shared::fail(std::size_t index) {
    const std::lock_guard held(lock);
    isStopped = true;
    if (index >= failedIndex) return;
    failedIndex = index;
    failure = std::current_exception();
}

CalculatorPool::CalculatorPool(unsigned threads) : shared_(std::make_unique<Shared>()) {
    shared_->folder = Session::current().applicationFolder;
    shared_->catalogue = gDatabase().ConnectionString;
    if (!isRefpropConcurrent())
        threads = 1;
    else if (threads == 0)
        threads = std::max(1U, std::thread::hardware_concurrency());
    for (unsigned i = 0; i < threads; ++i) shared_->threads.emplace_back([this] { shared_->live(); });
}

CalculatorPool::~CalculatorPool() = default;

unsigned CalculatorPool::threads() const { return static_cast<unsigned>(shared_->threads.size()); }

bool CalculatorPool::run(std::size_t count, const Work& work) {
    Shared& s = *shared_;
    std::unique_lock held(s.lock);
    s.count = count;
    s.block = std::clamp<std::size_t>(count / (blocksForEach * threads()), 1, mostAtOnce);
    s.work = &work;
    s.next = 0;
    s.isStopped = false;
    s.failure = nullptr;
    s.failedIndex = std::numeric_limits<std::size_t>::max();
    s.boxes.clear();
    s.busy = threads();
    ++s.run;
    s.begun.notify_all();
    bool isAborted = false;
    while (!s.ended.wait_for(held, betweenTurns, [&] { return s.busy == 0; })) {
        held.unlock();
        giveTurn();
        held.lock();
        if (AbortRequested()) s.isStopped = isAborted = true;
    }
    const std::exception_ptr failure = s.failure;
    held.unlock();  // no thread is at it
    for (const CollectedBoxes::Box& box : onceEach(s.boxes)) showBox(box.kind, box.text);
    if (failure) std::rethrow_exception(failure);
    return !isAborted;
}

CalculatorPool& sessionPool() {
    auto& pool = Session::current().part<std::unique_ptr<CalculatorPool>>();
    if (!pool) pool = std::make_unique<CalculatorPool>();
    return *pool;
}

}  // namespace marvello

#include "workspace/FindRun.h"

#include <atomic>
#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

#include "controls/CoreText.h"
#include "data/CollectedBoxes.h"
#include "data/Session.h"

namespace marvello {

struct FindRun::Shared {
    using Told = std::function<void(unsigned, const std::shared_ptr<const FindResult>&, const QString&)>;

    std::string folder;
    std::string catalogue;
    Told told;

    std::mutex lock;
    std::condition_variable asked;
    std::optional<FindRequest> next;
    unsigned number = 0;  ///< of the next search
    bool isOver = false;
    std::atomic<bool> isStopped = false;
    FindProgress progress;
    std::jthread thread;  ///< the last member: it uses the others

    ~Shared();
    void live();
    std::shared_ptr<const FindResult> search(const FindRequest& request, std::optional<CalculatorPool>& pool);
};

FindRun::Shared::~Shared() {
    const std::lock_guard held(lock);
    isOver = isStopped = true;
    asked.notify_all();
}

/// The thread's life: a session with a pool, and one search after the other.
void FindRun::Shared::live() {
    Session session(folder);
    session.hooks.giveTurn = [this] {
        if (isStopped) AbortRequested() = true;
    };
    std::optional<CalculatorPool> pool;
    std::unique_lock held(lock);
    while (true) {
        asked.wait(held, [this] { return isOver || next; });
        if (isOver) return;
        const FindRequest request = *std::exchange(next, std::nullopt);
        const unsigned mine = number;
        isStopped = false;
        progress.done = progress.count = 0;
        held.unlock();
        std::shared_ptr<const FindResult> result;
        QString fault;
        try {
            result = search(request, pool);
        } catch (const std::exception& error) {
            fault = fromCore(error.what());
        }
        told(mine, result, fault);
        held.lock();
    }
}

std::shared_ptr<const FindResult> FindRun::Shared::search(const FindRequest& request,
                                                          std::optional<CalculatorPool>& pool) {
    gDatabase().Connect(catalogue);
    gDatabase().followFile();
    AbortRequested() = false;
    if (!pool) pool.emplace();
    const CollectedBoxes said;  // what a compressor failed at is said of it
    return std::make_shared<const FindResult>(
        find(request, preparedCatalogue(gDatabase()), *pool, &progress));
}

FindRun::FindRun(QObject* parent) : QObject(parent), shared_(std::make_unique<Shared>()) {
    shared_->folder = Session::current().applicationFolder;
    shared_->catalogue = gDatabase().ConnectionString;
    shared_->told = [this](unsigned number, const std::shared_ptr<const FindResult>& result,
                           const QString& fault) {
        QMetaObject::invokeMethod(this, [this, number, result, fault] { end(number, result, fault); });
    };
}

FindRun::~FindRun() = default;

void FindRun::start(const FindRequest& request) {
    const std::lock_guard held(shared_->lock);
    shared_->next = request;
    shared_->number = ++asked_;
    shared_->isStopped = true;
    isRunning_ = true;
    if (!shared_->thread.joinable())
        shared_->thread = std::jthread([shared = shared_.get()] { shared->live(); });
    shared_->asked.notify_all();
}

void FindRun::abort() {
    const std::lock_guard held(shared_->lock);
    shared_->next.reset();
    shared_->isStopped = true;
    ++asked_;
    isRunning_ = false;
}

bool FindRun::isRunning() const { return isRunning_; }

int FindRun::percent() const {
    const std::size_t count = shared_->progress.count;
    return count == 0 ? 0 : static_cast<int>(100 * shared_->progress.done / count);
}

void FindRun::end(unsigned number, const std::shared_ptr<const FindResult>& result, const QString& fault) {
    if (number != asked_) return;
    isRunning_ = false;
    if (!result)
        emit failed(fault);
    else if (!result->isAborted)
        emit found(result);
}

}  // namespace marvello

#include "workspace/FindRun.h"

#include <exception>

#include "controls/CoreText.h"
#include "data/CollectedBoxes.h"
#include "data/Session.h"

namespace marvello {

void FindRun::start(const FindRequest& request) {
    const unsigned number = ++asked_;
    isRunning_ = true;
    const auto tell = [this, number](const std::shared_ptr<const FindResult>& result, const QString& fault) {
        const auto endThis = [this, number, result, fault] { end(number, result, fault); };
        QMetaObject::invokeMethod(this, endThis, Qt::QueuedConnection);
    };
    const bool isStarted = thread_.start([this, request, tell](const SessionThread::IsWanted&) {
        try {
            tell(search(request), {});
        } catch (const std::exception& error) {
            tell(nullptr, fromCore(error.what()));
        }
    });
    if (!isStarted) tell(nullptr, QStringLiteral("find.nothread"));
}

/// In the thread.
std::shared_ptr<const FindResult> FindRun::search(const FindRequest& request) {
    progress_.done = progress_.count = 0;
    gDatabase().Connect({});
    gDatabase().followFile();
    auto& pool = Session::current().part<std::unique_ptr<CalculatorPool>>();
    if (!pool) pool = std::make_unique<CalculatorPool>();
    const CollectedBoxes said;  // what a compressor failed at is said of it
    return std::make_shared<const FindResult>(
        find(request, preparedCatalogue(gDatabase()), *pool, &progress_));
}

void FindRun::abort() {
    thread_.stop();
    ++asked_;
    isRunning_ = false;
}

int FindRun::percent() const {
    const std::size_t count = progress_.count;
    return count == 0 ? 0 : static_cast<int>(100 * progress_.done / count);
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

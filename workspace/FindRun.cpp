#include "workspace/FindRun.h"

#include <QMetaObject>

#include "data/Session.h"

namespace marvello {

FindRun::FindRun(QObject* parent) : QObject(parent), background_(*this) {}

void FindRun::start(const FindRequest& request) {
    isRunning_ = true;
    const auto failed = [this](const QString& reason) { fail(reason); };
    const auto task = [this, request](const Background::Place& place) {
        place.tell([this, result = search(request)] { take(result); });
    };
    if (!background_.startInThread(task, failed))
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (isRunning_) fail(QStringLiteral("find.nothread"));
            },
            Qt::QueuedConnection);
}

/// In the thread.
std::shared_ptr<const FindResult> FindRun::search(const FindRequest& request) {
    progress_.done = progress_.count = 0;
    return std::make_shared<const FindResult>(
        find(request, preparedCatalogue(gDatabase()), sessionPool(), &progress_));
}

void FindRun::abort() {
    background_.stop();
    isRunning_ = false;
}

int FindRun::percent() const {
    const std::size_t count = progress_.count;
    return count == 0 ? 0 : static_cast<int>(100 * progress_.done / count);
}

void FindRun::take(const std::shared_ptr<const FindResult>& result) {
    isRunning_ = false;
    if (!result->isAborted) emit found(result);
}

void FindRun::fail(const QString& reason) {
    isRunning_ = false;
    emit failed(reason);
}

}  // namespace marvello

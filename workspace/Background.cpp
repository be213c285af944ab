#include "workspace/Background.h"

#include <QMetaObject>
#include <QObject>
#include <exception>
#include <utility>

#include "controls/CoreText.h"
#include "data/CollectedBoxes.h"
#include "data/Session.h"
#include "thermo/RefpropLibrary.h"

namespace marvello {

Background::Background(QObject& owner) : owner_(owner) {}

void Background::start(Task task, Failed failed) {
    if (isRefpropConcurrent() && startInThread(task, failed)) return;
    const NoTurns untilItEnds;
    carryOut(++newest_, task, failed, {});
}

bool Background::startInThread(Task task, Failed failed) {
    const unsigned number = ++newest_;
    return thread_.start([this, number, task = std::move(task),
                          failed = std::move(failed)](const SessionThread::IsWanted& isWanted) {
        carryOut(number, task, failed, isWanted);
    });
}

void Background::stop() {
    thread_.stop();
    ++newest_;
}

/// In any thread.
void Background::carryOut(unsigned number, const Task& task, const Failed& failed,
                          const SessionThread::IsWanted& isWanted) try {
    const CollectedBoxes said;  // what fails is said by the one who asked
    gDatabase().Connect({});
    gDatabase().followFile();
    task({isWanted, [this, number](std::function<void()> told) { tell(number, std::move(told)); }});
} catch (const std::exception& error) {
    if (failed) tell(number, [failed, reason = fromCore(error.what())] { failed(reason); });
}

void Background::tell(unsigned number, std::function<void()> told) {
    const auto ifNewest = [this, number, told = std::move(told)] {
        if (number == newest_) told();
    };
    QMetaObject::invokeMethod(&owner_, ifNewest, Qt::QueuedConnection);
}

}  // namespace marvello

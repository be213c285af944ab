#pragma once

#include <QString>
#include <functional>

#include "data/SessionThread.h"

class QObject;

namespace marvello {

/// Carries out for a part of the window what it must not wait for, the newest task alone: in a thread with a
/// session of its own, on the application folder and the catalogue of the one that asks. A member of the
/// owner, behind what its tasks use.
class Background {
  public:
    /// What a task has of its place.
    struct Place {
        /// Whether the task is still the newest. Empty in the thread of the owner, where nothing comes
        /// between.
        SessionThread::IsWanted isWanted;
        /// Calls, later and in the thread of the owner, what is told, if the task is the newest then.
        std::function<void(std::function<void()>)> tell;
    };
    /// Runs in the thread, with the catalogue open and without message boxes. What it throws is the failure.
    using Task = std::function<void(const Place&)>;
    using Failed = std::function<void(const QString& reason)>;

    explicit Background(QObject& owner);

    /// Carries out a task and gives up the one before. Without a thread, and with a property library that
    /// calculates in one thread alone, it is carried out at once.
    void start(Task task, Failed failed = {});
    /// The same in the thread alone. Returns false, and carries out nothing, if there is none.
    bool startInThread(Task task, Failed failed = {});
    /// Gives up what was started.
    void stop();

  private:
    void carryOut(unsigned number, const Task& task, const Failed& failed,
                  const SessionThread::IsWanted& isWanted);
    void tell(unsigned number, std::function<void()> told);

    QObject& owner_;
    unsigned newest_ = 0;
    SessionThread thread_;  ///< the last member: it uses the others
};

}  // namespace marvello

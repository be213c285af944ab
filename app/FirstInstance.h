#pragma once

#include <QFileSystemWatcher>
#include <QLockFile>
#include <QString>
#include <functional>

namespace marvello {

/// The file by whose lock a second instance of the same user is known.
QString instanceLockFile();

/// Makes the program run once for a user. The first instance holds a lock as long as it runs; a later one can
/// call it, over a file next to the lock that the first one watches.
class FirstInstance {
  public:
    /// Takes the lock unless another instance holds it. A folder that takes no lock file counts as no other
    /// instance.
    FirstInstance();
    ~FirstInstance();
    FirstInstance(const FirstInstance&) = delete;
    FirstInstance& operator=(const FirstInstance&) = delete;

    bool isThis() const { return isThis_; }
    /// Asks the instance that runs already to show itself.
    static void call();
    /// Runs `answer` in the event loop whenever a later instance calls.
    void whenCalled(const std::function<void()>& answer);

  private:
    QLockFile lock_;
    bool isThis_;
    QFileSystemWatcher calls_;
};

}  // namespace marvello

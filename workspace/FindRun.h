#pragma once

#include <QObject>
#include <QString>
#include <memory>

#include "data/SessionThread.h"
#include "engine/Find.h"

namespace marvello {

/// Searches in a thread of its own, so that the window goes on meanwhile. A search that is asked for ends the
/// one before.
class FindRun : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;

    /// Searches the catalogue of the session.
    void start(const FindRequest& request);
    /// Ends the search; nothing comes of it.
    void abort();
    bool isRunning() const { return isRunning_; }
    /// How far the search has come, 0 to 100.
    int percent() const;

  signals:
    void found(const std::shared_ptr<const marvello::FindResult>& result);
    void failed(const QString& reason);

  private:
    std::shared_ptr<const FindResult> search(const FindRequest& request);
    void end(unsigned number, const std::shared_ptr<const FindResult>& result, const QString& fault);

    unsigned asked_ = 0;  ///< the number of the newest search
    bool isRunning_ = false;
    FindProgress progress_;
    SessionThread thread_;  ///< the last member: it uses the others
};

}  // namespace marvello

#pragma once

#include <QObject>
#include <QString>
#include <memory>

#include "engine/Find.h"
#include "workspace/Background.h"

namespace marvello {

/// Searches in a thread of its own, so that the window goes on meanwhile. A search that is asked for ends the
/// one before.
class FindRun : public QObject {
    Q_OBJECT

  public:
    explicit FindRun(QObject* parent = nullptr);

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
    void take(const std::shared_ptr<const FindResult>& result);
    void fail(const QString& reason);

    bool isRunning_ = false;
    FindProgress progress_;
    Background background_;
};

}  // namespace marvello

#pragma once

#include <QObject>
#include <QString>
#include <memory>

#include "engine/Find.h"

namespace marvello {

/// Searches in a thread of its own, so that the window goes on meanwhile. A search that is asked for ends the
/// one before.
class FindRun : public QObject {
    Q_OBJECT

  public:
    /// Searches the catalogue of the session.
    explicit FindRun(QObject* parent = nullptr);
    ~FindRun() override;

    void start(const FindRequest& request);
    /// Ends the search; nothing comes of it.
    void abort();
    bool isRunning() const;
    /// How far the search has come, 0 to 100.
    int percent() const;

  signals:
    void found(const std::shared_ptr<const marvello::FindResult>& result);
    void failed(const QString& reason);

  private:
    struct Shared;
    void end(unsigned number, const std::shared_ptr<const FindResult>& result, const QString& fault);

    unsigned asked_ = 0;  ///< the number of the newest search
    bool isRunning_ = false;
    std::unique_ptr<Shared> shared_;
};

}  // namespace marvello

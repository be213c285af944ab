#pragma once

#include <QObject>
#include <QString>
#include <memory>
#include <vector>

#include "catalogue/PreparedCatalogue.h"
#include "data/SessionThread.h"
#include "engine/RatingTable.h"

namespace marvello {

/// Calculates rating tables while the window goes on: in a thread with a session of its own, an economizer in
/// several. Without a thread, and with a property library that calculates in one thread alone, a table is
/// calculated at once. A newer table takes the place of the one before.
class RatingRun : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;

    /// Emits one of the signals later. The catalogue holds the compressor of the plan.
    void start(const std::shared_ptr<const PreparedCatalogue>& catalogue, const RatingPlan& plan);
    /// Gives up what was started.
    void stop();

  signals:
    void rated(const std::vector<marvello::Performance>& cells);
    void failed(const QString& reason);

  private:
    std::vector<Performance> carryOut(const RatingPlan& plan, const SessionThread::IsWanted& isWanted);
    void work(unsigned number, const RatingPlan& plan, const SessionThread::IsWanted& isWanted);

    unsigned started_ = 0;  ///< the number of the newest table
    SessionThread thread_;  ///< the last member: it uses the others
};

}  // namespace marvello

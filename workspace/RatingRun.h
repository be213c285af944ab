#pragma once

#include <QObject>
#include <QString>
#include <memory>
#include <vector>

#include "catalogue/PreparedCatalogue.h"
#include "engine/RatingTable.h"
#include "workspace/Background.h"

namespace marvello {

/// Calculates rating tables while the window goes on, an economizer in several threads. A newer table takes
/// the place of the one before.
class RatingRun : public QObject {
    Q_OBJECT

  public:
    explicit RatingRun(QObject* parent = nullptr);

    /// Emits one of the signals later. The catalogue holds the compressor of the plan.
    void start(const std::shared_ptr<const PreparedCatalogue>& catalogue, const RatingPlan& plan);
    /// Gives up what was started.
    void stop();

  signals:
    void rated(const std::vector<marvello::Performance>& cells);
    void failed(const QString& reason);

  private:
    Background background_;
};

}  // namespace marvello

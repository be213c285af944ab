#pragma once

#include <QObject>
#include <QString>
#include <atomic>
#include <memory>
#include <vector>

#include "engine/YearComparison.h"
#include "workspace/Background.h"

namespace marvello {

/// Calculates the years of plants while the window goes on. A newer one takes the place of the one before.
class YearRun : public QObject {
    Q_OBJECT

  public:
    explicit YearRun(QObject* parent = nullptr);

    /// Emits calculated() or failed() later. The machines belong to the catalogue.
    void start(const std::vector<YearChoice>& choices, const YearTerms& terms,
               const std::shared_ptr<const PreparedCatalogue>& catalogue);
    /// Gives up what was started.
    void stop();
    bool isRunning() const { return isRunning_; }
    int percent() const { return percent_; }

  signals:
    void calculated(const std::shared_ptr<const marvello::YearComparison>& years);
    void failed(const QString& reason);

  private:
    bool isRunning_ = false;
    std::atomic<int> percent_ = 0;
    Background background_;  ///< the last member: it uses the others
};

}  // namespace marvello

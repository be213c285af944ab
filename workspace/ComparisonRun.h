#pragma once

#include <QObject>
#include <QString>
#include <memory>
#include <vector>

#include "engine/Comparison.h"
#include "workspace/Background.h"

namespace marvello {

/// Calculates comparisons while the window goes on: the figures first, and then the curves. A newer one takes
/// the place of the one before.
class ComparisonRun : public QObject {
    Q_OBJECT

  public:
    explicit ComparisonRun(QObject* parent = nullptr);

    /// Emits compared() later and drawn() after it, or failed().
    void start(const std::vector<ComparedChoice>& choices, CurveAxis axis);
    /// Gives up what was started.
    void stop();
    bool isRunning() const { return isRunning_; }

  signals:
    void compared(const std::shared_ptr<const marvello::Comparison>& comparison);
    void drawn(const std::vector<marvello::Curve>& curves);
    void failed(const QString& reason);

  private:
    bool isRunning_ = false;
    Background background_;  ///< the last member: it uses the others
};

}  // namespace marvello

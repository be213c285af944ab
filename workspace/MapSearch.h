#pragma once

#include <QObject>
#include <memory>
#include <string>

#include "data/SessionThread.h"
#include "engine/PerformanceMap.h"

namespace marvello {

/// Calculates the map of a compressor while the window goes on: in a thread with a session of its own, on the
/// application folder and the catalogue of the one that asks. Without a thread, and with a property library
/// that calculates in one thread alone, it is calculated at once.
class MapSearch : public QObject {
    Q_OBJECT

  public:
    struct Question {
        std::string refrigerant;
        std::string serie;
        std::string model;
        clsProjectConditions conditions;  ///< whose temperatures are not used

        bool operator==(const Question&) const = default;
    };

    explicit MapSearch(QObject* parent);

    /// Gives up what was asked before, and emits found() later, once or more often.
    void ask(Question question);
    /// Gives up what was asked before.
    void stop();
    /// True until the last found() or stop().
    bool isSearching() const { return isSearching_; }

  signals:
    /// A map of the last question, coarse first. Null if there is none, or if it failed.
    void found(const std::shared_ptr<const marvello::PerformanceMap>& map, bool isLast);

  private:
    void answer(unsigned number, const Question& question, const IsWanted& isWanted);
    void tell(unsigned number, const std::shared_ptr<const PerformanceMap>& map, bool isLast);

    bool isSearching_ = false;
    unsigned asked_ = 0;    ///< The number of the newest question.
    SessionThread thread_;  ///< The last member: it uses the others.
};

}  // namespace marvello
